#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>

#include "host/core/VRKPixelImage.h"
#include "host/image/VRKPngReader.h"
#include "support/Printable.h"
#include "support/TempFolder.h"
#include "support/TestPng.h"

namespace {

struct Releaser {
    void operator()(VRKPixelImage* image) const { image->Release(); }
};
using Image = std::unique_ptr<VRKPixelImage, Releaser>;

Image read(const std::string& png, std::string& error) {
    return Image(VRKPngReader::ReadMemory(png.data(), png.size(), error));
}

Image readOk(const std::string& png) {
    std::string error;
    Image image = read(png, error);
    EXPECT_NE(image, nullptr) << error;
    EXPECT_EQ(error, "");
    return image;
}

std::string readError(const std::string& png) {
    std::string error;
    Image image = read(png, error);
    EXPECT_EQ(image, nullptr);
    return error;
}

std::string bytesOf(const VRKPixelImage& image) {
    std::string out;
    for (int y = 0; y < image.GetHeight(); ++y) {
        out.append(reinterpret_cast<const char*>(image.GetRow(y)), image.GetBytesPerRow());
    }
    return out;
}

// Colour types of the file format.
constexpr int kGrey = 0, kRGB = 2, kPalette = 3, kGreyAlpha = 4, kRGBA = 6;

TEST(PngReader, Grey8) {
    Image image = readOk(TestPng::Build(2, 2, 8, kGrey, std::string("\0\x01\x02\0\xFE\xFF", 6)));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetFormat(), VRKPixelImage::kGrey8);
    EXPECT_EQ(image->GetWidth(), 2);
    EXPECT_EQ(image->GetHeight(), 2);
    EXPECT_EQ(Printable(bytesOf(*image)), Printable("\x01\x02\xFE\xFF"));
    EXPECT_EQ(image->GetPixelWidth(), 0.254f);
    EXPECT_EQ(image->GetPixelHeight(), 0.254f);
}

TEST(PngReader, FilteredScanlinesAreDecoded) {
    // Filter 1 (Sub): each byte adds the one to its left.
    Image image = readOk(TestPng::Build(3, 1, 8, kGrey, std::string("\x01\x0A\x01\x02", 4)));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(Printable(bytesOf(*image)), Printable("\x0A\x0B\x0D"));
}

TEST(PngReader, OneBitGreyStaysOneBitWithBlackAsTheSetBit) {
    // Width 10. The file's bit is the grey level (0 black); the image's is ink (1 black), so
    // every pixel's bit is inverted. The file's padding bits differ on purpose (set in row 0,
    // clear in row 1); the image keeps them clear either way.
    // Row 0: 1010 0101 11 -> 0101 1010 00; row 1: 0000 0001 01 -> 1111 1110 10.
    Image image = readOk(TestPng::Build(10, 2, 1, kGrey, std::string("\0\xA5\xFF\0\x01\x40", 6)));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetFormat(), VRKPixelImage::kMono1);
    EXPECT_EQ(image->GetBytesPerRow(), 2u);
    EXPECT_EQ(Printable(bytesOf(*image)), Printable(std::string("\x5A\x00\xFE\x80", 4)));
}

TEST(PngReader, InterlacedOneBitGreyIsInvertedOnce) {
    // 3 x 3 in the file's seven passes, each row of a pass a filter byte and a byte of bits.
    // The pixels, left to right and top to bottom, are 1 0 1 / 0 0 0 / 1 1 0 in the file
    // (1 white). Passes 2 and 3 start beyond the image and hold nothing.
    //   pass 1: (0,0)                 1
    //   pass 4: (2,0)                 1
    //   pass 5: (0,2)                 1
    //   pass 6: (1,0), then (1,2)     0, then 1
    //   pass 7: row 1                 0 0 0
    const std::string passes = std::string("\0\x80", 2) + std::string("\0\x80", 2) +
                               std::string("\0\x80", 2) + std::string("\0\x00", 2) +
                               std::string("\0\x80", 2) + std::string("\0\x00", 2);
    Image image = readOk(TestPng::Build(3, 3, 1, kGrey, passes, {}, /*interlace=*/1));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetFormat(), VRKPixelImage::kMono1);
    // Inverted: 0 1 0 / 1 1 1 / 0 0 1.
    EXPECT_EQ(Printable(bytesOf(*image)), Printable(std::string("\x40\xE0\x20", 3)));
}

TEST(PngReader, TwoAndFourBitGreyAreScaledToEightBits) {
    // 2 bits: levels 0 1 2 3.
    Image two = readOk(TestPng::Build(4, 1, 2, kGrey, std::string("\0\x1B", 2)));
    ASSERT_NE(two, nullptr);
    EXPECT_EQ(two->GetFormat(), VRKPixelImage::kGrey8);
    EXPECT_EQ(Printable(bytesOf(*two)), Printable(std::string("\x00\x55\xAA\xFF", 4)));
    // 4 bits: levels 1 and 15.
    Image four = readOk(TestPng::Build(2, 1, 4, kGrey, std::string("\0\x1F", 2)));
    ASSERT_NE(four, nullptr);
    EXPECT_EQ(Printable(bytesOf(*four)), Printable("\x11\xFF"));
}

TEST(PngReader, SixteenBitsAreScaledToEight) {
    Image grey = readOk(TestPng::Build(3, 1, 16, kGrey, std::string("\0\0\0\xFF\xFF\x80\x80", 7)));
    ASSERT_NE(grey, nullptr);
    EXPECT_EQ(grey->GetFormat(), VRKPixelImage::kGrey8);
    EXPECT_EQ(Printable(bytesOf(*grey)), Printable(std::string("\x00\xFF\x80", 3)));

    Image rgb = readOk(TestPng::Build(1, 1, 16, kRGB, std::string("\0\xFF\xFF\0\0\x80\x80", 7)));
    ASSERT_NE(rgb, nullptr);
    EXPECT_EQ(rgb->GetFormat(), VRKPixelImage::kRGB8);
    EXPECT_EQ(Printable(bytesOf(*rgb)), Printable(std::string("\xFF\x00\x80", 3)));
}

TEST(PngReader, RGBAndRGBA) {
    Image rgb = readOk(TestPng::Build(2, 1, 8, kRGB, std::string("\0abcdef", 7)));
    ASSERT_NE(rgb, nullptr);
    EXPECT_EQ(rgb->GetFormat(), VRKPixelImage::kRGB8);
    EXPECT_EQ(bytesOf(*rgb), "abcdef");

    Image rgba = readOk(TestPng::Build(2, 1, 8, kRGBA, std::string("\0abcdefgh", 9)));
    ASSERT_NE(rgba, nullptr);
    EXPECT_EQ(rgba->GetFormat(), VRKPixelImage::kRGBA8);
    EXPECT_EQ(bytesOf(*rgba), "abcdefgh");
}

TEST(PngReader, GreyWithAlphaBecomesRGBA) {
    Image image = readOk(TestPng::Build(2, 1, 8, kGreyAlpha, std::string("\0\x10\x80\x20\xFF", 5)));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetFormat(), VRKPixelImage::kRGBA8);
    EXPECT_EQ(Printable(bytesOf(*image)), Printable("\x10\x10\x10\x80\x20\x20\x20\xFF"));
}

TEST(PngReader, PaletteBecomesRGB) {
    const std::string palette("\xFF\x00\x00\x00\x00\xFF", 6);  // red, blue
    Image image =
        readOk(TestPng::Build(3, 1, 2, kPalette, std::string("\0\x14", 2), {{"PLTE", palette}}));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetFormat(), VRKPixelImage::kRGB8);
    // Indices 0 1 1.
    EXPECT_EQ(Printable(bytesOf(*image)),
              Printable(std::string("\xFF\x00\x00\x00\x00\xFF\x00\x00\xFF", 9)));
}

TEST(PngReader, PaletteWithTransparencyBecomesRGBA) {
    const std::string palette("\xFF\x00\x00\x00\x00\xFF", 6);
    Image image = readOk(TestPng::Build(2, 1, 8, kPalette, std::string("\0\x00\x01", 3),
                                        {{"PLTE", palette}, {"tRNS", std::string("\x00", 1)}}));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetFormat(), VRKPixelImage::kRGBA8);
    // Entry 0 fully transparent; entry 1 has no tRNS value and stays opaque.
    EXPECT_EQ(Printable(bytesOf(*image)),
              Printable(std::string("\xFF\x00\x00\x00\x00\x00\xFF\xFF", 8)));
}

TEST(PngReader, GreyWithATransparentLevelBecomesRGBA) {
    // tRNS names grey level 7 (two bytes) transparent.
    Image image = readOk(TestPng::Build(2, 1, 8, kGrey, std::string("\0\x07\x09", 3),
                                        {{"tRNS", std::string("\x00\x07", 2)}}));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetFormat(), VRKPixelImage::kRGBA8);
    EXPECT_EQ(Printable(bytesOf(*image)),
              Printable(std::string("\x07\x07\x07\x00\x09\x09\x09\xFF", 8)));
}

TEST(PngReader, InterlacedImageIsReadWhole) {
    // 2 x 2 grey, Adam7: pass 1 holds (0,0), pass 6 (1,0), pass 7 the second row.
    Image image =
        readOk(TestPng::Build(2, 2, 8, kGrey, std::string("\0a\0b\0cd", 7), {}, /*interlace=*/1));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(bytesOf(*image), "abcd");
}

TEST(PngReader, PixelSizeFromPhysInMetres) {
    // 11811 pixels a metre across (300 to the inch), 5000 down.
    Image image = readOk(TestPng::Build(1, 1, 8, kGrey, std::string("\0\0", 2),
                                        {{"pHYs", TestPng::Phys(11811, 5000, 1)}}));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetPixelWidth(), static_cast<float>(1000.0 / 11811));
    EXPECT_EQ(image->GetPixelHeight(), 0.2f);
}

TEST(PngReader, PhysWithoutUnitIsIgnored) {
    Image image = readOk(
        TestPng::Build(1, 1, 8, kGrey, std::string("\0\0", 2), {{"pHYs", TestPng::Phys(2, 1, 0)}}));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetPixelWidth(), 0.254f);
    EXPECT_EQ(image->GetPixelHeight(), 0.254f);
}

TEST(PngReader, NotAPng) {
    EXPECT_EQ(readError("Begin\nEnd\n"), "not a PNG file");
    EXPECT_EQ(readError(""), "not a PNG file");
    EXPECT_EQ(readError(TestPng::kSignature.substr(0, 5)), "not a PNG file");
    std::string error;
    EXPECT_EQ(VRKPngReader::ReadMemory(nullptr, 10, error), nullptr);
    EXPECT_EQ(error, "not a PNG file");
}

TEST(PngReader, TruncatedFile) {
    const std::string png = TestPng::Build(4, 4, 8, kGrey, std::string(20, '\0'));
    for (std::size_t keep : {std::size_t{8}, std::size_t{20}, std::size_t{40}, png.size() - 13}) {
        SCOPED_TRACE(keep);
        EXPECT_EQ(readError(png.substr(0, keep)), "the file ends before the image does");
    }
}

TEST(PngReader, DamagedHeader) {
    std::string png = TestPng::Build(1, 1, 8, kGrey, std::string("\0\0", 2));
    png[20] ^= 0x01;  // inside the IHDR data: its CRC no longer matches
    EXPECT_EQ(readError(png), "IHDR: CRC error");
}

TEST(PngReader, ImpossibleHeaders) {
    EXPECT_EQ(readError(TestPng::Build(0, 1, 8, kGrey, std::string("\0", 1))), "Invalid IHDR data");
    EXPECT_EQ(readError(TestPng::Build(1, 1, 3, kGrey, std::string("\0\0", 2))),
              "Invalid IHDR data");
    EXPECT_EQ(readError(TestPng::Build(1, 1, 8, 5, std::string("\0\0", 2))), "Invalid IHDR data");
}

TEST(PngReader, ShortImageData) {
    // Two rows announced, one given.
    EXPECT_EQ(readError(TestPng::Build(2, 2, 8, kGrey, std::string("\0ab", 3))),
              "Not enough image data");
}

TEST(PngReader, EnormousImageIsRefusedBeforeAnyPixelMemory) {
    // 100000 x 100000 RGBA would take 40 GB; the file itself is a few dozen bytes.
    EXPECT_EQ(readError(TestPng::Build(100000, 100000, 8, kRGBA, std::string("\0", 1))),
              "image too large");
}

TEST(PngReader, ChunksThatAreNotUsedAreSkippedUnread) {
    // A text chunk of 5 MiB and a colour profile beside the image: skipped as they stream past.
    Image image = readOk(
        TestPng::Build(1, 1, 8, kGrey, std::string("\0\x42", 2),
                       {{"tEXt", "Comment" + std::string(1, '\0') + std::string(5 << 20, 'x')},
                        {"iCCP", std::string(300, 'p')}}));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(bytesOf(*image), "\x42");
}

TEST(PngReader, AChunkClaimingGigabytesTakesNoMemory) {
    // 141 bytes whose text chunk claims 2 GiB: the reader skips toward its end and finds the
    // file ending there, instead of taking the memory first.
    for (const char* type : {"tEXt", "zTXt", "iTXt", "iCCP", "eXIf", "abCd"}) {
        SCOPED_TRACE(type);
        std::string png = TestPng::kSignature + TestPng::Header(1, 1, 8, kGrey, 0);
        TestPng::PutBig32(png, 0x7FFFFFF0u);
        png += std::string(type) + std::string(20, 'x');
        png += TestPng::Chunk("IDAT", TestPng::Zlib(std::string("\0\0", 2)));
        EXPECT_EQ(readError(png), "the file ends before the image does");
    }
}

TEST(PngReader, ReadFile) {
    TempFolder folder("png");
    const std::string path =
        folder.Write("dot.png", TestPng::Build(1, 1, 8, kRGB, std::string("\0xyz", 4)));
    std::string error = "stale";
    Image image(VRKPngReader::ReadFile(path, error));
    ASSERT_NE(image, nullptr) << error;
    EXPECT_EQ(error, "");
    EXPECT_EQ(bytesOf(*image), "xyz");
}

TEST(PngReader, FileErrors) {
    TempFolder folder("png");
    std::string error;
    EXPECT_EQ(VRKPngReader::ReadFile(folder.File("missing.png"), error), nullptr);
    EXPECT_EQ(error, "No such file or directory");
    EXPECT_EQ(VRKPngReader::ReadFile(folder.Path(), error), nullptr);
    EXPECT_EQ(error, "Is a directory");
    const std::string text = folder.Write("text.png", "not really");
    EXPECT_EQ(VRKPngReader::ReadFile(text, error), nullptr);
    EXPECT_EQ(error, "not a PNG file");
}

}  // namespace

namespace {

// An RGB file of 1,600 by 2,000 pixels (9.6 MB of pixels, above the streaming limit): row y is
// filled with bytes y % 251, every row unfiltered.
std::string largeRgbPng() {
    const int width = 1600, height = 2000;
    std::string scanlines;
    scanlines.reserve(static_cast<std::size_t>(height) * (3 * width + 1));
    for (int y = 0; y < height; ++y) {
        scanlines += '\0';
        scanlines.append(3 * width, static_cast<char>(y % 251));
    }
    return TestPng::Build(width, height, 8, kRGB, scanlines);
}

TEST(PngReaderOpenFile, LargeImagesAreStreamedWithTheSamePixels) {
    TempFolder folder("png");
    const std::string path = folder.Write("large.png", largeRgbPng());
    std::string error;
    Image streamed(VRKPngReader::OpenFile(path, error));
    ASSERT_NE(streamed, nullptr) << error;
    EXPECT_TRUE(streamed->IsStreamed());
    Image whole(VRKPngReader::ReadFile(path, error));
    ASSERT_NE(whole, nullptr) << error;
    EXPECT_EQ(streamed->GetWidth(), 1600);
    EXPECT_EQ(streamed->GetHeight(), 2000);
    EXPECT_EQ(streamed->GetFormat(), VRKPixelImage::kRGB8);
    const VRKPixelImage& view = *streamed;
    for (int y : {0, 1, 250, 1999, 3}) {
        ASSERT_NE(view.GetRow(y), nullptr) << y;
        EXPECT_EQ(std::memcmp(view.GetRow(y), whole->GetRow(y), 4800), 0) << y;
    }
}

TEST(PngReaderOpenFile, LargeOneBitImagesAreStreamedWithTheirBitsInverted) {
    // 8192 x 8200 pixels at 1 bit: 1024 bytes a row, 8.0 MiB and a little more once decoded.
    // Byte x of row y in the file is (x + y) mod 256; the image holds its complement.
    const int width = 8192, height = 8200, rowBytes = width / 8;
    std::string scanlines;
    scanlines.reserve(static_cast<std::size_t>(height) * (rowBytes + 1));
    for (int y = 0; y < height; ++y) {
        scanlines += '\0';
        for (int x = 0; x < rowBytes; ++x) {
            scanlines += static_cast<char>((x + y) & 0xFF);
        }
    }
    TempFolder folder("png");
    const std::string path =
        folder.Write("large-1bit.png", TestPng::Build(width, height, 1, kGrey, scanlines));
    std::string error;
    Image streamed(VRKPngReader::OpenFile(path, error));
    ASSERT_NE(streamed, nullptr) << error;
    EXPECT_TRUE(streamed->IsStreamed());
    EXPECT_EQ(streamed->GetFormat(), VRKPixelImage::kMono1);
    const VRKPixelImage& view = *streamed;
    for (int y : {0, 1, 4097, 8199, 2}) {
        const unsigned char* row = view.GetRow(y);
        ASSERT_NE(row, nullptr) << y;
        EXPECT_EQ(row[0], static_cast<unsigned char>(~y & 0xFF)) << y;
        EXPECT_EQ(row[5], static_cast<unsigned char>(~(5 + y) & 0xFF)) << y;
        EXPECT_EQ(row[rowBytes - 1], static_cast<unsigned char>(~(rowBytes - 1 + y) & 0xFF)) << y;
    }
}

TEST(PngReaderOpenFile, ErrorsAnywhereInALargeFileAreFoundAtOnce) {
    TempFolder folder("png");
    std::string bytes = largeRgbPng();
    // A byte of the last rows changed: the IDAT CRC no longer matches.
    bytes[bytes.size() - 100] ^= 0x55;
    const std::string path = folder.Write("broken.png", bytes);
    std::string streamError, wholeError;
    Image streamed(VRKPngReader::OpenFile(path, streamError));
    EXPECT_EQ(streamed, nullptr);
    Image whole(VRKPngReader::ReadFile(path, wholeError));
    EXPECT_EQ(whole, nullptr);
    EXPECT_EQ(streamError, wholeError);
    EXPECT_NE(streamError, "");
}

TEST(PngReaderOpenFile, LargeInterlacedImagesAreRefused) {
    // Interlaced rows come in seven passes, so the image would be held whole: 4000 x 3000 RGB
    // takes 34 MiB, more than the 32 allowed. The header alone decides.
    TempFolder folder("png");
    const std::string path = folder.Write(
        "interlaced.png",
        TestPng::Build(4000, 3000, 8, kRGB, std::string(1, '\0'), {}, /*interlace=*/1));
    std::string error;
    Image image(VRKPngReader::OpenFile(path, error));
    EXPECT_EQ(image, nullptr);
    EXPECT_EQ(error,
              "an interlaced image of 34 MiB once decoded; an interlaced image is held whole and "
              "may take at most 32 MiB (save it without interlacing)");
}

TEST(PngReaderOpenFile, SmallImagesAreReadWhole) {
    TempFolder folder("png");
    const std::string path =
        folder.Write("small.png", TestPng::Build(1, 1, 8, kGrey, std::string("\0\x7F", 2)));
    std::string error;
    Image image(VRKPngReader::OpenFile(path, error));
    ASSERT_NE(image, nullptr) << error;
    EXPECT_FALSE(image->IsStreamed());
    EXPECT_EQ(image->GetRow(0)[0], 0x7F);
    Image missing(VRKPngReader::OpenFile(folder.File("none.png"), error));
    EXPECT_EQ(missing, nullptr);
    EXPECT_NE(error, "");
}

#if defined(__SANITIZE_ADDRESS__)
// AddressSanitizer calls a hook on every allocation (the declaration of its public interface,
// which GCC does not ship as a header). The largest allocation while `watching` is set.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(const volatile void*,
                                                                          std::size_t),
                                                         void (*onFree)(const volatile void*));
std::atomic<bool> watching{false};
std::atomic<std::size_t> largestAllocation{0};
void onMalloc(const volatile void* /*block*/, std::size_t size) {
    if (watching.load() && size > largestAllocation.load()) {
        largestAllocation.store(size);
    }
}
void onFree(const volatile void* /*block*/) {}
#endif

// fuzz/regressions/png/itxt-chunk-of-128-mib: a 69-byte file whose text chunk says it is
// 134217737 bytes long makes libpng allocate that much before it finds the file too short (a
// chunk's length can say up to 2 GiB). The reader skips such chunks unread. The allocations are
// watched through AddressSanitizer, so the test runs in the sanitizer build
// (scripts/test-sanitize.sh).
TEST(PngReader, ChunkTakesNoMemoryOnTheWordOfItsLength) {
#if !defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the allocations are watched through AddressSanitizer";
#else
    static const bool hooked = __sanitizer_install_malloc_and_free_hooks(onMalloc, onFree) != 0;
    ASSERT_TRUE(hooked);
    std::string png = TestPng::kSignature + TestPng::Header(32, 32, 8, kRGBA);
    TestPng::PutBig32(png, 134217737u);
    png += "iTXt";
    png += std::string("\0\0\x0f\xa0\0\0\x0f\xa0\x01", 9);
    largestAllocation = 0;
    watching = true;
    std::string error;
    Image image(VRKPngReader::ReadMemory(png.data(), png.size(), error));
    watching = false;
    EXPECT_EQ(image, nullptr);
    EXPECT_EQ(error, "the file ends before the image does");
    // The image would take 4 KiB; nothing comes near the 128 MiB the chunk claims.
    EXPECT_LT(largestAllocation.load(), std::size_t{1} << 20);
#endif
}

}  // namespace
