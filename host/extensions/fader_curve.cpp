#include "host/extensions/fader_curve.h"

#include <cmath>
#include <iterator>

namespace {

// Interpolates linearly between the curve's points, reading `from` and
// writing `to`; both members increase along the curve.
double interpolate(double value, double FaderPoint::* from, double FaderPoint::* to) {
    const FaderPoint* first = std::begin(kFaderCurve);
    const FaderPoint* last = std::end(kFaderCurve) - 1;
    if (std::isnan(value) || value <= first->*from) return first->*to;
    if (value >= last->*from) return last->*to;
    const FaderPoint* upper = first + 1;
    while (upper->*from < value) ++upper;
    const FaderPoint* lower = upper - 1;
    double fraction = (value - lower->*from) / (upper->*from - lower->*from);
    return lower->*to + fraction * (upper->*to - lower->*to);
}

}  // namespace

double faderPositionOfDb(double db) {
    return interpolate(db, &FaderPoint::db, &FaderPoint::position);
}

double dbOfFaderPosition(double position) {
    return interpolate(position, &FaderPoint::position, &FaderPoint::db);
}
