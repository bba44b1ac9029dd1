#include "host/image/VRKPngFile.h"

#include <cerrno>
#include <climits>
#include <csetjmp>
#include <cstring>

#include "host/image/VRKPngReader.h"

// libpng reports errors through a callback that must not return. It leaves with png_longjmp()
// back to the setjmp() in the decoding functions below; nothing between that setjmp() and the
// callback (libpng's own frames, the callbacks below) owns anything with a destructor, and the
// decoding functions below keeps everything it needs after the jump in the ReadState that the file
// owns, so the jump skips no clean-up and reads no clobbered local.

namespace {

// Reads exactly `length` bytes; false at the end of the data. A file read error leaves errno.
bool readBytes(VRKPngFile::Source& source, unsigned char* out, std::size_t length, bool& failed) {
    failed = false;
    if (source.file != nullptr) {
        const std::size_t n = std::fread(out, 1, length, source.file);
        if (n != length) {
            failed = std::ferror(source.file) != 0;
            return false;
        }
        return true;
    }
    if (length > source.size - source.offset) {
        return false;
    }
    std::memcpy(out, source.data + source.offset, length);
    source.offset += length;
    return true;
}

[[noreturn]] void onError(png_structp png, png_const_charp message) {
    auto* state = static_cast<VRKPngFile::ReadState*>(png_get_error_ptr(png));
    std::snprintf(state->message, sizeof state->message, "%s",
                  message != nullptr ? message : "libpng error");
    png_longjmp(png, 1);
}

void onWarning(png_structp /*png*/, png_const_charp /*message*/) {
    // Warnings concern ancillary chunks that libpng skips; the image itself is fine.
}

void onRead(png_structp png, png_bytep out, png_size_t length) {
    auto* state = static_cast<VRKPngFile::ReadState*>(png_get_io_ptr(png));
    bool failed = false;
    if (!readBytes(*state->source, out, length, failed)) {
        if (failed) {
            png_error(png, std::strerror(errno));
        }
        png_error(png, "the file ends before the image does");
    }
}

// Sets up libpng's transformations for the file's colour type and returns the pixel format that
// results.
int chooseFormat(png_structp png, png_infop info) {
    const int colorType = png_get_color_type(png, info);
    const int depth = png_get_bit_depth(png, info);
    const bool transparency = png_get_valid(png, info, PNG_INFO_tRNS) != 0;
    int format = VRKPixelImage::kUnsupported;
    switch (colorType) {
        case PNG_COLOR_TYPE_PALETTE:
            png_set_palette_to_rgb(png);
            format = VRKPixelImage::kRGB8;
            break;
        case PNG_COLOR_TYPE_GRAY:
            if (transparency) {
                png_set_expand_gray_1_2_4_to_8(png);
                png_set_gray_to_rgb(png);
                format = VRKPixelImage::kRGB8;
            } else if (depth == 1) {
                // The file's bit is the grey level (1 white); the image's is ink (1 black).
                png_set_invert_mono(png);
                format = VRKPixelImage::kMono1;
            } else {
                if (depth < 8) {
                    png_set_expand_gray_1_2_4_to_8(png);
                }
                format = VRKPixelImage::kGrey8;
            }
            break;
        case PNG_COLOR_TYPE_GRAY_ALPHA:
            png_set_gray_to_rgb(png);
            format = VRKPixelImage::kRGBA8;
            break;
        case PNG_COLOR_TYPE_RGB:
            format = VRKPixelImage::kRGB8;
            break;
        case PNG_COLOR_TYPE_RGB_ALPHA:
            format = VRKPixelImage::kRGBA8;
            break;
        default:
            png_error(png, "unknown colour type");
    }
    if (transparency) {
        png_set_tRNS_to_alpha(png);
        format = VRKPixelImage::kRGBA8;
    }
    if (depth == 16) {
        png_set_scale_16(png);
    }
    return format;
}

// Bounds what the chunks of a file can make libpng allocate: a chunk announces its length before
// its data, and text or profile chunks are read whole into memory. Real text and colour-profile
// chunks are a few kilobytes.
// The chunks the reader does not use (everything but the image header, palette, data,
// transparency and pixel size) are skipped unread as they stream past: libpng then neither
// allocates their announced length nor keeps them.
void limitChunks(png_structp png) {
    png_set_chunk_malloc_max(png, VRKPngReader::kMaxChunkBytes);
    png_set_chunk_cache_max(png, VRKPngReader::kMaxStoredChunks);
    static constexpr png_byte kSkipped[] =
        "bKGD\0cHRM\0eXIf\0gAMA\0hIST\0iCCP\0iTXt\0oFFs\0pCAL\0"
        "sBIT\0sCAL\0sPLT\0sRGB\0tEXt\0tIME\0zTXt";
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, 0);
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, kSkipped,
                                static_cast<int>(sizeof kSkipped / 5));
}

// Reads the header and sets up the transformations. Runs under libpng's error handling: false
// after a libpng error, with the message in state->message.
bool readHeader(png_structp png, png_infop info, VRKPngFile::Header* header) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_read_info(png, info);
    const png_uint_32 width = png_get_image_width(png, info);
    const png_uint_32 height = png_get_image_height(png, info);
    const int format = chooseFormat(png, info);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);

    if (width > INT_MAX || height > INT_MAX) {
        png_error(png, "image too large");
    }
    const std::size_t rowBytes = VRKPixelImage::BytesPerRow(format, static_cast<int>(width));
    if (png_get_rowbytes(png, info) != rowBytes) {
        png_error(png, "unexpected row layout after conversion");
    }
    if (rowBytes > VRKPngReader::kMaxImageBytes / height) {
        png_error(png, "image too large");
    }
    header->width = static_cast<int>(width);
    header->height = static_cast<int>(height);
    header->format = format;
    header->passes = passes;
    header->rowBytes = rowBytes;

    png_uint_32 resX = 0, resY = 0;
    int unit = PNG_RESOLUTION_UNKNOWN;
    if (png_get_pHYs(png, info, &resX, &resY, &unit) != 0 && unit == PNG_RESOLUTION_METER &&
        resX > 0 && resY > 0) {
        header->pixelWidth = static_cast<float>(1000.0 / resX);
        header->pixelHeight = static_cast<float>(1000.0 / resY);
    }
    return true;
}

// Decodes the rows into a new image (left in state->image, which the caller releases even after
// an error). Runs under libpng's error handling.
bool decodeRows(png_structp png, VRKPngFile::ReadState* state, const VRKPngFile::Header* header) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    state->image = VRKPixelImage::Create(header->width, header->height, header->format,
                                         header->pixelWidth, header->pixelHeight);
    if (state->image == nullptr) {
        png_error(png, "out of memory");
    }
    // An interlaced file comes in several passes over the same rows; each pass adds its pixels
    // to what the earlier ones left in the row.
    for (int pass = 0; pass < header->passes; ++pass) {
        for (int y = 0; y < header->height; ++y) {
            png_read_row(png, state->image->GetRow(y), nullptr);
        }
    }
    png_read_end(png, nullptr);
    return true;
}

// Decodes `count` rows of a file that is not interlaced into `row`, one over the other, and with
// `finish` the rest of the file after them. Runs under libpng's error handling.
bool decodeInto(png_structp png, unsigned char* row, int count, bool finish) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    for (int y = 0; y < count; ++y) {
        png_read_row(png, row, nullptr);
    }
    if (finish) {
        png_read_end(png, nullptr);
    }
    return true;
}

}  // namespace

bool VRKPngFile::OpenFile(const std::string& path, std::string& error) {
    Close();
    file_ = std::fopen(path.c_str(), "rb");
    if (file_ == nullptr) {
        error = std::strerror(errno);
        return false;
    }
    source_ = Source{};
    source_.file = file_;
    return Start(error);
}

bool VRKPngFile::OpenMemory(const void* data, std::size_t size, std::string& error) {
    Close();
    source_ = Source{};
    source_.data = static_cast<const unsigned char*>(data);
    source_.size = data != nullptr ? size : 0;
    return Start(error);
}

bool VRKPngFile::Start(std::string& error) {
    unsigned char signature[8];
    bool failed = false;
    if (!readBytes(source_, signature, sizeof signature, failed)) {
        error = failed ? std::strerror(errno) : "not a PNG file";
        return false;
    }
    if (png_sig_cmp(signature, 0, sizeof signature) != 0) {
        error = "not a PNG file";
        return false;
    }
    state_ = ReadState{};
    state_.source = &source_;
    png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, &state_, onError, onWarning);
    info_ = png_ != nullptr ? png_create_info_struct(png_) : nullptr;
    if (info_ == nullptr) {
        error = "out of memory";
        return false;
    }
    png_set_read_fn(png_, &state_, onRead);
    png_set_sig_bytes(png_, sizeof signature);
    limitChunks(png_);
    header_ = Header{};
    if (!readHeader(png_, info_, &header_)) {
        error = state_.message;
        return false;
    }
    return true;
}

void VRKPngFile::Close() {
    if (png_ != nullptr) {
        png_destroy_read_struct(&png_, info_ != nullptr ? &info_ : nullptr, nullptr);
    }
    png_ = nullptr;
    info_ = nullptr;
    if (file_ != nullptr) {
        std::fclose(file_);
        file_ = nullptr;
    }
}

bool VRKPngFile::Decode(unsigned char* row, int count, bool finish, std::string& error) {
    if (!decodeInto(png_, row, count, finish)) {
        error = state_.message;
        return false;
    }
    return true;
}

VRKPixelImage* VRKPngFile::DecodeImage(std::string& error) {
    state_.image = nullptr;
    if (!decodeRows(png_, &state_, &header_)) {
        if (state_.image != nullptr) {
            state_.image->Release();
            state_.image = nullptr;
        }
        error = state_.message;
        return nullptr;
    }
    VRKPixelImage* image = state_.image;
    state_.image = nullptr;
    for (int y = 0; y < header_.height; ++y) {
        ClearPadding(image->GetRow(y));
    }
    return image;
}

void VRKPngFile::ClearPadding(unsigned char* row) const {
    if (header_.format == VRKPixelImage::kMono1 && header_.width % 8 != 0) {
        row[header_.rowBytes - 1] &= static_cast<unsigned char>(0xFF << (8 - header_.width % 8));
    }
}
