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

void carry(QuoRem& value, int64_t dy) {
    if (value.rem < 0) {
        --value.quo;
        value.rem += dy;
    } else if (value.rem >= dy) {
        ++value.quo;
        value.rem -= dy;
    }
}

// Set up field by field as edges are added (no initializers: a scan's edge
// table is not cleared first).
struct Edge {
    Edge* next;
    Edge* prev;
    int ytop;
    int heightLeft;  // sample rows still to scan
    int dir;
    int cell;        // x rounded to the grid
    QuoRem x;        // on the current sample row
    QuoRem dxdy;     // per sample row
    QuoRem dxdyFull; // per pixel row
    int64_t dy;      // 0 for vertical edges
    int64_t halfDy;  // dy / 2, where x rounds up to the next cell
};

void advance(Edge* edge, const QuoRem& by) {
    if (edge->dy == 0) return;
    edge->x.quo += by.quo;
    edge->x.rem += by.rem;
    carry(edge->x, edge->dy);
    edge->cell = edge->x.quo + (edge->x.rem >= edge->halfDy);
}

// Coverage changes a polygon's edges make in one pixel: the area left of
// the edges and the height they cover, both signed.
struct Cell {
    int16_t uncoveredArea = 0;
    int16_t coveredHeight = 0;
};

void addTo(int16_t& field, int value) { field = static_cast<int16_t>(field + value); }

Edge* mergeSortedEdges(Edge* headA, Edge* headB) {
    Edge *head, **next, *prev = headA->prev;
    next = &head;
    if (headA->cell <= headB->cell) {
        head = headA;
    } else {
        head = headB;
        headB->prev = prev;
        goto startWithB;
    }
    do {
        {
            const int32_t x = headB->cell;
            while (headA != nullptr && headA->cell <= x) {
                prev = headA;
                next = &headA->next;
                headA = headA->next;
            }
            headB->prev = prev;
            *next = headB;
            if (headA == nullptr) return head;
        }
    startWithB:
        const int32_t x = headA->cell;
        while (headB != nullptr && headB->cell <= x) {
            prev = headB;
            next = &headB->next;
            headB = headB->next;
        }
        headA->prev = prev;
        *next = headA;
        if (headB == nullptr) return head;
    } while (true);
}

// Sorts the first 2^(level+1) edges of `list` into *headOut (a stable merge
// sort); answers the rest.
Edge* sortEdges(Edge* list, unsigned level, Edge** headOut) {
    Edge* other = list->next;
    if (other == nullptr) {
        *headOut = list;
        return nullptr;
    }
    Edge* remaining = other->next;
    if (list->cell <= other->cell) {
        *headOut = list;
        other->next = nullptr;
    } else {
        *headOut = other;
        other->prev = list->prev;
        other->next = list;
        list->prev = other;
        list->next = nullptr;
    }
    for (unsigned i = 0; i < level && remaining; ++i) {
        remaining = sortEdges(remaining, i, &other);
        *headOut = mergeSortedEdges(*headOut, other);
    }
    return remaining;
}

class Scan {
public:
    Scan(const SegmentOutline& outline, CoverageMask& mask);
    bool run();

private:
    void addEdge(const OutlineEdge& input);
    int fillBuckets(Edge* edge, int y, Edge** rowBuckets);
    void mergeIntoActive(Edge* edges);
    bool canDoFullRow();
    void subRow();
    void fullRow();
    void remove(Edge* edge, int rows);
    void stepEdges(int rows);
    void addSubspan(int x1, int x2);
    void renderEdge(Edge* edge, int sign);
    void blit(int y, int rows);
    Cell& cellAt(int x);

    const SegmentOutline& outline_;
    CoverageMask& mask_;
    Edge edges_[SegmentOutline::kMaxEdges];
    int edgeCount_ = 0;
    std::vector<Edge*>& buckets_;  // edges by the pixel row they start in
    int xmin_ = 0, xmax_ = 0, ymin_ = 0, ymax_ = 0;  // pixels
    Edge head_, tail_;
    int minHeight_ = 0;
    int isVertical_ = 1;
    std::vector<Cell>& cells_;
    int cellBase_ = 0;
    Cell outside_;
    bool cellsInRange_ = true;
};

// Kept from scan to scan, so that scanning allocates nothing once warm.
std::vector<Edge*>& bucketStore() {
    thread_local std::vector<Edge*> buckets;
    return buckets;
}

std::vector<Cell>& cellStore() {
    thread_local std::vector<Cell> cells;
    return cells;
}

Scan::Scan(const SegmentOutline& outline, CoverageMask& mask)
    : outline_(outline), mask_(mask), buckets_(bucketStore()), cells_(cellStore()) {
    int32_t minX = INT32_MAX, maxX = INT32_MIN, minY = INT32_MAX, maxY = INT32_MIN;
    for (int i = 0; i < outline.count; ++i) {
        const OutlineEdge& e = outline.edges[i];
        minX = std::min({minX, e.topX, e.bottomX});
        maxX = std::max({maxX, e.topX, e.bottomX});
        minY = std::min(minY, e.topY);
        maxY = std::max(maxY, e.bottomY);
    }
    xmin_ = minX >> 8;
    xmax_ = (maxX + 255) >> 8;
    ymin_ = minY >> 8;
    ymax_ = (maxY + 255) >> 8;
    head_ = Edge{};  // heights and cells that never end a run
    head_.heightLeft = INT_MAX;
    head_.cell = INT_MIN;
    head_.next = &tail_;
    tail_ = Edge{};
    tail_.prev = &head_;
    tail_.cell = INT_MAX;
    tail_.heightLeft = INT_MAX;
}

Cell& Scan::cellAt(int x) {
    const int index = x - cellBase_;
    if (index < 0 || index >= static_cast<int>(cells_.size())) {
        cellsInRange_ = false;
        return outside_;
    }
    return cells_[index];
}

void Scan::addEdge(const OutlineEdge& input) {
    const auto toGridY = [](int32_t y) {
        return static_cast<int>((static_cast<long long>(kGridY) * y + (1 << (kInputBits - 1))) >>
                                kInputBits);
    };
    const int top = ymin_ * kGridY, bottom = ymax_ * kGridY;
    const int ytop = std::max(toGridY(input.topY), top);
    const int ybot = std::min(toGridY(input.bottomY), bottom);
    if (ybot <= ytop) return;
    Edge* e = &edges_[edgeCount_++];
    e->ytop = ytop;
    e->heightLeft = ybot - ytop;
    e->dir = input.dir;
    e->dxdy = e->dxdyFull = {0, 0};
    e->dy = e->halfDy = 0;
    if (input.bottomX == input.topX) {
        e->cell = input.topX;
        e->x = {input.topX, 0};
    } else {
        const int64_t ex = static_cast<int64_t>(input.bottomX - input.topX) * kGridX;
        const int64_t ey =
            static_cast<int64_t>(input.bottomY - input.topY) * kGridY * (2 << kInputBits);
        e->dxdy = {static_cast<int32_t>(ex * (2 << kInputBits) / ey), ex * (2 << kInputBits) % ey};
        int64_t t = static_cast<int64_t>(2 * ytop + 1) << kInputBits;
        t -= static_cast<int64_t>(input.topY) * kGridY * 2;
        t *= ex;
        e->x = {static_cast<int32_t>(t / ey), t % ey};
        e->x.quo += input.topX;
        carry(e->x, ey);
        if (e->heightLeft >= kGridY) {
            t = ex * (2 * kGridY << kInputBits);
            e->dxdyFull = {static_cast<int32_t>(t / ey), t % ey};
        }
        e->dy = ey;
        e->halfDy = ey / 2;
        e->cell = e->x.quo + (e->x.rem >= e->halfDy);
    }
    Edge*& bucket = buckets_[(ytop - top) / kGridY];
    e->next = bucket;
    bucket = e;
}

int Scan::fillBuckets(Edge* edge, int y, Edge** rowBuckets) {
    int maxSuby = 0;
    while (edge) {
        Edge* next = edge->next;
        const int suby = edge->ytop - y;
        if (rowBuckets[suby]) rowBuckets[suby]->prev = edge;
        edge->next = rowBuckets[suby];
        edge->prev = nullptr;
        rowBuckets[suby] = edge;
        minHeight_ = std::min(minHeight_, edge->heightLeft);
        isVertical_ &= edge->dy == 0;
        edge = next;
        maxSuby = std::max(maxSuby, suby);
    }
    return maxSuby;
}

void Scan::mergeIntoActive(Edge* edges) {
    sortEdges(edges, UINT_MAX, &edges);
    head_.next = mergeSortedEdges(head_.next, edges);
}

bool Scan::canDoFullRow() {
    if (minHeight_ <= 0) {
        int minHeight = INT_MAX;
        int isVertical = 1;
        for (const Edge* e = head_.next; e != nullptr; e = e->next) {
            minHeight = std::min(minHeight, e->heightLeft);
            isVertical &= e->dy == 0;
        }
        isVertical_ = isVertical;
        minHeight_ = minHeight;
    }
    if (minHeight_ < kGridY) return false;
    int previousCell = INT_MIN;
    for (const Edge* e = head_.next; e != &tail_; e = e->next) {
        int cell = e->cell;
        if (e->dy) {
            QuoRem x = e->x;
            x.quo += e->dxdyFull.quo;
            x.rem += e->dxdyFull.rem;
            carry(x, e->dy);
            cell = x.quo + (x.rem >= e->halfDy);
        }
        if (cell < previousCell) return false;
        previousCell = cell;
    }
    return true;
}

void Scan::addSubspan(int x1, int x2) {
    if (x1 == x2) return;
    const int ix1 = x1 >> 8, fx1 = x1 & 255;
    const int ix2 = x2 >> 8, fx2 = x2 & 255;
    if (ix1 != ix2) {
        Cell& first = cellAt(ix1);
        addTo(first.uncoveredArea, 2 * fx1);
        addTo(first.coveredHeight, 1);
        Cell& last = cellAt(ix2);
        addTo(last.uncoveredArea, -2 * fx2);
        addTo(last.coveredHeight, -1);
    } else {
        addTo(cellAt(ix1).uncoveredArea, 2 * (fx1 - fx2));
    }
}

void Scan::subRow() {
    Edge* edge = head_.next;
    int xstart = INT_MIN, previousCell = INT_MIN;
    int winding = 0;
    while (&tail_ != edge) {
        Edge* next = edge->next;
        const int xend = edge->cell;
        if (--edge->heightLeft) {
            advance(edge, edge->dxdy);
            if (edge->cell < previousCell) {
                // Moves the edge back to its place in x order.
                Edge* pos = edge->prev;
                pos->next = next;
                next->prev = pos;
                do {
                    pos = pos->prev;
                } while (edge->cell < pos->cell);
                pos->next->prev = edge;
                edge->next = pos->next;
                edge->prev = pos;
                pos->next = edge;
            } else {
                previousCell = edge->cell;
            }
            minHeight_ = -1;
        } else {
            edge->prev->next = next;
            next->prev = edge->prev;
        }
        winding += edge->dir;
        if (winding == 0) {
            if (next->cell != xend) {
                addSubspan(xstart, xend);
                xstart = INT_MIN;
            }
        } else if (xstart == INT_MIN) {
            xstart = xend;
        }
        edge = next;
    }
}

void Scan::remove(Edge* edge, int rows) {
    edge->heightLeft -= rows;
    if (edge->heightLeft == 0) {
        edge->prev->next = edge->next;
        edge->next->prev = edge->prev;
        minHeight_ = -1;
    }
}

void Scan::fullRow() {
    Edge* left = head_.next;
    while (&tail_ != left) {
        remove(left, kGridY);
        int winding = left->dir;
        Edge* right = left->next;
        do {
            remove(right, kGridY);
            winding += right->dir;
            if (winding == 0 && right->next->cell != right->cell) break;
            advance(right, right->dxdyFull);
            right = right->next;
        } while (true);
        renderEdge(left, +1);
        renderEdge(right, -1);
        left = right->next;
    }
}

void Scan::stepEdges(int rows) {
    for (Edge* edge = head_.next; edge != &tail_; edge = edge->next) remove(edge, rows * kGridY);
}

// The exact area an edge covers in each pixel of the row it crosses.
void Scan::renderEdge(Edge* edge, int sign) {
    QuoRem x1 = edge->x;
    advance(edge, edge->dxdyFull);
    QuoRem x2 = edge->x;
    if (edge->dy) {
        // From the sample rows' centres back to the pixel row's edges.
        for (QuoRem* x : {&x1, &x2}) {
            x->quo -= edge->dxdy.quo / 2;
            x->rem -= edge->dxdy.rem / 2;
            carry(*x, edge->dy);
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
    const int64_t dx = static_cast<int64_t>(x2.quo - x1.quo) * edge->dy + (x2.rem - x1.rem);
    int64_t t = (ix1 + 1) * kGridX * edge->dy;
    t -= x1.quo * edge->dy + x1.rem;
    t *= kGridY;
    QuoRem y{static_cast<int32_t>(t / dx), t % dx};
    Cell& first = cellAt(ix1);
    addTo(first.uncoveredArea, sign * y.quo * (kGridX + fx1));
    addTo(first.coveredHeight, sign * y.quo);
    int yLast = y.quo;
    if (ix1 + 1 < ix2) {
        const QuoRem dydxFull{static_cast<int32_t>(kGridY * kGridX * edge->dy / dx),
                              kGridY * kGridX * edge->dy % dx};
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

// Turns the row's cells into coverage bytes for `rows` mask rows from y.
void Scan::blit(int y, int rows) {
    int16_t cover = 0;
    int x = cellBase_;
    for (; x < xmin_; ++x) addTo(cover, cells_[x - cellBase_].coveredHeight);
    cover = static_cast<int16_t>(cover * kGridX * 2);
    uint8_t* row = mask_.alpha.data() + static_cast<size_t>(y - mask_.top) * mask_.width;
    for (; x < xmax_; ++x) {
        const Cell& cell = cells_[x - cellBase_];
        addTo(cover, cell.coveredHeight * kGridX * 2);
        const int area = static_cast<int16_t>(cover - cell.uncoveredArea);
        row[x - xmin_] = static_cast<uint8_t>((area + (area << 4) + 256) >> 9);
    }
    for (int r = 1; r < rows; ++r) std::copy(row, row + mask_.width, row + r * mask_.width);
}

bool Scan::run() {
    if (outline_.count == 0 || outline_.count > SegmentOutline::kMaxEdges) return false;
    const int height = ymax_ - ymin_;
    mask_.left = xmin_;
    mask_.top = ymin_;
    mask_.width = xmax_ - xmin_;
    mask_.height = height;
    mask_.alpha.assign(static_cast<size_t>(mask_.width) * height, 0);
    if (mask_.width <= 0 || height <= 0) return true;
    buckets_.assign(height, nullptr);
    cellBase_ = xmin_ - kCellMargin;
    cells_.assign(mask_.width + 2 * kCellMargin + 1, Cell{});
    for (int i = 0; i < outline_.count; ++i) addEdge(outline_.edges[i]);

    Edge* rowBuckets[kGridY] = {};
    for (int i = 0, j; i < height; i = j) {
        bool wholeRow = false;
        j = i + 1;
        if (fillBuckets(buckets_[i], (i + ymin_) * kGridY, rowBuckets) == 0) {
            if (rowBuckets[0]) {
                mergeIntoActive(rowBuckets[0]);
                rowBuckets[0] = nullptr;
            }
            if (head_.next == &tail_) {
                minHeight_ = INT_MAX;
                isVertical_ = 1;
                while (j < height && !buckets_[j]) ++j;
                continue;
            }
            wholeRow = canDoFullRow();
        }
        if (wholeRow) {
            fullRow();
            if (isVertical_) {
                while (j < height && buckets_[j] == nullptr && minHeight_ >= 2 * kGridY) {
                    minHeight_ -= kGridY;
                    ++j;
                }
                if (j != i + 1) stepEdges(j - (i + 1));
            }
        } else {
            for (int sub = 0; sub < kGridY; ++sub) {
                if (rowBuckets[sub]) {
                    mergeIntoActive(rowBuckets[sub]);
                    rowBuckets[sub] = nullptr;
                }
                subRow();
            }
        }
        if (!cellsInRange_) return false;
        blit(i + ymin_, j - i);
        std::fill(cells_.begin(), cells_.end(), Cell{});
        minHeight_ -= kGridY;
    }
    return true;
}

}  // namespace

bool scanCoverage(const SegmentOutline& outline, CoverageMask& mask) {
    Scan scan(outline, mask);
    return scan.run();
}
