#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "host/core/VRKPixelImage.h"

namespace {

// Releases the image's reference at the end of the test.
struct Releaser {
    void operator()(VRKPixelImage* image) const { image->Release(); }
};
using Image = std::unique_ptr<VRKPixelImage, Releaser>;

Image make(int width, int height, int format, const std::string& bytes) {
    return Image(VRKPixelImage::CreateFromData(width, height, format, bytes.data(),
                                               VRKPixelImage::BytesPerRow(format, width)));
}

// The rows of an image as one string of bytes.
std::string bytesOf(const VRKPixelImage& image) {
    std::string out;
    for (int y = 0; y < image.GetHeight(); ++y) {
        out.append(reinterpret_cast<const char*>(image.GetRow(y)), image.GetBytesPerRow());
    }
    return out;
}

TEST(PixelImage, BytesPerRowOfEachFormat) {
    EXPECT_EQ(VRKPixelImage::BytesPerRow(VRKPixelImage::kGrey8, 5), 5u);
    EXPECT_EQ(VRKPixelImage::BytesPerRow(VRKPixelImage::kRGB8, 5), 15u);
    EXPECT_EQ(VRKPixelImage::BytesPerRow(VRKPixelImage::kRGBA8, 5), 20u);
    EXPECT_EQ(VRKPixelImage::BytesPerRow(VRKPixelImage::kMono1, 8), 1u);
    EXPECT_EQ(VRKPixelImage::BytesPerRow(VRKPixelImage::kMono1, 9), 2u);
    EXPECT_EQ(VRKPixelImage::BytesPerRow(VRKPixelImage::kUnsupported, 9), 0u);
    EXPECT_EQ(VRKPixelImage::BytesPerRow(7, 9), 0u);
}

TEST(PixelImage, CreateGivesZeroedRowsTopToBottom) {
    Image image(VRKPixelImage::Create(3, 2, VRKPixelImage::kRGB8, 0.5f, 0.25f));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetWidth(), 3);
    EXPECT_EQ(image->GetHeight(), 2);
    EXPECT_EQ(image->GetFormat(), 2);
    EXPECT_EQ(image->GetBytesPerRow(), 9u);
    EXPECT_EQ(image->GetPixelWidth(), 0.5f);
    EXPECT_EQ(image->GetPixelHeight(), 0.25f);
    EXPECT_EQ(bytesOf(*image), std::string(18, '\0'));
    EXPECT_EQ(image->GetRow(1), image->GetRow(0) + 9);
    EXPECT_EQ(image->GetRow(2), nullptr);
    EXPECT_EQ(image->GetRow(-1), nullptr);
    EXPECT_EQ(image->GetRefCount(), 1u);
    EXPECT_STREQ(image->IsA(), "VRKPixelImage");
    EXPECT_TRUE(image->IsAKindOf("VRKBaseUnknown"));
}

TEST(PixelImage, DefaultPixelSizeIsAHundredthOfAnInch) {
    Image image(VRKPixelImage::Create(1, 1, VRKPixelImage::kGrey8));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetPixelWidth(), 0.254f);
    EXPECT_EQ(image->GetPixelHeight(), 0.254f);
    image->SetPixelSize(1.0f, 2.0f);
    EXPECT_EQ(image->GetPixelWidth(), 1.0f);
    EXPECT_EQ(image->GetPixelHeight(), 2.0f);
}

TEST(PixelImage, InvalidSizesAndFormatsGiveNull) {
    EXPECT_EQ(VRKPixelImage::Create(-1, 1, VRKPixelImage::kGrey8), nullptr);
    EXPECT_EQ(VRKPixelImage::Create(1, -1, VRKPixelImage::kGrey8), nullptr);
    EXPECT_EQ(VRKPixelImage::Create(1, 1, 5), nullptr);
    EXPECT_EQ(VRKPixelImage::Create(1, 1, -1), nullptr);
    // Far more memory than any machine has: refused, not thrown.
    EXPECT_EQ(VRKPixelImage::Create(2000000000, 2000000000, VRKPixelImage::kRGBA8), nullptr);
    const char row[2] = {1, 2};
    EXPECT_EQ(VRKPixelImage::CreateFromData(2, 1, VRKPixelImage::kGrey8, nullptr, 2), nullptr);
    EXPECT_EQ(VRKPixelImage::CreateFromData(2, 1, VRKPixelImage::kGrey8, row, 1), nullptr);
}

TEST(PixelImage, EmptyImagesHaveNoPixels) {
    Image noColumns(VRKPixelImage::Create(0, 3, VRKPixelImage::kRGB8));
    ASSERT_NE(noColumns.get(), nullptr);
    EXPECT_EQ(noColumns->GetWidth(), 0);
    EXPECT_EQ(noColumns->GetHeight(), 3);
    EXPECT_EQ(noColumns->GetBytesPerRow(), 0u);
    Image noRows(VRKPixelImage::CreateFromData(4, 0, VRKPixelImage::kGrey8, nullptr, 0));
    ASSERT_NE(noRows.get(), nullptr);
    EXPECT_EQ(noRows->GetRow(0), nullptr);
}

TEST(PixelImage, UnsupportedFormatHasASizeButNoRows) {
    Image image(VRKPixelImage::CreateFromData(4, 3, VRKPixelImage::kUnsupported, nullptr, 0));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetWidth(), 4);
    EXPECT_EQ(image->GetHeight(), 3);
    EXPECT_EQ(image->GetFormat(), 1);
    EXPECT_EQ(image->GetBytesPerRow(), 0u);
    EXPECT_EQ(image->GetRow(0), nullptr);
    EXPECT_EQ(image->GetSubImage(0, 0, 2, 2), nullptr);
    EXPECT_EQ(image->CreateRotated180(), nullptr);
    EXPECT_EQ(image->ConvertToRGB(), nullptr);
}

TEST(PixelImage, CreateFromDataHonoursTheStride) {
    const std::string memory = "ab#cd#";  // two rows of two grey pixels, stride 3
    Image image(
        VRKPixelImage::CreateFromData(2, 2, VRKPixelImage::kGrey8, memory.data(), 3, 0.1f, 0.2f));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(bytesOf(*image), "abcd");
    EXPECT_EQ(image->GetPixelWidth(), 0.1f);
}

TEST(PixelImage, OneBitRowsKeepTheirPaddingClear) {
    // Width 10: two bytes a row, the last six bits padding, set here on purpose.
    Image image = make(10, 2, VRKPixelImage::kMono1, "\xFF\xFF\x80\x3F");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(bytesOf(*image), std::string("\xFF\xC0\x80\x00", 4));
}

TEST(PixelImage, SubImageOfRGB) {
    // 3 x 2 RGB, each pixel's bytes naming its column and row.
    Image image = make(3, 2, VRKPixelImage::kRGB8, "a0Ab0Bc0Ca1Ab1Bc1C");
    image->SetPixelSize(0.5f, 0.75f);
    Image sub(image->GetSubImage(1, 0, 2, 2));
    ASSERT_NE(sub, nullptr);
    EXPECT_EQ(sub->GetWidth(), 2);
    EXPECT_EQ(sub->GetHeight(), 2);
    EXPECT_EQ(bytesOf(*sub), "b0Bc0Cb1Bc1C");
    EXPECT_EQ(sub->GetPixelWidth(), 0.5f);
    EXPECT_EQ(sub->GetPixelHeight(), 0.75f);
    EXPECT_EQ(image->GetRefCount(), 1u);
}

TEST(PixelImage, SubImageIsClippedToTheImage) {
    Image image = make(3, 2, VRKPixelImage::kGrey8, "abcdef");
    Image sub(image->GetSubImage(-1, 1, 3, 5));
    ASSERT_NE(sub, nullptr);
    EXPECT_EQ(sub->GetWidth(), 2);
    EXPECT_EQ(sub->GetHeight(), 1);
    EXPECT_EQ(bytesOf(*sub), "de");
    // Large sizes do not overflow the clipping.
    Image all(image->GetSubImage(0, 0, 2147483647, 2147483647));
    ASSERT_NE(all, nullptr);
    EXPECT_EQ(bytesOf(*all), "abcdef");
}

TEST(PixelImage, SubImageOutsideTheImageIsNull) {
    Image image = make(3, 2, VRKPixelImage::kGrey8, "abcdef");
    EXPECT_EQ(image->GetSubImage(3, 0, 1, 1), nullptr);
    EXPECT_EQ(image->GetSubImage(0, -5, 2, 5), nullptr);
    EXPECT_EQ(image->GetSubImage(0, 0, 0, 1), nullptr);
    EXPECT_EQ(image->GetSubImage(0, 0, 1, -1), nullptr);
}

TEST(PixelImage, SubImageOfOneBitShiftsThePixels) {
    // Row: 1011 0011 10 (width 10).
    Image image = make(10, 1, VRKPixelImage::kMono1, "\xB3\x80");
    Image sub(image->GetSubImage(3, 0, 7, 1));
    ASSERT_NE(sub, nullptr);
    // Pixels 3..9: 1 0011 10 -> 1001 110(0).
    EXPECT_EQ(bytesOf(*sub), "\x9C");
}

TEST(PixelImage, RotatedRGBA) {
    Image image = make(2, 2, VRKPixelImage::kRGBA8, "1111222233334444");
    Image turned(image->CreateRotated180());
    ASSERT_NE(turned, nullptr);
    EXPECT_EQ(turned->GetFormat(), 3);
    EXPECT_EQ(bytesOf(*turned), "4444333322221111");
}

TEST(PixelImage, RotatedGreyOfOddSize) {
    Image image = make(3, 1, VRKPixelImage::kGrey8, "abc");
    Image turned(image->CreateRotated180());
    ASSERT_NE(turned, nullptr);
    EXPECT_EQ(bytesOf(*turned), "cba");
    Image twice(turned->CreateRotated180());
    EXPECT_EQ(bytesOf(*twice), "abc");
}

TEST(PixelImage, RotatedOneBitKeepsPaddingAtTheEnd) {
    // Width 10, two rows: 1100000001 and 0000000010.
    Image image = make(10, 2, VRKPixelImage::kMono1, std::string("\xC0\x40\x00\x80", 4));
    Image turned(image->CreateRotated180());
    ASSERT_NE(turned, nullptr);
    // Row 0 is old row 1 reversed: 0100000000; row 1 is old row 0 reversed: 1000000011.
    EXPECT_EQ(bytesOf(*turned), std::string("\x40\x00\x80\xC0", 4));
}

TEST(PixelImage, ConvertRGBAToRGBDropsAlpha) {
    Image image =
        make(2, 1, VRKPixelImage::kRGBA8, std::string("\x10\x20\x30\x00\x40\x50\x60\xFF", 8));
    Image rgb(image->ConvertToRGB());
    ASSERT_NE(rgb, nullptr);
    EXPECT_EQ(rgb->GetFormat(), VRKPixelImage::kRGB8);
    EXPECT_EQ(bytesOf(*rgb), "\x10\x20\x30\x40\x50\x60");
}

TEST(PixelImage, ConvertGreyAndOneBitToRGB) {
    Image grey = make(2, 1, VRKPixelImage::kGrey8, "\x05\xFA");
    Image fromGrey(grey->ConvertToRGB());
    ASSERT_NE(fromGrey, nullptr);
    EXPECT_EQ(bytesOf(*fromGrey), "\x05\x05\x05\xFA\xFA\xFA");

    Image mono = make(3, 1, VRKPixelImage::kMono1, "\xA0");  // set, clear, set: black, white, black
    Image fromMono(mono->ConvertToRGB());
    ASSERT_NE(fromMono, nullptr);
    EXPECT_EQ(bytesOf(*fromMono), std::string("\x00\x00\x00\xFF\xFF\xFF\x00\x00\x00", 9));

    Image rgb = make(1, 1, VRKPixelImage::kRGB8, "xyz");
    Image copy(rgb->ConvertToRGB());
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy.get(), rgb.get());
    EXPECT_EQ(bytesOf(*copy), "xyz");
}

TEST(PixelImage, TransparentPixelsTakeTheColour) {
    Image image = make(3, 1, VRKPixelImage::kRGBA8,
                       std::string("\x10\x20\x30\x00"   // transparent
                                   "\x40\x50\x60\xFF"   // opaque
                                   "\xC8\x00\x64\x80",  // half: a = 128
                                   12));
    image->ChangeTransparencyToColor(255, 255, 255);
    // (c * 128 + 255 * 127 + 127) / 255: 200 -> 227, 0 -> 127, 100 -> 177.
    EXPECT_EQ(bytesOf(*image), std::string("\xFF\xFF\xFF\xFF"
                                           "\x40\x50\x60\xFF"
                                           "\xE3\x7F\xB1\xFF",
                                           12));
}

TEST(PixelImage, TransparencyOfImagesWithoutAlphaIsLeftAlone) {
    Image image = make(2, 1, VRKPixelImage::kRGB8, std::string("\x00\x00\x00\x01\x02\x03", 6));
    image->ChangeTransparencyToColor(9, 9, 9);
    EXPECT_EQ(bytesOf(*image), std::string("\x00\x00\x00\x01\x02\x03", 6));
}

TEST(PixelImage, ReferenceCounting) {
    VRKPixelImage* image = VRKPixelImage::Create(1, 1, VRKPixelImage::kGrey8);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->AddRef(), 2u);
    EXPECT_EQ(image->Release(), 1u);
    EXPECT_EQ(image->Release(), 0u);
}

}  // namespace

namespace {

// Rows y = 0, 1, 2... whose bytes are all y + 1, counting how often the source starts again.
class CountingRows final : public VRKPixelRowSource {
  public:
    CountingRows(std::size_t rowBytes, int* rewinds) : rowBytes_(rowBytes), rewinds_(rewinds) {}
    bool NextRow(unsigned char* row) override {
        std::memset(row, next_ + 1, rowBytes_);
        ++next_;
        return true;
    }
    bool Rewind() override {
        ++*rewinds_;
        next_ = 0;
        return true;
    }

  private:
    std::size_t rowBytes_;
    int* rewinds_;
    int next_ = 0;
};

Image streamed(int width, int height, int* rewinds) {
    return Image(VRKPixelImage::CreateStreamed(width, height, VRKPixelImage::kRGB8,
                                               new CountingRows(3 * width, rewinds), 0.5f, 0.25f));
}

TEST(StreamedPixelImage, RowsComeFromTheSourceInOrder) {
    int rewinds = 0;
    Image image = streamed(2, 3, &rewinds);
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(image->IsStreamed());
    EXPECT_EQ(image->GetPixelWidth(), 0.5f);
    const VRKPixelImage& view = *image;
    EXPECT_EQ(view.GetRow(0)[0], 1);
    EXPECT_EQ(view.GetRow(0)[5], 1);
    EXPECT_EQ(view.GetRow(2)[0], 3);  // row 1 read and passed over
    EXPECT_EQ(view.GetRow(3), nullptr);
    EXPECT_EQ(rewinds, 0);
    EXPECT_EQ(view.GetRow(1)[0], 2);  // an earlier row starts the source again
    EXPECT_EQ(rewinds, 1);
}

TEST(StreamedPixelImage, ChangingPixelsReadsTheImageIntoMemory) {
    int rewinds = 0;
    Image image = streamed(2, 3, &rewinds);
    ASSERT_NE(image, nullptr);
    unsigned char* row = image->GetRow(1);
    ASSERT_NE(row, nullptr);
    EXPECT_FALSE(image->IsStreamed());
    row[0] = 9;
    EXPECT_EQ(image->GetRow(1)[0], 9);
    EXPECT_EQ(image->GetRow(2)[0], 3);
}

TEST(StreamedPixelImage, DerivedImagesAreThoseOfTheSamePixelsInMemory) {
    int rewinds = 0;
    Image image = streamed(3, 4, &rewinds);
    std::string bytes;
    for (int y = 0; y < 4; ++y) {
        bytes += std::string(9, static_cast<char>(y + 1));
    }
    Image held = make(3, 4, VRKPixelImage::kRGB8, bytes);
    Image sub(image->GetSubImage(1, 1, 2, 2));
    Image heldSub(held->GetSubImage(1, 1, 2, 2));
    ASSERT_NE(sub, nullptr);
    Image turned(image->CreateRotated180());
    Image heldTurned(held->CreateRotated180());
    ASSERT_NE(turned, nullptr);
    for (int y = 0; y < 2; ++y) {
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(sub->GetRow(y)), 6),
                  std::string(reinterpret_cast<const char*>(heldSub->GetRow(y)), 6));
    }
    for (int y = 0; y < 4; ++y) {
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(turned->GetRow(y)), 9),
                  std::string(reinterpret_cast<const char*>(heldTurned->GetRow(y)), 9));
    }
}

TEST(StreamedPixelImage, NeedsASource) {
    EXPECT_EQ(VRKPixelImage::CreateStreamed(2, 2, VRKPixelImage::kRGB8, nullptr), nullptr);
    int rewinds = 0;
    EXPECT_EQ(VRKPixelImage::CreateStreamed(2, 2, VRKPixelImage::kUnsupported,
                                            new CountingRows(6, &rewinds)),
              nullptr);
}

}  // namespace
