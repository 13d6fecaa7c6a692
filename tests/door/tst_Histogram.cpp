#include "door/metrics/Histogram.h"
#include "door/metrics/MetricText.h"

#include <gtest/gtest.h>

using namespace InkDoor;

TEST(Histogram, countsUpToEachBound)
{
    Histogram histogram;
    histogram.add(200'000);        // on a bound: 0.2 ms
    histogram.add(200'001);        // just above
    histogram.add(3'000'000);      // 3 ms
    histogram.add(60'000'000'000); // a minute
    histogram.add(-5);             // of a clock that went back: no time
    EXPECT_EQ(histogram.text("x_seconds", "What it is."), "# HELP x_seconds What it is.\n"
                                                          "# TYPE x_seconds histogram\n"
                                                          "x_seconds_bucket{le=\"0.0002\"} 2\n"
                                                          "x_seconds_bucket{le=\"0.0005\"} 3\n"
                                                          "x_seconds_bucket{le=\"0.001\"} 3\n"
                                                          "x_seconds_bucket{le=\"0.002\"} 3\n"
                                                          "x_seconds_bucket{le=\"0.005\"} 4\n"
                                                          "x_seconds_bucket{le=\"0.01\"} 4\n"
                                                          "x_seconds_bucket{le=\"0.025\"} 4\n"
                                                          "x_seconds_bucket{le=\"0.05\"} 4\n"
                                                          "x_seconds_bucket{le=\"0.1\"} 4\n"
                                                          "x_seconds_bucket{le=\"0.5\"} 4\n"
                                                          "x_seconds_bucket{le=\"2\"} 4\n"
                                                          "x_seconds_bucket{le=\"5\"} 4\n"
                                                          "x_seconds_bucket{le=\"+Inf\"} 5\n"
                                                          "x_seconds_sum 60.003400001\n"
                                                          "x_seconds_count 5\n");
}

TEST(MetricText, isThreeLines)
{
    EXPECT_EQ(counterText("a_total", "All.", 7), "# HELP a_total All.\n# TYPE a_total counter\na_total 7\n");
    EXPECT_EQ(gaugeText("a", "Now.", -7), "# HELP a Now.\n# TYPE a gauge\na -7\n");
}
