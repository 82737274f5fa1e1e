#include "host/raster/text_layout.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int kDefaultCellHeight = 12;

int sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead & 0xe0) == 0xc0) return 2;
    if ((lead & 0xf0) == 0xe0) return 3;
    if ((lead & 0xf8) == 0xf0) return 4;
    return 0;
}

bool isValidUtf8(const std::string& text) {
    for (size_t i = 0; i < text.size();) {
        const int length = sequenceLength(static_cast<unsigned char>(text[i]));
        if (length == 0 || i + length > text.size()) return false;
        for (int k = 1; k < length; ++k)
            if ((static_cast<unsigned char>(text[i + k]) & 0xc0) != 0x80) return false;
        i += length;
    }
    return true;
}

std::string latin1ToUtf8(const std::string& text) {
    std::string converted;
    for (unsigned char c : text) {
        if (c < 0x80) {
            converted += static_cast<char>(c);
        } else {
            converted += static_cast<char>(0xc0 | (c >> 6));
            converted += static_cast<char>(0x80 | (c & 0x3f));
        }
    }
    return converted;
}

std::string displayableText(const char* text, int length) {
    if (text == nullptr) return {};
    std::string bytes = length < 0 ? std::string(text) : std::string(text, strnlen(text, length));
    return isValidUtf8(bytes) ? bytes : latin1ToUtf8(bytes);
}

std::string withoutPrefixMarks(const std::string& text) {
    std::string shown;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;
        shown += text[i];
    }
    return shown;
}

std::vector<std::string> splitLines(const std::string& text, bool singleLine) {
    std::vector<std::string> lines(1);
    for (char c : text) {
        if (c == '\r') continue;
        if (c == '\n' && !singleLine) {
            lines.emplace_back();
            continue;
        }
        lines.back() += c == '\n' ? ' ' : c;
    }
    return lines;
}

double lineWidth(cairo_t* cr, const std::string& line) {
    cairo_text_extents_t extents;
    cairo_text_extents(cr, line.c_str(), &extents);
    return extents.x_advance;
}

int baselineOffset(cairo_t* cr) {
    cairo_font_extents_t extents;
    cairo_font_extents(cr, &extents);
    return static_cast<int>(std::lround(extents.ascent));
}

int horizontalStart(const RECT& rect, double width, UINT flags) {
    const double room = rect.right - rect.left - width;
    if (flags & DT_RIGHT) return rect.right - static_cast<int>(std::ceil(width));
    if (flags & DT_CENTER) return rect.left + static_cast<int>(std::lround(room / 2));
    return rect.left;
}

int verticalStart(const RECT& rect, int textHeight, UINT flags) {
    if (!(flags & DT_SINGLELINE)) return rect.top;
    if (flags & DT_BOTTOM) return rect.bottom - textHeight;
    if (flags & DT_VCENTER) return rect.top + (rect.bottom - rect.top - textHeight) / 2;
    return rect.top;
}

}  // namespace

void selectTextFont(cairo_t* cr, const TextFont& font) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_set_font_options(cr, options);
    cairo_font_options_destroy(options);
    if (font.face != nullptr) cairo_set_font_face(cr, font.face);

    const int height = font.height == 0 ? kDefaultCellHeight : font.height;
    if (height < 0) {
        cairo_set_font_size(cr, -height);
        return;
    }
    cairo_set_font_size(cr, 1.0);
    cairo_font_extents_t unit;
    cairo_font_extents(cr, &unit);
    const double cell = unit.ascent + unit.descent;
    cairo_set_font_size(cr, cell > 0 ? height / cell : height);
}

int textLineHeight(cairo_t* cr) {
    cairo_font_extents_t extents;
    cairo_font_extents(cr, &extents);
    return static_cast<int>(std::lround(extents.ascent + extents.descent));
}

void measureTextLine(cairo_t* cr, const char* text, int length, int* width, int* height) {
    const std::string line = displayableText(text, length);
    if (width != nullptr) *width = static_cast<int>(std::ceil(lineWidth(cr, line)));
    if (height != nullptr) *height = textLineHeight(cr);
}

int layoutText(cairo_t* cr, const char* text, int length, RECT* rect, UINT flags) {
    if (rect == nullptr) return 0;
    std::string shown = displayableText(text, length);
    if (!(flags & DT_NOPREFIX)) shown = withoutPrefixMarks(shown);
    const std::vector<std::string> lines = splitLines(shown, (flags & DT_SINGLELINE) != 0);
    const int lineHeight = textLineHeight(cr);
    const int textHeight = lineHeight * static_cast<int>(lines.size());

    if (flags & DT_CALCRECT) {
        double widest = 0;
        for (const std::string& line : lines) widest = std::max(widest, lineWidth(cr, line));
        rect->right = rect->left + static_cast<int>(std::ceil(widest));
        rect->bottom = rect->top + textHeight;
        return textHeight;
    }

    cairo_save(cr);
    if (!(flags & DT_NOCLIP)) {
        cairo_rectangle(cr, rect->left, rect->top, rect->right - rect->left,
                        rect->bottom - rect->top);
        cairo_clip(cr);
    }
    int top = verticalStart(*rect, textHeight, flags);
    const int baseline = baselineOffset(cr);
    for (const std::string& line : lines) {
        cairo_move_to(cr, horizontalStart(*rect, lineWidth(cr, line), flags), top + baseline);
        cairo_show_text(cr, line.c_str());
        top += lineHeight;
    }
    cairo_restore(cr);
    return textHeight;
}
