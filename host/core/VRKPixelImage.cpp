#include "host/core/VRKPixelImage.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

VRK_DEFINE_CLASS(VRKPixelImage, VRKBaseUnknown, "VRKNull", "System")

namespace {

bool isKnownFormat(int format) {
    return format == VRKPixelImage::kGrey8 || format == VRKPixelImage::kUnsupported ||
           format == VRKPixelImage::kRGB8 || format == VRKPixelImage::kRGBA8 ||
           format == VRKPixelImage::kMono1;
}

// Bytes of one pixel in the byte-aligned formats.
std::size_t bytesPerPixel(int format) {
    switch (format) {
        case VRKPixelImage::kGrey8:
            return 1;
        case VRKPixelImage::kRGB8:
            return 3;
        case VRKPixelImage::kRGBA8:
            return 4;
        default:
            return 0;
    }
}

}  // namespace

std::size_t VRKPixelImage::BytesPerRow(int format, int width) {
    if (width < 1) {
        return 0;
    }
    const auto w = static_cast<std::size_t>(width);
    if (format == kMono1) {
        return (w + 7) / 8;
    }
    return w * bytesPerPixel(format);
}

VRKPixelImage::VRKPixelImage(int width, int height, int format, float pixelWidth, float pixelHeight)
    : width_(width),
      height_(height),
      format_(format),
      bytesPerRow_(BytesPerRow(format, width)),
      pixelWidth_(pixelWidth),
      pixelHeight_(pixelHeight) {}

bool VRKPixelImage::Allocate() {
    // The unsupported format has no rows, and an empty image (no columns or no rows) no pixels.
    if (format_ == kUnsupported || width_ == 0 || height_ == 0) {
        return true;
    }
    const auto rows = static_cast<std::size_t>(height_);
    if (bytesPerRow_ == 0 || bytesPerRow_ > std::numeric_limits<std::ptrdiff_t>::max() / rows) {
        return false;
    }
    try {
        pixels_.assign(bytesPerRow_ * rows, 0);
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
    return true;
}

VRKPixelImage* VRKPixelImage::Create(int width, int height, int format, float pixelWidth,
                                     float pixelHeight) {
    if (width < 0 || height < 0 || !isKnownFormat(format)) {
        return nullptr;
    }
    auto* image = new (std::nothrow) VRKPixelImage(width, height, format, pixelWidth, pixelHeight);
    if (image == nullptr) {
        return nullptr;
    }
    if (!image->Allocate()) {
        image->Release();
        return nullptr;
    }
    return image;
}

VRKPixelImage* VRKPixelImage::CreateFromData(int width, int height, int format, const void* data,
                                             std::size_t stride, float pixelWidth,
                                             float pixelHeight) {
    const std::size_t rowBytes = BytesPerRow(format, width);
    if (format != kUnsupported && rowBytes > 0 && height > 0 &&
        (data == nullptr || stride < rowBytes)) {
        return nullptr;
    }
    VRKPixelImage* image = Create(width, height, format, pixelWidth, pixelHeight);
    if (image == nullptr || format == kUnsupported) {
        return image;
    }
    const auto* source = static_cast<const unsigned char*>(data);
    for (int y = 0; y < height; ++y) {
        std::memcpy(image->GetRow(y), source + static_cast<std::size_t>(y) * stride, rowBytes);
    }
    if (format == kMono1 && width % 8 != 0) {
        // Keep the padding bits clear whatever the caller's memory held there.
        const auto mask = static_cast<unsigned char>(0xFF << (8 - width % 8));
        for (int y = 0; y < height; ++y) {
            image->GetRow(y)[rowBytes - 1] &= mask;
        }
    }
    return image;
}

VRKPixelImage* VRKPixelImage::CreateStreamed(int width, int height, int format,
                                             VRKPixelRowSource* source, float pixelWidth,
                                             float pixelHeight) {
    std::unique_ptr<VRKPixelRowSource> owned(source);
    if (owned == nullptr || width < 0 || height < 0 || !isKnownFormat(format) ||
        format == kUnsupported) {
        return nullptr;
    }
    auto* image = new (std::nothrow) VRKPixelImage(width, height, format, pixelWidth, pixelHeight);
    if (image == nullptr) {
        return nullptr;
    }
    if (width > 0 && height > 0) {
        try {
            image->streamRow_.assign(image->bytesPerRow_, 0);
        } catch (const std::bad_alloc&) {
            image->Release();
            return nullptr;
        }
        image->source_ = std::move(owned);
    }
    return image;
}

const unsigned char* VRKPixelImage::StreamRow(int y) const {
    if (y < rowsRead_ - 1) {
        if (!source_->Rewind()) {
            return nullptr;
        }
        rowsRead_ = 0;
    }
    while (rowsRead_ <= y) {
        if (!source_->NextRow(streamRow_.data())) {
            // The source is lost; the next call starts it again.
            rowsRead_ = std::numeric_limits<int>::max();
            return nullptr;
        }
        ++rowsRead_;
    }
    return streamRow_.data();
}

bool VRKPixelImage::Materialize() {
    if (!Allocate()) {
        return false;
    }
    for (int y = 0; y < height_; ++y) {
        const unsigned char* row = StreamRow(y);
        if (row == nullptr) {
            pixels_.clear();
            return false;
        }
        std::memcpy(pixels_.data() + static_cast<std::size_t>(y) * bytesPerRow_, row, bytesPerRow_);
    }
    source_.reset();
    streamRow_ = {};
    return true;
}

unsigned char* VRKPixelImage::GetRow(int y) {
    if (source_ != nullptr && (y < 0 || y >= height_ || !Materialize())) {
        return nullptr;
    }
    if (y < 0 || y >= height_ || pixels_.empty()) {
        return nullptr;
    }
    return pixels_.data() + static_cast<std::size_t>(y) * bytesPerRow_;
}

const unsigned char* VRKPixelImage::GetRow(int y) const {
    if (source_ != nullptr) {
        return y < 0 || y >= height_ ? nullptr : StreamRow(y);
    }
    if (y < 0 || y >= height_ || pixels_.empty()) {
        return nullptr;
    }
    return pixels_.data() + static_cast<std::size_t>(y) * bytesPerRow_;
}

bool VRKPixelImage::GetBit(int x, int y) const {
    const unsigned char* row = GetRow(y);
    return (row[x >> 3] & (0x80u >> (x & 7))) != 0;
}

void VRKPixelImage::SetBit(int x, int y, bool set) {
    unsigned char* row = GetRow(y);
    const auto bit = static_cast<unsigned char>(0x80u >> (x & 7));
    if (set) {
        row[x >> 3] |= bit;
    } else {
        row[x >> 3] &= static_cast<unsigned char>(~bit);
    }
}

VRKPixelImage* VRKPixelImage::GetSubImage(int x, int y, int w, int h) const {
    if (format_ == kUnsupported || w < 1 || h < 1) {
        return nullptr;
    }
    // Clip in 64 bits: x + w may not fit an int.
    const long long left = std::max<long long>(x, 0);
    const long long top = std::max<long long>(y, 0);
    const long long right = std::min<long long>(static_cast<long long>(x) + w, width_);
    const long long bottom = std::min<long long>(static_cast<long long>(y) + h, height_);
    if (left >= right || top >= bottom) {
        return nullptr;
    }
    const int cx = static_cast<int>(left), cy = static_cast<int>(top);
    const int cw = static_cast<int>(right - left), ch = static_cast<int>(bottom - top);
    VRKPixelImage* sub = Create(cw, ch, format_, pixelWidth_, pixelHeight_);
    if (sub == nullptr) {
        return nullptr;
    }
    if (format_ == kMono1) {
        for (int row = 0; row < ch; ++row) {
            for (int col = 0; col < cw; ++col) {
                sub->SetBit(col, row, GetBit(cx + col, cy + row));
            }
        }
        return sub;
    }
    const std::size_t pixel = bytesPerPixel(format_);
    for (int row = 0; row < ch; ++row) {
        std::memcpy(sub->GetRow(row), GetRow(cy + row) + static_cast<std::size_t>(cx) * pixel,
                    sub->bytesPerRow_);
    }
    return sub;
}

VRKPixelImage* VRKPixelImage::CreateRotated180() const {
    if (format_ == kUnsupported) {
        return nullptr;
    }
    VRKPixelImage* turned = Create(width_, height_, format_, pixelWidth_, pixelHeight_);
    if (turned == nullptr) {
        return nullptr;
    }
    for (int y = 0; y < height_; ++y) {
        const int ty = height_ - 1 - y;
        if (format_ == kMono1) {
            for (int x = 0; x < width_; ++x) {
                turned->SetBit(width_ - 1 - x, ty, GetBit(x, y));
            }
            continue;
        }
        const std::size_t pixel = bytesPerPixel(format_);
        const unsigned char* from = GetRow(y);
        unsigned char* to = turned->GetRow(ty) + bytesPerRow_ - pixel;
        for (int x = 0; x < width_; ++x, from += pixel, to -= pixel) {
            std::memcpy(to, from, pixel);
        }
    }
    return turned;
}

VRKPixelImage* VRKPixelImage::ConvertToRGB() const {
    if (format_ == kUnsupported) {
        return nullptr;
    }
    VRKPixelImage* rgb = Create(width_, height_, kRGB8, pixelWidth_, pixelHeight_);
    if (rgb == nullptr) {
        return nullptr;
    }
    for (int y = 0; y < height_; ++y) {
        const unsigned char* from = GetRow(y);
        unsigned char* to = rgb->GetRow(y);
        for (int x = 0; x < width_; ++x, to += 3) {
            switch (format_) {
                case kGrey8:
                    to[0] = to[1] = to[2] = from[x];
                    break;
                case kMono1:
                    to[0] = to[1] = to[2] = GetBit(x, y) ? 0 : 255;  // a set bit is ink
                    break;
                case kRGB8:
                    std::memcpy(to, from + 3 * static_cast<std::size_t>(x), 3);
                    break;
                default:  // kRGBA8
                    std::memcpy(to, from + 4 * static_cast<std::size_t>(x), 3);
                    break;
            }
        }
    }
    return rgb;
}

void VRKPixelImage::ChangeTransparencyToColor(unsigned char r, unsigned char g, unsigned char b) {
    if (format_ != kRGBA8) {
        return;
    }
    const unsigned background[3] = {r, g, b};
    for (int y = 0; y < height_; ++y) {
        unsigned char* p = GetRow(y);
        for (int x = 0; x < width_; ++x, p += 4) {
            const unsigned a = p[3];
            if (a == 255) {
                continue;
            }
            for (int c = 0; c < 3; ++c) {
                // At most 255 * 255 + 127: no overflow, and a == 0 gives the background exactly.
                const unsigned mixed = p[c] * a + background[c] * (255 - a);
                p[c] = static_cast<unsigned char>((mixed + 127) / 255);
            }
            p[3] = 255;
        }
    }
}
