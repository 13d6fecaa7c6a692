#pragma once

// How long a test waits for what must come, in milliseconds. The five seconds that Qt Test waits of itself are short on
// a machine that is busy with other things.
constexpr int kPatience = 60'000;
