#include "host/image/VRKPngReader.h"

#include <png.h>

#include <cerrno>
#include <climits>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/core/VRKPixelImage.h"

// libpng reports errors through a callback that must not return. It leaves with png_longjmp()
// back to the setjmp() in decode(); nothing between that setjmp() and the callback (libpng's own
// frames, the callbacks below) owns anything with a destructor, and decode() keeps everything it
// needs after the jump in the ReadState that its caller owns, so the jump skips no clean-up and
// reads no clobbered local.

namespace {

// Where the bytes come from: an open file or a block of memory.
struct Source {
    std::FILE* file = nullptr;
    const unsigned char* data = nullptr;
    std::size_t size = 0;
    std::size_t offset = 0;
};

// Reads exactly `length` bytes; false at the end of the data. A file read error leaves errno.
bool readBytes(Source& source, unsigned char* out, std::size_t length, bool& failed) {
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

struct ReadState {
    Source* source = nullptr;
    char message[256] = "";
    VRKPixelImage* image = nullptr;
};

[[noreturn]] void onError(png_structp png, png_const_charp message) {
    auto* state = static_cast<ReadState*>(png_get_error_ptr(png));
    std::snprintf(state->message, sizeof state->message, "%s",
                  message != nullptr ? message : "libpng error");
    png_longjmp(png, 1);
}

void onWarning(png_structp /*png*/, png_const_charp /*message*/) {
    // Warnings concern ancillary chunks that libpng skips; the image itself is fine.
}

void onRead(png_structp png, png_bytep out, png_size_t length) {
    auto* state = static_cast<ReadState*>(png_get_io_ptr(png));
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

// What the header of a file says once libpng's transformations are set.
struct Header {
    int width = 0;
    int height = 0;
    int format = VRKPixelImage::kUnsupported;
    int passes = 1;
    std::size_t rowBytes = 0;
    float pixelWidth = VRKPixelImage::kDefaultPixelSize;
    float pixelHeight = VRKPixelImage::kDefaultPixelSize;
};

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
bool readHeader(png_structp png, png_infop info, Header* header) {
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
bool decodeRows(png_structp png, ReadState* state, const Header* header) {
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

// The file may hold anything in the bits after a 1-bit row's last pixel; images keep them clear.
void clearPadding(unsigned char* row, const Header& header) {
    if (header.format == VRKPixelImage::kMono1 && header.width % 8 != 0) {
        row[header.rowBytes - 1] &= static_cast<unsigned char>(0xFF << (8 - header.width % 8));
    }
}

// A PNG file opened for reading: its libpng state, and the header once read.
class PngFile {
  public:
    PngFile() = default;
    PngFile(const PngFile&) = delete;
    PngFile& operator=(const PngFile&) = delete;
    ~PngFile() { Close(); }

    // Opens the file and reads its header; false with the message in `error`.
    bool Open(const std::string& path, std::string& error) {
        Close();
        file_ = std::fopen(path.c_str(), "rb");
        if (file_ == nullptr) {
            error = std::strerror(errno);
            return false;
        }
        source_ = Source{};
        source_.file = file_;
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
        if (!readHeader(png_, info_, &header_)) {
            error = state_.message;
            return false;
        }
        return true;
    }
    void Close() {
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
    // Decodes rows into `row`; see decodeInto.
    bool Decode(unsigned char* row, int count, bool finish, std::string& error) {
        if (!decodeInto(png_, row, count, finish)) {
            error = state_.message;
            return false;
        }
        return true;
    }
    const Header& GetHeader() const { return header_; }

  private:
    std::FILE* file_ = nullptr;
    Source source_;
    ReadState state_;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    Header header_;
};

// The rows of a streamed image, decoded from its file as they are asked for.
class PngRowSource final : public VRKPixelRowSource {
  public:
    explicit PngRowSource(std::string path) : path_(std::move(path)) {}

    bool Rewind() override {
        std::string error;
        const Header before = file_.GetHeader();
        if (!file_.Open(path_, error)) {
            return false;
        }
        // The file must still be the one that was checked.
        const Header& now = file_.GetHeader();
        return now.width == before.width && now.height == before.height &&
               now.format == before.format && now.passes == 1;
    }
    bool NextRow(unsigned char* row) override {
        std::string error;
        if (!file_.Decode(row, 1, false, error)) {
            return false;
        }
        clearPadding(row, file_.GetHeader());
        return true;
    }
    PngFile& File() { return file_; }

  private:
    std::string path_;
    PngFile file_;
};

VRKPixelImage* read(Source& source, std::string& error) {
    unsigned char signature[8];
    bool failed = false;
    if (!readBytes(source, signature, sizeof signature, failed)) {
        error = failed ? std::strerror(errno) : "not a PNG file";
        return nullptr;
    }
    if (png_sig_cmp(signature, 0, sizeof signature) != 0) {
        error = "not a PNG file";
        return nullptr;
    }

    ReadState state;
    state.source = &source;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &state, onError, onWarning);
    if (png == nullptr) {
        error = "out of memory";
        return nullptr;
    }
    png_infop info = png_create_info_struct(png);
    if (info == nullptr) {
        png_destroy_read_struct(&png, nullptr, nullptr);
        error = "out of memory";
        return nullptr;
    }
    png_set_read_fn(png, &state, onRead);
    png_set_sig_bytes(png, sizeof signature);
    limitChunks(png);

    Header header;
    const bool ok = readHeader(png, info, &header) && decodeRows(png, &state, &header);
    png_destroy_read_struct(&png, &info, nullptr);
    if (!ok) {
        if (state.image != nullptr) {
            state.image->Release();
        }
        error = state.message;
        return nullptr;
    }
    VRKPixelImage* image = state.image;
    if (image->GetFormat() == VRKPixelImage::kMono1 && image->GetWidth() % 8 != 0) {
        // The file may hold anything in the bits after a row's last pixel; the image keeps them
        // clear.
        const auto mask = static_cast<unsigned char>(0xFF << (8 - image->GetWidth() % 8));
        for (int y = 0; y < image->GetHeight(); ++y) {
            image->GetRow(y)[image->GetBytesPerRow() - 1] &= mask;
        }
    }
    error.clear();
    return image;
}

}  // namespace

VRKPixelImage* VRKPngReader::ReadFile(const std::string& path, std::string& error) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) {
        error = std::strerror(errno);
        return nullptr;
    }
    Source source;
    source.file = file;
    VRKPixelImage* image = read(source, error);
    std::fclose(file);
    return image;
}

VRKPixelImage* VRKPngReader::OpenFile(const std::string& path, std::string& error) {
    auto source = std::make_unique<PngRowSource>(path);
    PngFile& file = source->File();
    if (!file.Open(path, error)) {
        return nullptr;
    }
    const Header header = file.GetHeader();
    const std::size_t decoded = header.rowBytes * static_cast<std::size_t>(header.height);
    if (header.passes != 1 && decoded > kMaxInterlacedBytes) {
        error = "an interlaced image of " + std::to_string(decoded >> 20) +
                " MiB once decoded; an interlaced image is held whole and may take at most " +
                std::to_string(kMaxInterlacedBytes >> 20) + " MiB (save it without interlacing)";
        return nullptr;
    }
    if (header.passes != 1 ||
        header.rowBytes * static_cast<std::size_t>(header.height) <= kStreamAbove) {
        file.Close();
        return ReadFile(path, error);
    }
    // Every row decoded once and dropped, and the rest of the file read: an error anywhere in
    // the file is found now.
    std::vector<unsigned char> row(header.rowBytes);
    if (!file.Decode(row.data(), header.height, true, error)) {
        return nullptr;
    }
    if (!source->Rewind()) {
        error = "the file changed while it was read";
        return nullptr;
    }
    VRKPixelImage* image =
        VRKPixelImage::CreateStreamed(header.width, header.height, header.format, source.release(),
                                      header.pixelWidth, header.pixelHeight);
    if (image == nullptr) {
        error = "out of memory";
        return nullptr;
    }
    error.clear();
    return image;
}

VRKPixelImage* VRKPngReader::ReadMemory(const void* data, std::size_t size, std::string& error) {
    Source source;
    source.data = static_cast<const unsigned char*>(data);
    source.size = data != nullptr ? size : 0;
    return read(source, error);
}
