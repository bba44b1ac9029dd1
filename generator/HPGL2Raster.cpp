// Raster images: the plotter leaves HP-GL/2 for PCL, receives the image as 24-bit RGB rows
// (delta-row compressed where that pays) and comes back. Large images go in tiles, because a PCL
// destination size must stay below 32767 decipoints.

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "generator/DeltaRowCompression.h"
#include "generator/HPGL2Writer.h"
#include "generator/PCLEscapes.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPixelImage.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKSaturatingTrunc.h"

namespace {

// Millimetres in a decipoint (1/720 inch), as the plotter has always been given it.
constexpr double kMillimetresPerDecipoint = 0.035277776;
constexpr int kLargestDestination = 32767;

// Releases an image of the host's object model when it goes out of scope.
struct ImageReference {
    VRKPixelImage* image;
    ~ImageReference() {
        if (image != nullptr) {
            image->Release();
        }
    }
};

// How many tiles an extent of `pixels` of `size` millimetres needs.
int tileCount(int pixels, float size) {
    const int decipoints = VRKSaturatingTrunc<int>(size * pixels / -kMillimetresPerDecipoint);
    return 1 - decipoints / kLargestDestination;
}

}  // namespace

void VRKPrintHPGL2Generator::DrvDrawBitmap(float x, float y, const VRKPixelImage* image) {
    if (isHPGL() || image == nullptr) {
        return;
    }
    closeEncodedPolyline();
    const int w = image->GetWidth();
    const int h = image->GetHeight();
    const float pw = image->GetPixelWidth();
    const float ph = image->GetPixelHeight();
    const int tx = tileCount(w, pw);
    const int ty = tileCount(h, ph);
    if (tx < 2 && ty < 2) {
        writeRaster(x, y, *image);
        return;
    }
    const int tileWidth = std::max(w / tx, 1);
    const int tileHeight = std::max(h / ty, 1);
    // Column by column; the last column and row take what is left of the image.
    for (int left = 0; left < w; left += tileWidth) {
        for (int top = 0; top < h; top += tileHeight) {
            ImageReference tile{image->GetSubImage(left, top, tileWidth, tileHeight)};
            if (tile.image != nullptr) {
                writeRaster(x + static_cast<float>(left) * pw, y + static_cast<float>(top) * ph,
                            *tile.image);
            }
        }
    }
}

void VRKPrintHPGL2Generator::writeRaster(float x, float y, const VRKPixelImage& image) {
    VRKPrintStream& s = out();
    const int w = image.GetWidth();
    const int h = image.GetHeight();
    const float pw = image.GetPixelWidth();
    const float ph = image.GetPixelHeight();
    const int format = image.GetFormat();
    const bool mono = format == VRKPixelImage::kMono1;

    // The pen goes to the image's right-hand edge: PCL places the picture from there in the
    // plotter's turned coordinates.
    HPGL2Writer::PenUp(s, VRKSaturatingTrunc<long long>((x + w * pw) * 40.0 + originOffsetX),
                       VRKSaturatingTrunc<long long>(originOffsetY + y * 40.0));
    s.Write(PCLEscapes::kEnterPCLAtPen);
    if (!mono) {
        s.Write(PCLEscapes::kPushPalette);
    }
    // Source size in pixels, destination size in decipoints.
    PCLEscapes::SourceSize(s, w, h);
    PCLEscapes::DestinationSize(s, VRKSaturatingTrunc<long long>(w * pw / kMillimetresPerDecipoint),
                                VRKSaturatingTrunc<long long>(h * ph / kMillimetresPerDecipoint));
    if (!mono) {
        s.Write(PCLEscapes::kConfigureImageData);
        s.WriteBytes(PCLEscapes::kDirectRgb24, sizeof PCLEscapes::kDirectRgb24);
        s.Write(PCLEscapes::kStartRaster);
        // White source pixels are transparent for RGBA images, opaque for the others.
        s.Write(format == VRKPixelImage::kRGBA8 ? PCLEscapes::kTransparentWhite
                                                : PCLEscapes::kOpaqueWhite);
    } else {
        s.Write(PCLEscapes::kStartRaster);
    }
    s.Write(PCLEscapes::kUncompressed);

    switch (format) {
        case VRKPixelImage::kGrey8:
        case VRKPixelImage::kRGB8:
            writeRgbRows(image);
            break;
        case VRKPixelImage::kRGBA8: {
            // Transparent pixels become white, which the v0N source transparency leaves unprinted.
            ImageReference opaque{image.GetSubImage(0, 0, w, h)};
            if (opaque.image != nullptr) {
                opaque.image->ChangeTransparencyToColor(255, 255, 255);
                ImageReference rgb{opaque.image->ConvertToRGB()};
                if (rgb.image != nullptr) {
                    writeRgbRows(*rgb.image);
                }
            }
            break;
        }
        case VRKPixelImage::kMono1: {
            // Rows of the image turned by 180 degrees, from its last to its first: the original
            // rows top to bottom, each mirrored, as the turned coordinates want them.
            ImageReference turned{image.CreateRotated180()};
            if (turned.image != nullptr && w > 0) {
                const long long bytes = (static_cast<long long>(w) + 7) / 8;
                for (int row = h - 1; row >= 0; --row) {
                    PCLEscapes::TransferRow(s, turned.image->GetRow(row),
                                            static_cast<std::size_t>(bytes));
                }
            }
            break;
        }
        default:
            break;  // no rows for a format without data
    }

    s.Write(PCLEscapes::kEndRaster);
    if (!mono) {
        s.Write(PCLEscapes::kPopPalette);
    }
    s.Write(PCLEscapes::kEnterHPGL2);
}

void VRKPrintHPGL2Generator::writeRgbRows(const VRKPixelImage& image) {
    const int w = image.GetWidth();
    const int h = image.GetHeight();
    if (w < 1 || h < 1) {
        return;
    }
    const std::size_t rowBytes = 3 * static_cast<std::size_t>(w);
    std::unique_ptr<unsigned char[]> row(new (std::nothrow) unsigned char[rowBytes]);
    std::unique_ptr<unsigned char[]> seed(new (std::nothrow) unsigned char[rowBytes]());
    std::unique_ptr<unsigned char[]> packed(new (std::nothrow) unsigned char[2 * rowBytes + 128]);
    if (row == nullptr || seed == nullptr || packed == nullptr) {
        return;  // the caller still closes the raster
    }
    const bool grey = image.GetFormat() == VRKPixelImage::kGrey8;
    VRKPrintStream& s = out();
    int lastMode = 0;
    for (int y = 0; y < h; ++y) {
        const unsigned char* pixels = image.GetRow(y);
        if (pixels == nullptr) {
            break;
        }
        // Pixels from the last to the first: the turned coordinates mirror every row.
        unsigned char* o = row.get();
        for (int x = w - 1; x >= 0; --x) {
            if (grey) {
                o[0] = o[1] = o[2] = pixels[x];
            } else {
                o[0] = pixels[3 * x];
                o[1] = pixels[3 * x + 1];
                o[2] = pixels[3 * x + 2];
            }
            o += 3;
        }
        std::size_t length = rowBytes;
        const int mode = compressDeltaRow(row.get(), packed.get(), seed.get(), length, lastMode);
        if (mode != lastMode) {
            PCLEscapes::TransferRow(s, mode, packed.get(), length);
            lastMode = mode;
        } else {
            PCLEscapes::TransferRow(s, packed.get(), length);
        }
        std::memcpy(seed.get(), row.get(), rowBytes);
    }
}
