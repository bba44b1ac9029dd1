#include <gtest/gtest.h>

#include "host/core/VRKPixelImage.h"
#include "support/TempFolder.h"
#include "support/TestPng.h"
#include "svg/SvgTestSupport.h"

namespace {

// A grey PNG of 4 by 2 pixels.
std::string Png() {
    return TestPng::Build(4, 2, 8, 0, std::string("\0\x10\x20\x30\x40\0\x50\x60\x70\x80", 10));
}

std::string Base64(const std::string& bytes) {
    static const char* kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    std::size_t i = 0;
    for (; i + 2 < bytes.size(); i += 3) {
        const unsigned v = (static_cast<unsigned char>(bytes[i]) << 16) |
                           (static_cast<unsigned char>(bytes[i + 1]) << 8) |
                           static_cast<unsigned char>(bytes[i + 2]);
        for (int shift = 18; shift >= 0; shift -= 6) {
            out += kDigits[(v >> shift) & 63];
        }
    }
    if (i < bytes.size()) {
        unsigned v = static_cast<unsigned char>(bytes[i]) << 16;
        if (i + 1 < bytes.size()) {
            v |= static_cast<unsigned char>(bytes[i + 1]) << 8;
        }
        out += kDigits[(v >> 18) & 63];
        out += kDigits[(v >> 12) & 63];
        out += i + 1 < bytes.size() ? kDigits[(v >> 6) & 63] : '=';
        out += '=';
    }
    return out;
}

TEST(SvgImage, DataUriPlacedInItsBox) {
    const SvgResult r =
        ReadSvg(Page("<image x='10' y='20' width='40' height='40' href='data:image/png;base64," +
                     Base64(Png()) + "'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.images.size(), 1u);
    const VRKDrawingImage& image = r.drawing.images[0];
    // Meet: 4 x 2 pixels in a 40 x 40 box are 40 x 20, centred vertically.
    EXPECT_EQ(image.x, 10.0f);
    EXPECT_EQ(image.y, 70.0f);
    EXPECT_EQ(image.image->GetWidth(), 4);
    EXPECT_EQ(image.image->GetPixelWidth(), 10.0f);
    EXPECT_EQ(image.image->GetPixelHeight(), 10.0f);
    EXPECT_TRUE(r.warnings.empty());
}

TEST(SvgImage, LinkedFileRelativeToTheFolderAndStretched) {
    TempFolder folder("svg");
    folder.Write("pic.png", Png());
    const SvgResult r = ReadSvg(Page("<image width='8' height='8' preserveAspectRatio='none' "
                                     "xlink:href='pic.png'/>"),
                                folder.Path());
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.images.size(), 1u);
    EXPECT_EQ(r.drawing.images[0].x, 0.0f);
    EXPECT_EQ(r.drawing.images[0].y, 100.0f);
    EXPECT_EQ(r.drawing.images[0].image->GetPixelWidth(), 2.0f);
    EXPECT_EQ(r.drawing.images[0].image->GetPixelHeight(), 4.0f);

    VRKSvgImporter importer;
    VRKDrawing drawing;
    const std::string path =
        folder.Write("d.svg", Page("<image width='8' height='8' href='pic.png'/>"));
    EXPECT_TRUE(importer.ReadFile(path, drawing)) << importer.GetError();
    EXPECT_EQ(drawing.images.size(), 1u);
}

TEST(SvgImage, MissingOrNotPngFileIsAnError) {
    TempFolder folder("svg");
    folder.Write("text.png", "not a png");
    SvgResult r = ReadSvg(Page("<image width='8' height='8' href='gone.png'/>"), folder.Path());
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:1: the image file 'gone.png' cannot be read as PNG: there is no "
              "such file");
    EXPECT_TRUE(r.drawing.items.empty());
    r = ReadSvg(Page("<image width='8' height='8' href='text.png'/>"), folder.Path());
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:1: the image file 'text.png' cannot be read as PNG: not a PNG file");
    r = ReadSvg(Page("<image width='8' height='8' href='/dev/null'/>"), folder.Path());
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:1: the image file '/dev/null' cannot be read as PNG: it is not a "
              "regular file");
    r = ReadSvg(Page("<image width='8' height='8' href='pic.png'/>"));
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:1: the image file 'pic.png' is not read: linked images need the "
              "document's folder");
}

TEST(SvgImage, DataUriNotPngIsSkippedWithAWarning) {
    const SvgResult r =
        ReadSvg(Page("<image id='j' width='8' height='8' href='data:image/jpeg;base64,AAAA'/>"
                     "<image width='8' height='8' href='data:image/png;base64,AAAA'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_TRUE(r.drawing.items.empty());
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0],
              "test.svg:1: <image id='j'>: images in data: URIs other than base64 "
              "PNG are not supported; not drawn");
}

TEST(SvgImage, TurnedImageTakesItsBoundingBox) {
    const SvgResult r =
        ReadSvg(Page("<image width='4' height='2' transform='rotate(90)' "
                     "href='data:image/png;base64," +
                     Base64(Png()) + "'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.images.size(), 1u);
    EXPECT_NEAR(r.drawing.images[0].x, -2.0f, 1e-5);
    EXPECT_NEAR(r.drawing.images[0].y, 100.0f, 1e-5);
    EXPECT_NEAR(r.drawing.images[0].image->GetPixelWidth(), 0.5f, 1e-6);
    EXPECT_NEAR(r.drawing.images[0].image->GetPixelHeight(), 2.0f, 1e-6);
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0],
              "test.svg:1: <image>: images cannot be turned or skewed; placed by "
              "the box around them");
}

}  // namespace
