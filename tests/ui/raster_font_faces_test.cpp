// Typeface lookup: the Windows face names the plug-in asks for are served by
// the metric-compatible Liberation faces.
#include <gtest/gtest.h>

#include <cairo-ft.h>

#include <string>

#include "host/raster/font_faces.h"

namespace {

std::string servedFamily(cairo_font_face_t* face) {
    cairo_matrix_t identity;
    cairo_matrix_init_identity(&identity);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_scaled_font_t* scaled = cairo_scaled_font_create(face, &identity, &identity, options);
    cairo_font_options_destroy(options);
    std::string family;
    if (FT_Face ftFace = cairo_ft_scaled_font_lock_face(scaled)) {
        family = ftFace->family_name != nullptr ? ftFace->family_name : "";
        cairo_ft_scaled_font_unlock_face(scaled);
    }
    cairo_scaled_font_destroy(scaled);
    return family;
}

TEST(UiFontFaces, ArialIsServedByLiberationSans) {
    EXPECT_EQ(servedFamily(uiFontFace("Arial", 400, false)), "Liberation Sans");
    EXPECT_EQ(servedFamily(uiFontFace("arial", 700, false)), "Liberation Sans");
    EXPECT_EQ(servedFamily(uiFontFace(nullptr, 400, false)), "Liberation Sans");
    EXPECT_EQ(servedFamily(uiFontFace("", 400, false)), "Liberation Sans");
}

TEST(UiFontFaces, FacesAreCachedPerFamilyWeightAndSlant) {
    cairo_font_face_t* arial = uiFontFace("Arial", 400, false);
    EXPECT_EQ(uiFontFace("Arial", 400, false), arial);
    EXPECT_EQ(uiFontFace("Liberation Sans", 400, false), arial);
    EXPECT_NE(uiFontFace("Arial", 700, false), arial);
    EXPECT_NE(uiFontFace("Arial", 400, true), arial);
}

}  // namespace
