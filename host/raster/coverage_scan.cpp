#include "host/raster/coverage_scan.h"

#include <algorithm>
#include <climits>

namespace {

constexpr int kGridX = 256;  // horizontal resolution: the 24.8 fixed point itself
constexpr int kGridY = 15;   // sample rows per pixel
constexpr int kInputBits = 8;
constexpr int kCellMargin = 2;

// A position on a sample row: whole grid units plus a remainder over the
// edge's height.
struct QuoRem {
    int32_t quo;
    int64_t rem;
};

// Brings the remainder back into 0..dy-1 (dy > 0), from at most one dy
// either side. Without branches: which way it goes is as good as random from
// one sample row to the next, and mispredicted jumps would cost more than
// the arithmetic.
void carry(QuoRem& value, int64_t dy) {
    const int64_t under = value.rem < 0;
    const int64_t over = value.rem >= dy;
    value.quo += static_cast<int32_t>(over - under);
    value.rem += (under - over) * dy;
}

struct Edge {
    int ytop, ybot;   // sample rows
    int dir;          // +1 where the outline runs down the edge, -1 up
    int heightLeft;   // sample rows still to scan
    int cell;         // x rounded to the grid
    QuoRem x;         // on the current sample row
    QuoRem dxdy;      // per sample row
    QuoRem dxdyFull;  // per pixel row
    int64_t dy;       // 0 for vertical edges
    int64_t halfDy;   // dy / 2: where x rounds up to the next cell
};

int cellOf(const QuoRem& x, const Edge& edge) { return x.quo + (x.rem >= edge.halfDy); }

void advance(Edge& edge, const QuoRem& by) {
    if (edge.dy == 0) return;
    edge.x.quo += by.quo;
    edge.x.rem += by.rem;
    carry(edge.x, edge.dy);
    edge.cell = cellOf(edge.x, edge);
}

// The cell an edge reaches one pixel row further down.
int cellAfterFullRow(const Edge& edge) {
    if (edge.dy == 0) return edge.cell;
    QuoRem x = edge.x;
    x.quo += edge.dxdyFull.quo;
    x.rem += edge.dxdyFull.rem;
    carry(x, edge.dy);
    return cellOf(x, edge);
}

int toGridY(int32_t y) {
    return static_cast<int>((static_cast<long long>(kGridY) * y + (1 << (kInputBits - 1))) >>
                            kInputBits);
}

// a / b and a % b, truncating as C++ does.
QuoRem divide(int64_t a, int64_t b) { return {static_cast<int32_t>(a / b), a % b}; }

// The edge on the sampling grid, with x at the centre of its first sample
// row; false when it spans no sample row.
bool gridEdge(const OutlineEdge& input, Edge& e) {
    e.ytop = toGridY(input.topY);
    e.ybot = toGridY(input.bottomY);
    if (e.ybot <= e.ytop) return false;
    e.heightLeft = e.ybot - e.ytop;
    e.dir = input.dir;
    e.dxdy = {0, 0};  // each set on its own: copying one just written to the other stalls
    e.dxdyFull = {0, 0};
    e.dy = e.halfDy = 0;
    if (input.bottomX == input.topX) {
        e.cell = input.topX;
        e.x = {input.topX, 0};
        return true;
    }
    const int64_t ex = static_cast<int64_t>(input.bottomX - input.topX) * kGridX;
    const int64_t ey =
        static_cast<int64_t>(input.bottomY - input.topY) * kGridY * (2 << kInputBits);
    e.dxdy = divide(ex * (2 << kInputBits), ey);
    int64_t t = static_cast<int64_t>(2 * e.ytop + 1) << kInputBits;
    t -= static_cast<int64_t>(input.topY) * kGridY * 2;
    t *= ex;
    e.x = divide(t, ey);
    e.x.quo += input.topX;
    carry(e.x, ey);
    if (e.heightLeft >= kGridY) e.dxdyFull = divide(ex * (2 * kGridY << kInputBits), ey);
    e.dy = ey;
    e.halfDy = ey / 2;
    e.cell = cellOf(e.x, e);
    return true;
}

// Coverage changes the outline makes in one pixel: the area left of the
// boundary and the height it covers, both signed.
struct Cell {
    int16_t uncoveredArea = 0;
    int16_t coveredHeight = 0;
};

void addTo(int16_t& field, int value) { field = static_cast<int16_t>(field + value); }

// Orders edges by cell; the table is nearly in order already from the last
// sample row, so insertion costs little.
inline void sortByCell(Edge** edges, int count) {
    for (int i = 1; i < count; ++i) {
        Edge* edge = edges[i];
        int j = i;
        for (; j > 0 && edges[j - 1]->cell > edge->cell; --j) edges[j] = edges[j - 1];
        edges[j] = edge;
    }
}

// Scans the outline's edges down the rows the way Cairo's converter does,
// keeping the few edges that cross the current sample row in a small table.
class EdgeScan {
public:
    EdgeScan(const SegmentOutline& outline, CoverageMask& mask)
        : outline_(outline), mask_(mask), cells_(cellStore()) {}
    bool run();

private:
    enum class RowWay { whole, sampled, unknown };
    static std::vector<Cell>& cellStore() {
        thread_local std::vector<Cell> cells;  // kept, so that scanning allocates nothing
        return cells;
    }
    void setUp();
    void activateEdgesStartingAt(int y) {
        if (nextTop_ == y) activateEdgesFrom(y);
    }
    void activateEdgesFrom(int y);
    RowWay wayThrough(int rowTop);
    void wholeRow();
    void sampledRow(int rowTop);
    void sampleBetweenTwoEdges();
    void sampleAnyEdges();
    void dropFinishedEdges();
    void addSpan(int x1, int x2);
    void renderEdge(Edge& edge, int sign);
    void blit(int row);
    Cell& cellAt(int x) {
        const unsigned index = static_cast<unsigned>(x - cellBase_);
        if (index >= cellCount_) {
            cellsInRange_ = false;
            return outside_;
        }
        return cellData_[index];
    }

    const SegmentOutline& outline_;
    CoverageMask& mask_;
    std::vector<Cell>& cells_;
    Edge edges_[SegmentOutline::kMaxEdges];
    Edge* byTop_[SegmentOutline::kMaxEdges];  // the edges by first sample row
    int edgeCount_ = 0;
    int nextEdge_ = 0;       // the first of those not yet reached
    int nextTop_ = INT_MAX;  // and its first sample row
    Edge* active_[SegmentOutline::kMaxEdges];
    int activeCount_ = 0;
    Cell* cellData_ = nullptr;
    unsigned cellCount_ = 0;
    int cellBase_ = 0;
    Cell outside_;
    bool cellsInRange_ = true;
};

void EdgeScan::setUp() {
    int32_t minX = INT32_MAX, maxX = INT32_MIN, minY = INT32_MAX, maxY = INT32_MIN;
    for (int i = 0; i < outline_.count; ++i) {
        const OutlineEdge& input = outline_.edges[i];
        minX = std::min({minX, input.topX, input.bottomX});
        maxX = std::max({maxX, input.topX, input.bottomX});
        minY = std::min(minY, input.topY);
        maxY = std::max(maxY, input.bottomY);
        if (gridEdge(input, edges_[edgeCount_])) {
            Edge* edge = &edges_[edgeCount_];
            int j = edgeCount_++;
            for (; j > 0 && byTop_[j - 1]->ytop > edge->ytop; --j) byTop_[j] = byTop_[j - 1];
            byTop_[j] = edge;
        }
    }
    nextTop_ = edgeCount_ > 0 ? byTop_[0]->ytop : INT_MAX;
    mask_.left = minX >> 8;
    mask_.top = minY >> 8;
    mask_.width = ((maxX + 255) >> 8) - mask_.left;
    mask_.height = ((maxY + 255) >> 8) - mask_.top;
    mask_.alpha.assign(static_cast<size_t>(mask_.width) * mask_.height, 0);
    cellBase_ = mask_.left - kCellMargin;
    cells_.assign(mask_.width + 2 * kCellMargin + 1, Cell{});
    cellData_ = cells_.data();
    cellCount_ = static_cast<unsigned>(cells_.size());
}

void EdgeScan::activateEdgesFrom(int y) {
    int count = activeCount_, next = nextEdge_;
    do {
        active_[count++] = byTop_[next++];
    } while (next < edgeCount_ && byTop_[next]->ytop == y);
    activeCount_ = count;
    nextEdge_ = next;
    nextTop_ = next < edgeCount_ ? byTop_[next]->ytop : INT_MAX;
}

void EdgeScan::dropFinishedEdges() {
    activeCount_ =
        static_cast<int>(std::remove_if(active_, active_ + activeCount_,
                                        [](const Edge* e) { return e->heightLeft == 0; }) -
                         active_);
}

// A pixel row is taken whole when no edge starts or ends inside it and none
// crosses another; sampled otherwise. Unknown when two edges start the row on
// the same cell: the order Cairo's edge list then holds them in, which its
// choice and its pairing of edges depend on, comes from its history.
EdgeScan::RowWay EdgeScan::wayThrough(int rowTop) {
    if (nextTop_ < rowTop + kGridY) return RowWay::sampled;
    bool allVertical = true;
    for (int i = 0; i < activeCount_; ++i) {
        if (active_[i]->heightLeft < kGridY) return RowWay::sampled;
        allVertical &= active_[i]->dy == 0;
    }
    sortByCell(active_, activeCount_);
    for (int i = 1; i < activeCount_; ++i)
        if (active_[i]->cell == active_[i - 1]->cell) return RowWay::unknown;
    if (allVertical) return RowWay::unknown;  // Cairo then steps several rows at once
    int winding = 0;
    for (int i = 0; i < activeCount_; ++i) winding += active_[i]->dir;
    if (winding != 0) return RowWay::unknown;  // not a closed outline
    for (int i = 1; i < activeCount_; ++i)
        if (cellAfterFullRow(*active_[i]) < cellAfterFullRow(*active_[i - 1]))
            return RowWay::sampled;
    return RowWay::whole;
}

// Each boundary edge adds its exact area in the pixels it crosses; edges
// inside the covered part only move on.
void EdgeScan::wholeRow() {
    for (int i = 0; i < activeCount_;) {
        Edge& left = *active_[i];
        int winding = left.dir;
        int j = i + 1;
        for (; (winding += active_[j]->dir) != 0; ++j) advance(*active_[j], active_[j]->dxdyFull);
        renderEdge(left, +1);
        renderEdge(*active_[j], -1);
        i = j + 1;
    }
    for (int i = 0; i < activeCount_; ++i) active_[i]->heightLeft -= kGridY;
    dropFinishedEdges();
}

// Fifteen sample rows, each covered where the winding number is not zero.
void EdgeScan::sampledRow(int rowTop) {
    for (int y = rowTop; y < rowTop + kGridY; ++y) {
        activateEdgesStartingAt(y);
        if (activeCount_ == 2 && active_[0]->dir + active_[1]->dir == 0)
            sampleBetweenTwoEdges();
        else
            sampleAnyEdges();
    }
}

// The usual sample row of a convex outline: one span between its two edges.
void EdgeScan::sampleBetweenTwoEdges() {
    Edge* a = active_[0];
    Edge* b = active_[1];
    addSpan(std::min(a->cell, b->cell), std::max(a->cell, b->cell));
    int kept = 0;
    for (Edge* e : {a, b}) {
        if (--e->heightLeft != 0) {
            advance(*e, e->dxdy);
            active_[kept++] = e;
        }
    }
    activeCount_ = kept;
}

void EdgeScan::sampleAnyEdges() {
    Edge** active = active_;
    const int count = activeCount_;
    sortByCell(active, count);
    int winding = 0, start = 0, kept = 0;
    for (int i = 0; i < count; ++i) {
        Edge* e = active[i];
        const int cell = e->cell;
        if (winding == 0) start = cell;
        winding += e->dir;
        if (winding == 0) addSpan(start, cell);
        if (--e->heightLeft != 0) {
            advance(*e, e->dxdy);
            active[kept++] = e;
        }
    }
    activeCount_ = kept;
}

// The span's start adds to its pixel, its end takes away from its own; a
// span within one pixel nets its width there, an empty one nothing, so no
// case needs a jump of its own.
void EdgeScan::addSpan(int x1, int x2) {
    Cell& first = cellAt(x1 >> 8);
    addTo(first.uncoveredArea, 2 * (x1 & 255));
    addTo(first.coveredHeight, 1);
    Cell& last = cellAt(x2 >> 8);
    addTo(last.uncoveredArea, -2 * (x2 & 255));
    addTo(last.coveredHeight, -1);
}

// The exact area an edge covers in each pixel of the row it crosses.
void EdgeScan::renderEdge(Edge& edge, int sign) {
    QuoRem x1 = edge.x;
    advance(edge, edge.dxdyFull);
    QuoRem x2 = edge.x;
    if (edge.dy) {
        // From the sample rows' centres back to the pixel row's edges.
        for (QuoRem* x : {&x1, &x2}) {
            x->quo -= edge.dxdy.quo / 2;
            x->rem -= edge.dxdy.rem / 2;
            carry(*x, edge.dy);
        }
    }
    int ix1 = x1.quo >> 8, fx1 = x1.quo & 255;
    int ix2 = x2.quo >> 8, fx2 = x2.quo & 255;
    if (ix1 == ix2) {
        Cell& cell = cellAt(ix1);
        addTo(cell.coveredHeight, sign * kGridY);
        addTo(cell.uncoveredArea, sign * (fx1 + fx2) * kGridY);
        return;
    }
    if (ix2 < ix1) {
        std::swap(ix1, ix2);
        std::swap(fx1, fx2);
        std::swap(x1, x2);
    }
    const int64_t dx = static_cast<int64_t>(x2.quo - x1.quo) * edge.dy + (x2.rem - x1.rem);
    int64_t t = (ix1 + 1) * kGridX * edge.dy;
    t -= x1.quo * edge.dy + x1.rem;
    t *= kGridY;
    QuoRem y = divide(t, dx);
    Cell& first = cellAt(ix1);
    addTo(first.uncoveredArea, sign * y.quo * (kGridX + fx1));
    addTo(first.coveredHeight, sign * y.quo);
    int yLast = y.quo;
    if (ix1 + 1 < ix2) {
        const QuoRem dydxFull = divide(kGridY * kGridX * edge.dy, dx);
        for (int ix = ix1 + 1; ix != ix2; ++ix) {
            y.quo += dydxFull.quo;
            y.rem += dydxFull.rem;
            if (y.rem >= dx) {
                ++y.quo;
                y.rem -= dx;
            }
            Cell& cell = cellAt(ix);
            addTo(cell.uncoveredArea, sign * (y.quo - yLast) * kGridX);
            addTo(cell.coveredHeight, sign * (y.quo - yLast));
            yLast = y.quo;
        }
    }
    Cell& last = cellAt(ix2);
    addTo(last.uncoveredArea, sign * (kGridY - yLast) * fx2);
    addTo(last.coveredHeight, sign * (kGridY - yLast));
}

// Turns the row's cells into coverage bytes and clears them.
void EdgeScan::blit(int row) {
    int16_t cover = 0;
    for (int x = cellBase_; x < mask_.left; ++x)
        addTo(cover, cellData_[x - cellBase_].coveredHeight);
    cover = static_cast<int16_t>(cover * kGridX * 2);
    uint8_t* out = mask_.alpha.data() + static_cast<size_t>(row - mask_.top) * mask_.width;
    for (int x = mask_.left; x < mask_.left + mask_.width; ++x) {
        const Cell& cell = cellData_[x - cellBase_];
        addTo(cover, cell.coveredHeight * kGridX * 2);
        const int area = static_cast<int16_t>(cover - cell.uncoveredArea);
        out[x - mask_.left] = static_cast<uint8_t>((area + (area << 4) + 256) >> 9);
    }
    std::fill(cellData_, cellData_ + cellCount_, Cell{});
}

bool EdgeScan::run() {
    if (outline_.count == 0) return false;
    setUp();
    if (edgeCount_ == 0) return true;
    const int firstRow = nextTop_ >= 0 ? nextTop_ / kGridY : -((kGridY - 1 - nextTop_) / kGridY);
    for (int row = firstRow; nextEdge_ < edgeCount_ || activeCount_ > 0; ++row) {
        const int rowTop = row * kGridY;
        if (row >= mask_.top + mask_.height) return false;
        activateEdgesStartingAt(rowTop);
        switch (wayThrough(rowTop)) {
            case RowWay::whole:
                wholeRow();
                break;
            case RowWay::sampled:
                sampledRow(rowTop);
                break;
            case RowWay::unknown:
                return false;
        }
        if (!cellsInRange_) return false;
        blit(row);
    }
    return true;
}

}  // namespace

bool scanCoverage(const SegmentOutline& outline, CoverageMask& mask) {
    EdgeScan scan(outline, mask);
    return scan.run();
}
