#pragma once

#include "lesson/storage/DurableFile.h"

namespace Board {

// A file whose sync() nobody waits for: the disk may take as long as it likes while somebody draws.
class BackgroundFile : public InkLesson::DiskFile
{
public:
    void sync() override;

private:
    bool m_isNamed{}; // in its folder, on the disk
};

} // namespace Board
