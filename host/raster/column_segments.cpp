#include "host/raster/column_segments.h"

#include <cstring>
#include <vector>

#include "host/raster/segment_coverage.h"

namespace {

// One segment in one cache line: its ends, its mask's place relative to the
// first end's pixel, and the mask's bytes.
struct Slot {
    static constexpr int kLargestMask = 42;
    int32_t x1, y1, x2, y2;
    bool filled = false;
    bool used = false;  // drawn again since it was kept or last passed over
    int8_t left, top;
    uint8_t width, height;
    uint8_t alpha[kLargestMask];
};

// The four segments of a column: a graph draws up to four curves.
struct alignas(64) Column {
    static constexpr int kWays = 4;
    Slot ways[kWays];
    int hand = 0;
};

// Columns as wide as a screen.
constexpr int kLargestColumn = 8192;

std::vector<Column>& columns() {
    thread_local std::vector<Column> table;
    return table;
}

Column* columnOf(int32_t x1) {
    const int32_t column = x1 >> 8;
    if (column < 0 || column >= kLargestColumn) return nullptr;
    std::vector<Column>& table = columns();
    if (static_cast<size_t>(column) >= table.size()) table.resize(column + 1);
    return &table[column];
}

bool holds(const Slot& slot, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    return slot.filled && slot.x1 == x1 && slot.y1 == y1 && slot.x2 == x2 && slot.y2 == y2;
}

// One not drawn again lately.
Slot& replaceableSlot(Column& column) {
    while (column.ways[column.hand].used) {
        column.ways[column.hand].used = false;
        column.hand = (column.hand + 1) % Column::kWays;
    }
    Slot& slot = column.ways[column.hand];
    column.hand = (column.hand + 1) % Column::kWays;
    return slot;
}

bool fitsSlot(int relativeLeft, int relativeTop, const PlacedCoverage& coverage) {
    return coverage.width * coverage.height <= Slot::kLargestMask && relativeLeft >= INT8_MIN &&
           relativeLeft <= INT8_MAX && relativeTop >= INT8_MIN && relativeTop <= INT8_MAX;
}

}  // namespace

bool recallColumnSegment(int32_t x1, int32_t y1, int32_t x2, int32_t y2,
                         PlacedCoverage& coverage) {
    Column* column = columnOf(x1);
    if (column == nullptr) return false;
    for (Slot& slot : column->ways) {
        if (!holds(slot, x1, y1, x2, y2)) continue;
        slot.used = true;
        coverage.left = slot.left + (x1 >> 8);
        coverage.top = slot.top + (y1 >> 8);
        coverage.width = slot.width;
        coverage.height = slot.height;
        coverage.alpha = slot.alpha;
        return true;
    }
    return false;
}

void keepColumnSegment(int32_t x1, int32_t y1, int32_t x2, int32_t y2,
                       const PlacedCoverage& coverage) {
    const int relativeLeft = coverage.left - (x1 >> 8);
    const int relativeTop = coverage.top - (y1 >> 8);
    if (!fitsSlot(relativeLeft, relativeTop, coverage)) return;
    Column* column = columnOf(x1);
    if (column == nullptr) return;
    Slot& slot = replaceableSlot(*column);
    slot = {x1, y1, x2, y2, true, false, static_cast<int8_t>(relativeLeft),
            static_cast<int8_t>(relativeTop), static_cast<uint8_t>(coverage.width),
            static_cast<uint8_t>(coverage.height), {}};
    std::memcpy(slot.alpha, coverage.alpha, static_cast<size_t>(coverage.width) * coverage.height);
}

void forgetColumnSegments() {
    for (Column& column : columns())
        for (Slot& slot : column.ways) slot.filled = slot.used = false;
}
