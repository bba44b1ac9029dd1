// A 1-bit PNG from the file to the plot: black pixels of the file are the set bits of the image,
// and the set bits of the raster rows the generator writes, which the plotter inks.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/core/VRKPixelImage.h"
#include "host/image/VRKPngReader.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"
#include "support/TestPng.h"

namespace {

using namespace std::string_literals;

struct Releaser {
    void operator()(VRKPixelImage* image) const { image->Release(); }
};
using Image = std::unique_ptr<VRKPixelImage, Releaser>;

constexpr int kGrey = 0;

// 10 x 2 pixels, 1 white in the file. Row 0: 0111 1111 11, only its first pixel black; row 1:
// 1111 1111 10, only its last pixel black. The padding bits of the file are clear.
const std::string kScanlines = "\0\x7F\xC0\0\xFF\x80"s;

TEST(OneBitRaster, BlackPixelsOfThePngAreTheImagesSetBits) {
    const std::string png = TestPng::Build(10, 2, 1, kGrey, kScanlines);
    std::string error;
    Image image(VRKPngReader::ReadMemory(png.data(), png.size(), error));
    ASSERT_NE(image, nullptr) << error;
    ASSERT_EQ(image->GetFormat(), VRKPixelImage::kMono1);
    EXPECT_EQ(image->GetRow(0)[0], 0x80);
    EXPECT_EQ(image->GetRow(0)[1], 0x00);
    EXPECT_EQ(image->GetRow(1)[0], 0x00);
    EXPECT_EQ(image->GetRow(1)[1], 0x40);
    // As RGB: the black pixels are black.
    Image rgb(image->ConvertToRGB());
    ASSERT_NE(rgb, nullptr);
    EXPECT_EQ(rgb->GetRow(0)[0], 0);
    EXPECT_EQ(rgb->GetRow(0)[3], 255);
    EXPECT_EQ(rgb->GetRow(1)[27], 0);
    EXPECT_EQ(rgb->GetRow(1)[24], 255);
}

TEST(OneBitRaster, ThePlotInksTheBlackPixels) {
    const std::string png = TestPng::Build(10, 2, 1, kGrey, kScanlines);
    std::string error;
    Image image(VRKPngReader::ReadMemory(png.data(), png.size(), error));
    ASSERT_NE(image, nullptr) << error;
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.DrawBitmap(0, 0, 0, image.get());
    // The image is 2.54 mm wide: the pen goes to its right-hand edge, 101 plotter units. Each row
    // is mirrored for the plotter's turned coordinates, top row first: row 0's black pixel is the
    // last bit of its row (0x00 0x40), row 1's the first (0x80 0x00). Set bits are ink.
    EXPECT_EQ(Printable(g.Take()), Printable("PU101,0\x1b%1A\x1b*r10s2T\x1b*t72h14V\x1b*r3A\x1b*b0M"
                                             "\x1b*b2W\x00\x40\x1b*b2W\x80\x00\x1b*rC\x1b%0B"s));
}

}  // namespace
