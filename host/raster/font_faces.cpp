#include "host/raster/font_faces.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>

#include <map>
#include <mutex>
#include <string>
#include <strings.h>
#include <tuple>

namespace {

struct FaceAlias {
    const char* requested;
    const char* served;
};

constexpr FaceAlias kFaceAliases[] = {
    {"Arial", "Liberation Sans"},
    {"Helvetica", "Liberation Sans"},
    {"MS Sans Serif", "Liberation Sans"},
    {"Times New Roman", "Liberation Serif"},
    {"Courier New", "Liberation Mono"},
};

constexpr const char* kDefaultFamily = "Liberation Sans";

std::string servedFamily(const char* family) {
    if (family == nullptr || family[0] == '\0') return kDefaultFamily;
    for (const FaceAlias& alias : kFaceAliases)
        if (strcasecmp(alias.requested, family) == 0) return alias.served;
    return family;
}

cairo_font_face_t* matchFace(const std::string& family, int weight, bool italic) {
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(pattern, FC_WEIGHT, weight >= 600 ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    FcPatternDestroy(pattern);
    if (match == nullptr)
        return cairo_toy_font_face_create(family.c_str(), italic ? CAIRO_FONT_SLANT_ITALIC
                                                                 : CAIRO_FONT_SLANT_NORMAL,
                                          weight >= 600 ? CAIRO_FONT_WEIGHT_BOLD
                                                        : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_font_face_t* face = cairo_ft_font_face_create_for_pattern(match);
    FcPatternDestroy(match);  // the face holds its own reference
    return face;
}

}  // namespace

cairo_font_face_t* uiFontFace(const char* family, int weight, bool italic) {
    static std::mutex lock;
    static std::map<std::tuple<std::string, bool, bool>, cairo_font_face_t*> faces;
    const std::string served = servedFamily(family);
    const bool bold = weight >= 600;
    std::lock_guard<std::mutex> guard(lock);
    cairo_font_face_t*& face = faces[{served, bold, italic}];
    if (face == nullptr) face = matchFace(served, weight, italic);
    return face;
}
