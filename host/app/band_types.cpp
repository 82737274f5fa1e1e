#include "host/app/band_types.h"

#include <cctype>
#include <iterator>

namespace {

struct BandTypeName {
    int32_t code;
    const char* name;
};

// In the order of the editor's type list.
constexpr BandTypeName kBandTypes[] = {
    {0, "Low Shelf"}, {1, "High Shelf"}, {8, "Band"},      {3, "Low Pass"},   {4, "High Pass"},
    {5, "All Pass"},  {6, "Notch"},      {7, "Band Pass"}, {9, "Band (alt)"}, {2, "Band (alt 2)"},
};

constexpr int32_t kPeakingBand = 8;

// Lower-case letters and digits only: "Band (alt 2)" -> "bandalt2".
std::string foldName(const std::string& name) {
    std::string folded;
    for (unsigned char c : name)
        if (std::isalnum(c)) folded += static_cast<char>(std::tolower(c));
    return folded;
}

}  // namespace

const char* bandTypeName(int32_t code) {
    for (const BandTypeName& type : kBandTypes)
        if (type.code == code) return type.name;
    return "";
}

std::optional<int32_t> findBandType(const std::string& name) {
    std::string folded = foldName(name);
    if (folded == "peak" || folded == "bell") return kPeakingBand;
    for (const BandTypeName& type : kBandTypes)
        if (!folded.empty() && folded == foldName(type.name)) return type.code;
    return std::nullopt;
}

std::string bandTypeList() {
    std::string list;
    for (const BandTypeName& type : kBandTypes) {
        if (!list.empty()) list += ", ";
        list += type.name;
    }
    return list;
}
