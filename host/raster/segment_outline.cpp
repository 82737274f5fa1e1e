#include "host/raster/segment_outline.h"

#include <cmath>
#include <cstring>

namespace {

constexpr double kHalfWidth = 0.5;
constexpr double kTolerance = 0.1;  // Cairo's default flattening tolerance

struct Point {
    int32_t x, y;
};

struct Slope {
    int32_t dx, dy;
};

Slope slopeBetween(Point a, Point b) { return {b.x - a.x, b.y - a.y}; }

Point translated(Point p, Point offset) { return {p.x + offset.x, p.y + offset.y}; }

// Orders slopes by angle; opposite slopes of the same line order the first
// one below the second, zero slopes above everything.
int compareSlopes(Slope a, Slope b) {
    const int64_t left = static_cast<int64_t>(a.dy) * b.dx;
    const int64_t right = static_cast<int64_t>(b.dy) * a.dx;
    if (left != right) return left < right ? -1 : 1;
    const bool aZero = a.dx == 0 && a.dy == 0;
    const bool bZero = b.dx == 0 && b.dy == 0;
    if (aZero && bZero) return 0;
    if (aZero) return 1;
    if (bZero) return -1;
    if ((a.dx ^ b.dx) < 0 || (a.dy ^ b.dy) < 0) return a.dx > 0 || (a.dx == 0 && a.dy > 0) ? -1 : 1;
    return 0;
}

// The polygonal pen tracing the round caps: as many vertices as keep the
// chords within the tolerance of the circle.
struct Pen {
    static constexpr int kMaxVertices = 32;
    Point vertices[kMaxVertices];
    Slope slopeCw[kMaxVertices];   // from the previous vertex
    Slope slopeCcw[kMaxVertices];  // to the next vertex
    int count = 0;

    Pen() {
        count = static_cast<int>(std::ceil(2 * M_PI / std::acos(1 - kTolerance / kHalfWidth)));
        if (count % 2 != 0) ++count;
        if (count < 4) count = 4;
        for (int i = 0; i < count; ++i) {
            const double theta = 2 * M_PI * i / static_cast<double>(count);
            vertices[i] = {fixedFromDouble(kHalfWidth * std::cos(theta)),
                           fixedFromDouble(kHalfWidth * std::sin(theta))};
        }
        for (int i = 0, previous = count - 1; i < count; previous = i++) {
            slopeCw[i] = slopeBetween(vertices[previous], vertices[i]);
            slopeCcw[i] = slopeBetween(vertices[i], vertices[(i + 1) % count]);
        }
    }

    // The vertices swept turning counter-clockwise from `in` to `out`:
    // from *start down to (not including) *stop.
    void activeCcwVertices(Slope in, Slope out, int* start, int* stop) const {
        int lo = 0, hi = count;
        int i = (lo + hi) >> 1;
        do {
            if (compareSlopes(in, slopeCcw[i]) < 0)
                lo = i;
            else
                hi = i;
            i = (lo + hi) >> 1;
        } while (hi - lo > 1);
        if (compareSlopes(in, slopeCcw[i]) < 0 && ++i == count) i = 0;
        *start = i;
        if (compareSlopes(slopeCw[i], out) <= 0) {
            lo = i;
            hi = i + count;
            i = (lo + hi) >> 1;
            do {
                const int j = i >= count ? i - count : i;
                if (compareSlopes(out, slopeCcw[j]) > 0)
                    hi = i;
                else
                    lo = i;
                i = (lo + hi) >> 1;
            } while (hi - lo > 1);
            if (i >= count) i -= count;
        }
        *stop = i;
    }
};

const Pen& roundPen() {
    static const Pen pen;
    return pen;
}

// An open run of outline points; consecutive points make the edges.
class Contour {
public:
    explicit Contour(int direction) : direction_(direction) {}
    void add(Point p) { points_[count_++] = p; }
    // Appends a fan of pen vertices around `centre` turning from `in` to `out`.
    void addFan(Slope in, Slope out, Point centre) {
        const Pen& pen = roundPen();
        int start, stop;
        pen.activeCcwVertices(in, out, &start, &stop);
        while (start != stop) {
            add(translated(centre, pen.vertices[start]));
            if (start-- == 0) start += pen.count;
        }
    }
    void emitInto(SegmentOutline& outline) const {
        for (int i = 1; i < count_; ++i) emitEdge(points_[i - 1], points_[i], outline);
    }

private:
    void emitEdge(Point from, Point to, SegmentOutline& outline) const {
        if (from.y == to.y) return;  // horizontal edges add nothing
        int dir = direction_;
        if (from.y > to.y) {
            std::swap(from, to);
            dir = -dir;
        }
        outline.edges[outline.count++] = {from.x, from.y, to.x, to.y, dir};
    }

    Point points_[Pen::kMaxVertices + 4];
    int count_ = 0;
    int direction_;
};

// Unit direction of a slope, and its length.
void normalize(double* dx, double* dy) {
    if (*dx == 0.0) {
        *dy = *dy > 0.0 ? 1.0 : -1.0;
    } else if (*dy == 0.0) {
        *dx = *dx > 0.0 ? 1.0 : -1.0;
    } else {
        const double length = std::hypot(*dx, *dy);
        *dx /= length;
        *dy /= length;
    }
}

// The offset from the segment to its counter-clockwise side.
Point sideOffset(Slope slope) {
    double dx = slope.dx / 256.0;
    double dy = slope.dy / 256.0;
    normalize(&dx, &dy);
    return {fixedFromDouble(-dy * kHalfWidth), fixedFromDouble(dx * kHalfWidth)};
}

}  // namespace

int32_t fixedFromDouble(double value) {
    // Adding 1.5 * 2^44 leaves the value rounded to 1/256 in the low bits.
    const double shifted = value + 26388279066624.0;
    uint64_t bits;
    std::memcpy(&bits, &shifted, sizeof bits);
    return static_cast<int32_t>(static_cast<uint32_t>(bits));
}

bool roundCappedOutline(int32_t x1, int32_t y1, int32_t x2, int32_t y2, SegmentOutline& outline) {
    const Point start{x1, y1};
    const Point end{x2, y2};
    if (start.x == end.x && start.y == end.y) return false;
    const Slope along = slopeBetween(start, end);
    const Slope back{-along.dx, -along.dy};
    const Point ccw = sideOffset(along);
    const Point cw{-ccw.x, -ccw.y};
    const Point startCcw = translated(start, ccw), startCw = translated(start, cw);
    const Point endCcw = translated(end, ccw), endCw = translated(end, cw);

    outline.count = 0;
    Contour ccwSide(-1);  // the counter-clockwise side, then the cap at the end
    ccwSide.add(startCcw);
    ccwSide.add(endCcw);
    ccwSide.addFan(along, back, end);
    ccwSide.add(endCw);
    ccwSide.emitInto(outline);

    Contour startCap(-1);
    startCap.add(startCw);
    startCap.addFan(back, along, start);
    startCap.add(startCcw);
    startCap.emitInto(outline);

    Contour cwSide(1);
    cwSide.add(startCw);
    cwSide.add(endCw);
    cwSide.emitInto(outline);
    return true;
}
