// The host fader curve served as "DB2SLIDER" and "SLIDER2DB".
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/extensions/fader_curve.h"

namespace {

TEST(FaderCurve, HasItsLandmarksAndInterpolatesLinearlyInDbBetweenThem) {
    // Bottom, unity and top both ways; halfway points between the curve's points.
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(0.0), -150.0);
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(750.0), 0.0);
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(1000.0), 12.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(-150.0), 0.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(0.0), 750.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(12.0), 1000.0);
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(875.0), 6.0);    // between 0 and +12 dB
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(60.0), -105.0);  // between -150 and -60 dB
    EXPECT_DOUBLE_EQ(faderPositionOfDb(-5.0), 650.0);   // between 550 and 750
}

TEST(FaderCurve, RisesStrictlyAcrossTheWholeTravel) {
    double previous = dbOfFaderPosition(0.0);
    for (int step = 1; step <= 10000; ++step) {
        double db = dbOfFaderPosition(step * 0.1);
        ASSERT_GT(db, previous) << "position " << step * 0.1;
        previous = db;
    }
    previous = faderPositionOfDb(-150.0);
    for (int step = 1; step <= 1620; ++step) {
        double position = faderPositionOfDb(-150.0 + step * 0.1);
        ASSERT_GT(position, previous) << "level " << -150.0 + step * 0.1;
        previous = position;
    }
}

TEST(FaderCurve, DirectionsAreEachOthersInverse) {
    for (int step = 0; step <= 1000; ++step)
        EXPECT_NEAR(faderPositionOfDb(dbOfFaderPosition(step)), step, 1e-9);
    for (int step = 0; step <= 162; ++step) {
        double db = -150.0 + step;
        EXPECT_NEAR(dbOfFaderPosition(faderPositionOfDb(db)), db, 1e-9);
    }
}

TEST(FaderCurve, ClampsBeyondItsEnds) {
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(-5.0), -150.0);
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(1e6), 12.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(-400.0), 0.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(36.1), 1000.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(-std::numeric_limits<double>::infinity()), 0.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(std::nan("")), 0.0);
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(std::nan("")), -150.0);
}

}  // namespace
