#include "bridge/editor_places.h"

#include <cstddef>
#include <vector>

namespace bridge {
namespace {

// Far enough apart for any editor size a screen can show.
constexpr int kPlaceSpacing = 8192;

std::vector<bool>& placesInUse() {
    static std::vector<bool> inUse;
    return inUse;
}

int firstFreePlace() {
    std::vector<bool>& inUse = placesInUse();
    for (size_t i = 0; i < inUse.size(); ++i)
        if (!inUse[i]) return static_cast<int>(i);
    inUse.push_back(false);
    return static_cast<int>(inUse.size() - 1);
}

}  // namespace

RECT claimEditorPlace(int width, int height, int& place) {
    place = firstFreePlace();
    placesInUse()[static_cast<size_t>(place)] = true;
    const int left = place * kPlaceSpacing;
    return RECT{left, 0, left + width, height};
}

void releaseEditorPlace(int place) {
    std::vector<bool>& inUse = placesInUse();
    if (place >= 0 && static_cast<size_t>(place) < inUse.size())
        inUse[static_cast<size_t>(place)] = false;
}

}  // namespace bridge
