#include "host/raster/segment_coverage.h"

#include <cstddef>
#include <vector>

#include "host/raster/column_segments.h"
#include "host/raster/coverage_scan.h"
#include "host/raster/segment_outline.h"

namespace {

// A segment up to whole-pixel moves: its first end within its pixel and the
// step to its second end, all in 24.8 fixed point.
struct Shape {
    int32_t fractionX, fractionY, dx, dy;
    bool operator==(const Shape&) const = default;
};

struct Entry {
    bool filled = false;
    bool scanned = false;  // false: the scan gave up on this shape
    bool used = false;     // drawn again since it was scanned or last passed over
    CoverageMask mask;     // relative to the first end's pixel
};

// A few curves of a wide graph: sets of four entries. A new shape replaces
// one that has not been drawn again lately, so curves repainted every frame
// stay while the spectra's shapes, seldom seen twice, pass through.
constexpr size_t kSets = 4096;
constexpr int kWays = 4;

struct alignas(64) Set {
    Shape shapes[kWays];  // together, so that a look-up reads one cache line
    Entry ways[kWays];
    int hand = 0;  // where the search for one to replace goes on
};

size_t setOf(const Shape& shape) {
    uint64_t h = static_cast<uint32_t>(shape.fractionX) |
                 uint64_t{static_cast<uint32_t>(shape.fractionY)} << 8;
    h = h * 0x9e3779b97f4a7c15ull ^ static_cast<uint32_t>(shape.dx);
    h = h * 0x9e3779b97f4a7c15ull ^ static_cast<uint32_t>(shape.dy);
    h *= 0x9e3779b97f4a7c15ull;
    return static_cast<size_t>(h >> 40) & (kSets - 1);
}

// Long steep segments are not kept: their masks would hold far more memory
// than the short ones a curve is mostly made of.
constexpr size_t kLargestKept = 512;

std::vector<Set>& rememberedSets() {
    thread_local std::vector<Set> sets(kSets);
    return sets;
}

// One not drawn again lately; those passed over lose their mark and become
// the next candidates.
Entry& replaceableEntry(Set& set) {
    while (set.ways[set.hand].used) {
        set.ways[set.hand].used = false;
        set.hand = (set.hand + 1) % kWays;
    }
    Entry& entry = set.ways[set.hand];
    set.hand = (set.hand + 1) % kWays;
    return entry;
}

Entry& entryFor(const Shape& shape) {
    Set& set = rememberedSets()[setOf(shape)];
    for (int way = 0; way < kWays; ++way) {
        if (set.shapes[way] == shape && set.ways[way].filled) {
            set.ways[way].used = true;
            return set.ways[way];
        }
    }
    Entry& entry = replaceableEntry(set);
    set.shapes[&entry - set.ways] = shape;
    SegmentOutline outline;
    entry.filled = true;
    entry.scanned = roundCappedOutline(shape.fractionX, shape.fractionY, shape.fractionX + shape.dx,
                                       shape.fractionY + shape.dy, outline) &&
                    scanCoverage(outline, entry.mask);
    return entry;
}

// A mask too large to keep, moved out of its entry: it serves its own call.
const CoverageMask& takenIfLarge(Entry& entry) {
    if (entry.mask.alpha.size() <= kLargestKept) return entry.mask;
    thread_local CoverageMask spare;
    std::swap(spare, entry.mask);
    entry.filled = false;
    std::vector<uint8_t>().swap(entry.mask.alpha);
    return spare;
}

}  // namespace

bool segmentCoverage(int32_t x1, int32_t y1, int32_t x2, int32_t y2, PlacedCoverage& coverage) {
    if (recallColumnSegment(x1, y1, x2, y2, coverage)) return true;
    const Shape shape{x1 & 255, y1 & 255, x2 - x1, y2 - y1};
    Entry& entry = entryFor(shape);
    if (!entry.scanned) return false;
    const CoverageMask& mask = takenIfLarge(entry);
    coverage.left = mask.left + (x1 >> 8);
    coverage.top = mask.top + (y1 >> 8);
    coverage.width = mask.width;
    coverage.height = mask.height;
    coverage.alpha = mask.alpha.data();
    keepColumnSegment(x1, y1, x2, y2, coverage);
    return true;
}

void forgetRememberedSegments() {
    for (Set& set : rememberedSets())
        for (Entry& entry : set.ways) entry.filled = entry.used = false;
    forgetColumnSegments();
}
