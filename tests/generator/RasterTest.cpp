#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "generator/DeltaRowCompression.h"
#include "host/core/VRKPixelImage.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

using Bytes = std::vector<unsigned char>;

struct Compressed {
    int mode;
    Bytes bytes;
};

Compressed Compress(const Bytes& row, const Bytes& seed, int lastMode) {
    Bytes out(2 * row.size() + 128);
    std::size_t length = row.size();
    const int mode = compressDeltaRow(row.data(), out.data(), seed.data(), length, lastMode);
    return {mode, Bytes(out.begin(), out.begin() + static_cast<std::ptrdiff_t>(length))};
}

TEST(DeltaRow, OffsetsAndTheirExtensionBytes) {
    struct Case {
        std::size_t offset;
        Bytes command;
    };
    const Case cases[] = {
        {0, {0}},         {30, {30}},          {31, {31, 0}},       {32, {31, 1}},
        {285, {31, 254}}, {286, {31, 255, 0}}, {287, {31, 255, 1}}, {600, {31, 255, 255, 59}},
    };
    for (const Case& c : cases) {
        Bytes seed(700, 0), row(700, 0);
        row[c.offset] = 7;
        Bytes expected = c.command;
        expected.push_back(7);
        const Compressed result = Compress(row, seed, 0);
        EXPECT_EQ(result.mode, 3) << c.offset;
        EXPECT_EQ(result.bytes, expected) << c.offset;
    }
}

TEST(DeltaRow, RunsOfOneToEightAndLonger) {
    for (std::size_t run = 1; run <= 20; ++run) {
        Bytes seed(40, 0), row(40, 0);
        for (std::size_t i = 0; i < run; ++i) {
            row[3 + i] = static_cast<unsigned char>(i + 1);
        }
        Bytes expected;
        std::size_t done = 0, offset = 3;
        while (done < run) {
            const std::size_t n = std::min<std::size_t>(8, run - done);
            expected.push_back(static_cast<unsigned char>((n - 1) * 32 + offset));
            for (std::size_t i = 0; i < n; ++i) {
                expected.push_back(static_cast<unsigned char>(done + i + 1));
            }
            done += n;
            offset = 0;
        }
        const Compressed result = Compress(row, seed, 0);
        EXPECT_EQ(result.mode, 3) << run;
        EXPECT_EQ(result.bytes, expected) << run;
    }
}

TEST(DeltaRow, RunStopsAtAByteEqualToTheSeed) {
    const Bytes seed = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    const Bytes row = {1, 2, 0, 3, 0, 0, 0, 0, 0, 0};
    const Compressed result = Compress(row, seed, 0);
    EXPECT_EQ(result.mode, 3);
    EXPECT_EQ(result.bytes, (Bytes{0x20, 1, 2, 0x01, 3}));
}

TEST(DeltaRow, RowEqualToItsSeedIsEmpty) {
    const Bytes seed = {5, 6, 7};
    EXPECT_EQ(Compress(seed, seed, 0).mode, 3);
    EXPECT_EQ(Compress(seed, seed, 0).bytes, Bytes{});
    EXPECT_EQ(Compress(seed, seed, 3).bytes, Bytes{});
}

TEST(DeltaRow, ModeThreeMayBeOneByteLongerAfterModeThree) {
    const Bytes seed(4, 0);
    const Bytes row = {1, 1, 1, 1};  // delta 5 bytes, raw 4
    const Compressed after3 = Compress(row, seed, 3);
    EXPECT_EQ(after3.mode, 3);
    EXPECT_EQ(after3.bytes, (Bytes{0x60, 1, 1, 1, 1}));
    const Compressed after0 = Compress(row, seed, 0);
    EXPECT_EQ(after0.mode, 0);
    EXPECT_EQ(after0.bytes, row);
    // Equal length: only a previous mode 3 keeps the delta.
    const Bytes gaps = {1, 0, 1, 0};  // delta {0,1, 1,1}: 4 bytes
    EXPECT_EQ(Compress(gaps, seed, 0).mode, 0);
    EXPECT_EQ(Compress(gaps, seed, 3).mode, 3);
    // Six bytes of delta for four raw: too long even after mode 3.
    const Bytes spread = {1, 0, 1, 1};
    const Bytes spreadSeed = {0, 0, 0, 0};
    EXPECT_EQ(Compress(spread, spreadSeed, 3).bytes, (Bytes{0x00, 1, 0x21, 1, 1}));
    const Bytes longer = {1, 2, 3, 4, 5, 6, 7, 8, 9};  // 8 + 1 replaced: 11 bytes for 9
    EXPECT_EQ(Compress(longer, Bytes(9, 0), 3).mode, 0);
}

std::string Raw(std::initializer_list<int> bytes) {
    std::string s;
    for (int b : bytes) {
        s.push_back(static_cast<char>(b));
    }
    return s;
}

const std::string kRgbHeaderTail = "\x1b*v6W" + Raw({0, 3, 0, 8, 8, 8}) + "\x1b*r3A";

struct Plot {
    Plot() {
        g.Begin(FormParameters(210, 297, 1));
        g.Take();
    }
    HPGL2Peer g;
};

VRKPixelImage* Grey(int w, int h, const std::vector<unsigned char>& pixels) {
    return VRKPixelImage::CreateFromData(w, h, VRKPixelImage::kGrey8, pixels.data(),
                                         static_cast<std::size_t>(w));
}

TEST(Raster, GreyRowIsMirroredAndExpanded) {
    Plot p;
    VRKPixelImage* image = Grey(2, 1, {10, 20});
    p.g.DrawBitmap(0, 0, 0, image);
    image->Release();
    EXPECT_BYTES("PU20,0\x1b%1A\x1b*p0P\x1b*r2s1T\x1b*t14h7V" + kRgbHeaderTail +
                     "\x1b*v1N\x1b*b0M"
                     "\x1b*b6W" +
                     Raw({20, 20, 20, 10, 10, 10}) + "\x1b*rC\x1b*p1P\x1b%0B",
                 p.g.Take());
}

TEST(Raster, EqualRowsGiveEmptyDeltas) {
    Plot p;
    VRKPixelImage* image = Grey(2, 3, {10, 20, 10, 20, 10, 20});
    p.g.DrawBitmap(0, 0, 0, image);
    image->Release();
    const std::string out = p.g.Take();
    const std::string rows = "\x1b*b6W" + Raw({20, 20, 20, 10, 10, 10}) + "\x1b*b3m0W\x1b*b0W";
    EXPECT_NE(out.find(rows + "\x1b*rC"), std::string::npos) << Printable(out);
}

TEST(Raster, AllZeroFirstRowIsAnEmptyDeltaWithTheModeSwitch) {
    Plot p;
    VRKPixelImage* image = Grey(3, 1, {0, 0, 0});
    p.g.DrawBitmap(0, 0, 0, image);
    image->Release();
    EXPECT_NE(p.g.Take().find("\x1b*b0M\x1b*b3m0W\x1b*rC"), std::string::npos);
}

TEST(Raster, PositionAndOriginOffset) {
    Plot p;
    p.g.originOffsetX = 10.0f;
    p.g.originOffsetY = -5.0f;
    VRKPixelImage* image = Grey(4, 2, {0, 0, 0, 0, 0, 0, 0, 0});
    image->SetPixelSize(1.0f, 2.0f);
    p.g.DrawBitmap(10, 20, 0, image);
    image->Release();
    // X = (10 + 4 * 1) * 40 + 10, Y = -5 + 20 * 40; 4 mm = 113.38 decipoints, 4 mm again.
    EXPECT_EQ(p.g.Take().substr(0, 36), "PU570,795\x1b%1A\x1b*p0P\x1b*r4s2T\x1b*t113h113V");
}

TEST(Raster, PositionAndSizesBeyondTheIntegersHoldAtTheirLimits) {
    Plot p;
    VRKPixelImage* image = Grey(4, 2, {0, 0, 0, 0, 0, 0, 0, 0});
    image->SetPixelSize(1.0f, 2.0f);
    p.g.DrawBitmap(1e30f, -1e30f, 0, image);
    image->Release();
    const std::string far =
        "PU9223372036854775807,-9223372036854775808\x1b%1A\x1b*p0P\x1b*r4s2T\x1b*t113h113V";
    EXPECT_BYTES(far, p.g.Take().substr(0, far.size()));
    // Pixels of infinite size: one tile per pixel, each as large as a long long allows.
    VRKPixelImage* huge = Grey(1, 1, {0});
    huge->SetPixelSize(3e38f, 3e38f);
    p.g.DrawBitmap(0, 0, 0, huge);
    huge->Release();
    const std::string large =
        "PU9223372036854775807,0\x1b%1A\x1b*p0P\x1b*r1s1T"
        "\x1b*t9223372036854775807h9223372036854775807V";
    EXPECT_BYTES(large, p.g.Take().substr(0, large.size()));
}

TEST(Raster, TransparencyModes) {
    const unsigned char rgba[] = {1, 2, 3, 0, 4, 5, 6, 255};
    const unsigned char rgb[] = {1, 2, 3, 4, 5, 6};
    VRKPixelImage* withAlpha =
        VRKPixelImage::CreateFromData(2, 1, VRKPixelImage::kRGBA8, rgba, sizeof rgba);
    VRKPixelImage* opaque = VRKPixelImage::CreateFromData(2, 1, VRKPixelImage::kRGB8, rgb, 6);
    Plot p;
    p.g.DrawBitmap(0, 0, 0, withAlpha);
    const std::string a = p.g.Take();
    p.g.DrawBitmap(0, 0, 0, opaque);
    const std::string b = p.g.Take();
    withAlpha->Release();
    opaque->Release();
    EXPECT_NE(a.find("\x1b*v0N"), std::string::npos);
    // The transparent pixel became white; the row is mirrored.
    EXPECT_NE(a.find("\x1b*b6W" + Raw({4, 5, 6, 255, 255, 255})), std::string::npos)
        << Printable(a);
    EXPECT_NE(b.find("\x1b*v1N"), std::string::npos);
    EXPECT_NE(b.find("\x1b*b6W" + Raw({4, 5, 6, 1, 2, 3})), std::string::npos) << Printable(b);
}

TEST(Raster, OneBitImagesAreTurnedAndSentRaw) {
    // 10 pixels wide: 2 bytes a row. Row 0: first pixel black only; row 1: last pixel black only
    // (a set bit is ink).
    const unsigned char bits[] = {0x80, 0x00, 0x00, 0x40};
    VRKPixelImage* image = VRKPixelImage::CreateFromData(10, 2, VRKPixelImage::kMono1, bits, 2);
    Plot p;
    p.g.DrawBitmap(0, 0, 0, image);
    image->Release();
    const std::string out = p.g.Take();
    EXPECT_EQ(out.find("\x1b*p0P"), std::string::npos);
    EXPECT_EQ(out.find("\x1b*p1P"), std::string::npos);
    // Each row mirrored, top row first: row 0's black pixel moves to the end, row 1's to the start.
    EXPECT_NE(out.find("\x1b*r3A\x1b*b0M\x1b*b2W" + Raw({0x00, 0x40}) + "\x1b*b2W" +
                       Raw({0x80, 0x00}) + "\x1b*rC\x1b%0B"),
              std::string::npos)
        << Printable(out);
}

TEST(Raster, UnsupportedFormatHasHeaderAndCloseOnly) {
    VRKPixelImage* image = VRKPixelImage::Create(3, 2, VRKPixelImage::kUnsupported);
    ASSERT_NE(image, nullptr);
    Plot p;
    p.g.DrawBitmap(0, 0, 0, image);
    image->Release();
    EXPECT_BYTES("PU30,0\x1b%1A\x1b*p0P\x1b*r3s2T\x1b*t21h14V" + kRgbHeaderTail +
                     "\x1b*v1N\x1b*b0M\x1b*rC\x1b*p1P\x1b%0B",
                 p.g.Take());
}

TEST(Raster, ClosesAnOpenPolylineAndNothingInHPGL) {
    Plot p;
    p.g.LineTo(0, 0);
    VRKPixelImage* image = Grey(1, 1, {0});
    p.g.DrawBitmap(0, 0, 0, image);
    EXPECT_EQ(p.g.Take().substr(0, 8), "PE=\xBF\xBF;PU");
    p.g.DrawBitmap(0, 0, 0, nullptr);
    EXPECT_EQ(p.g.Take(), "");
    HPGL2Peer hpgl;
    hpgl.UseHPGL();
    hpgl.DrawBitmap(0, 0, 0, image);
    EXPECT_EQ(hpgl.Take(), "");
    image->Release();
}

TEST(Raster, WidthZeroIsOneTileWithoutRows) {
    for (int format : {0, 2, 3, 4}) {
        VRKPixelImage* image = VRKPixelImage::Create(0, 3, format);
        ASSERT_NE(image, nullptr) << format;
        Plot p;
        p.g.DrawBitmap(0, 0, 0, image);
        image->Release();
        const std::string out = p.g.Take();
        EXPECT_EQ(out.find("\x1b*b", out.find("\x1b*b0M") + 5), std::string::npos)
            << Printable(out);
        const std::string head =
            "PU0,0\x1b%1A" + std::string(format == 4 ? "\x1b*r0s3T" : "\x1b*p0P\x1b*r0s3T");
        const std::string tail =
            format == 4 ? "\x1b*b0M\x1b*rC\x1b%0B" : "\x1b*b0M\x1b*rC\x1b*p1P\x1b%0B";
        EXPECT_EQ(out.substr(0, head.size()), head);
        EXPECT_EQ(out.substr(out.size() - tail.size()), tail);
    }
}

TEST(Raster, ExactlyTheLargestWidthMakesTwoTiles) {
    // 2 * 577.975 mm = 1155.95 mm = 32767.0x decipoints.
    VRKPixelImage* image = Grey(2, 1, {1, 2});
    image->SetPixelSize(577.975f, 0.254f);
    Plot p;
    p.g.DrawBitmap(0, 0, 0, image);
    image->Release();
    const std::string out = p.g.Take();
    std::size_t tiles = 0;
    for (std::size_t at = out.find("\x1b*r1s1T"); at != std::string::npos;
         at = out.find("\x1b*r1s1T", at + 1)) {
        ++tiles;
    }
    EXPECT_EQ(tiles, 2u) << Printable(out);
    // The second tile starts one pixel to the right: its right edge is 2 pixels from x. Both
    // edges truncate: 577.975f * 40 is 23118.99...
    EXPECT_EQ(out.substr(0, 9), "PU23118,0");
    EXPECT_NE(out.find("\x1b%0BPU46237,0"), std::string::npos) << Printable(out);
}

TEST(Raster, TilesCoverTheWholeImage) {
    std::vector<unsigned char> pixels(5 * 3);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = static_cast<unsigned char>(i + 1);
    }
    VRKPixelImage* image = Grey(5, 3, pixels);
    image->SetPixelSize(300.0f, 400.0f);  // 1500 mm by 1200 mm: 2 tiles across, 2 down
    Plot p;
    p.g.DrawBitmap(0, 0, 0, image);
    image->Release();
    const std::string out = p.g.Take();
    // Columns of 2, 2 and 1 pixels; rows of 1, 1 and 1.
    std::size_t tiles = 0;
    for (std::size_t at = out.find("\x1b*r"); at != std::string::npos;
         at = out.find("\x1b*r", at + 1)) {
        if (out.compare(at, 4, "\x1b*rC") != 0 && out.compare(at, 4, "\x1b*r3") != 0) {
            ++tiles;
        }
    }
    EXPECT_EQ(tiles, 9u);
}

// Decodes the RGB rows of one raster back into mirrored-back rows.
std::vector<Bytes> DecodeRows(const std::string& out, std::size_t rowBytes) {
    std::vector<Bytes> rows;
    Bytes seed(rowBytes, 0);
    int mode = 0;
    std::size_t at = out.find("\x1b*b0M");
    at += 5;
    while (out.compare(at, 3, "\x1b*b") == 0) {
        at += 3;
        std::size_t end;
        long value = std::stol(out.substr(at), &end);
        at += end;
        if (out[at] == 'm') {
            mode = static_cast<int>(value);
            ++at;
            value = std::stol(out.substr(at), &end);
            at += end;
        }
        EXPECT_EQ(out[at], 'W');
        ++at;
        const std::string data = out.substr(at, static_cast<std::size_t>(value));
        at += static_cast<std::size_t>(value);
        Bytes row = seed;
        if (mode == 0) {
            row.assign(data.begin(), data.end());
        } else {
            std::size_t i = 0, pos = 0;
            while (i < data.size()) {
                const auto command = static_cast<unsigned char>(data[i++]);
                std::size_t count = (command >> 5) + 1;
                std::size_t offset = command & 31;
                if (offset == 31) {
                    unsigned char more;
                    do {
                        more = static_cast<unsigned char>(data[i++]);
                        offset += more;
                    } while (more == 255);
                }
                pos += offset;
                for (; count > 0; --count) {
                    row[pos++] = static_cast<unsigned char>(data[i++]);
                }
            }
        }
        seed = row;
        rows.push_back(row);
    }
    return rows;
}

TEST(Raster, RandomImagesComeBackExactly) {
    std::mt19937 random(1234);
    for (int format : {0, 2, 3}) {
        for (int trial = 0; trial < 20; ++trial) {
            const int w = 1 + static_cast<int>(random() % 60);
            const int h = 1 + static_cast<int>(random() % 8);
            const std::size_t channels = format == 0 ? 1 : format == 2 ? 3 : 4;
            std::vector<unsigned char> pixels(static_cast<std::size_t>(w * h) * channels);
            // Rows that repeat in part, so that both modes occur.
            for (std::size_t i = 0; i < pixels.size(); ++i) {
                pixels[i] = static_cast<unsigned char>(random() % 4 == 0 ? random() % 256 : 7);
            }
            if (format == 3) {
                for (std::size_t i = 3; i < pixels.size(); i += 4) {
                    pixels[i] = random() % 3 == 0 ? 0 : 255;
                }
            }
            VRKPixelImage* image = VRKPixelImage::CreateFromData(
                w, h, format, pixels.data(), static_cast<std::size_t>(w) * channels);
            Plot p;
            p.g.DrawBitmap(0, 0, 0, image);
            image->Release();
            const std::vector<Bytes> rows = DecodeRows(p.g.Take(), 3 * static_cast<std::size_t>(w));
            ASSERT_EQ(rows.size(), static_cast<std::size_t>(h));
            for (int y = 0; y < h; ++y) {
                for (int x = 0; x < w; ++x) {
                    const unsigned char* px =
                        &pixels[(static_cast<std::size_t>(y * w + x)) * channels];
                    const std::size_t m = 3 * static_cast<std::size_t>(w - 1 - x);
                    for (int c = 0; c < 3; ++c) {
                        unsigned char expected = format == 0 ? px[0] : px[c];
                        if (format == 3 && px[3] == 0) {
                            expected = 255;
                        }
                        ASSERT_EQ(
                            rows[static_cast<std::size_t>(y)][m + static_cast<std::size_t>(c)],
                            expected)
                            << "format " << format << " x " << x << " y " << y;
                    }
                }
            }
        }
    }
}

}  // namespace
