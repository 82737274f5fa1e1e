#include "host/ui/ui_font.h"

#include <memory>
#include <mutex>
#include <vector>

struct KobalFont {
    LOGFONT description;
};

namespace {

// The raster library may read fonts from any thread that draws.
std::mutex fontLock;

std::vector<std::unique_ptr<KobalFont>>& createdFonts() {
    static std::vector<std::unique_ptr<KobalFont>> fonts;
    return fonts;
}

}  // namespace

bool describeUiFont(HFONT font, LOGFONT* description) {
    if (!font || !description) return false;
    std::lock_guard<std::mutex> guard(fontLock);
    for (const auto& created : createdFonts())
        if (created.get() == font) {
            *description = created->description;
            return true;
        }
    return false;
}

namespace kobal_layer {

HFONT CreateFontIndirect(const LOGFONT* font) {
    if (!font) return nullptr;
    auto created = std::make_unique<KobalFont>(KobalFont{*font});
    created->description.lfFaceName[LF_FACESIZE - 1] = '\0';
    std::lock_guard<std::mutex> guard(fontLock);
    createdFonts().push_back(std::move(created));
    return createdFonts().back().get();
}

}  // namespace kobal_layer
