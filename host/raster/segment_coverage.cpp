#include "host/raster/segment_coverage.h"

#include <cstddef>
#include <vector>

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
    Shape shape{};
    CoverageMask mask;  // relative to the first end's pixel
};

// A few curves of a wide graph: sets of four entries, the oldest replaced.
constexpr size_t kSets = 4096;
constexpr int kWays = 4;

struct Set {
    Entry ways[kWays];
    int oldest = 0;
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

Entry& entryFor(const Shape& shape) {
    Set& set = rememberedSets()[setOf(shape)];
    for (Entry& entry : set.ways)
        if (entry.filled && entry.shape == shape) return entry;
    Entry& entry = set.ways[set.oldest];
    set.oldest = (set.oldest + 1) % kWays;
    SegmentOutline outline;
    entry.filled = true;
    entry.shape = shape;
    entry.scanned = roundCappedOutline(shape.fractionX, shape.fractionY, shape.fractionX + shape.dx,
                                       shape.fractionY + shape.dy, outline) &&
                    scanCoverage(outline, entry.mask);
    return entry;
}

void forgetIfLarge(Entry& entry) {
    if (entry.mask.alpha.size() <= kLargestKept) return;
    entry.filled = false;
    std::vector<uint8_t>().swap(entry.mask.alpha);
}

}  // namespace

bool segmentCoverage(int32_t x1, int32_t y1, int32_t x2, int32_t y2, CoverageMask& mask) {
    const Shape shape{x1 & 255, y1 & 255, x2 - x1, y2 - y1};
    Entry& entry = entryFor(shape);
    if (!entry.scanned) return false;
    mask.left = entry.mask.left + (x1 >> 8);
    mask.top = entry.mask.top + (y1 >> 8);
    mask.width = entry.mask.width;
    mask.height = entry.mask.height;
    mask.alpha.assign(entry.mask.alpha.begin(), entry.mask.alpha.end());
    forgetIfLarge(entry);
    return true;
}

void forgetRememberedSegments() {
    std::vector<Set>(kSets).swap(rememberedSets());
}
