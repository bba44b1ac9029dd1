#pragma once

#include <png.h>

#include <cstddef>
#include <cstdio>
#include <string>

#include "host/core/VRKPixelImage.h"

// A PNG file opened for reading through libpng, from a file or from memory: its header read and
// libpng's transformations set for the pixel format it becomes (see VRKPngReader), then its rows
// decoded, the whole image or a few rows at a time. Part of VRKHostImage, and its only user of
// libpng together with the reader; no function throws or writes to standard error.
class VRKPngFile {
  public:
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

    // Where the bytes come from, and what libpng's callbacks leave for the caller: the message
    // of an error, and the image being decoded.
    struct Source {
        std::FILE* file = nullptr;
        const unsigned char* data = nullptr;
        std::size_t size = 0;
        std::size_t offset = 0;
    };
    struct ReadState {
        Source* source = nullptr;
        char message[256] = "";
        VRKPixelImage* image = nullptr;
    };

    VRKPngFile() = default;
    VRKPngFile(const VRKPngFile&) = delete;
    VRKPngFile& operator=(const VRKPngFile&) = delete;
    ~VRKPngFile() { Close(); }

    // Opens the file at `path`, or the PNG of `size` bytes at `data` (which must stay until the
    // file is closed), and reads its header; false with the message in `error`.
    bool OpenFile(const std::string& path, std::string& error);
    bool OpenMemory(const void* data, std::size_t size, std::string& error);
    void Close();

    // Decodes `count` rows of a file that is not interlaced into `row`, one over the other, and
    // with `finish` the rest of the file after them; false with the message in `error`.
    bool Decode(unsigned char* row, int count, bool finish, std::string& error);
    // Decodes every row (every pass of an interlaced file) and the rest of the file into a new
    // image (one reference, the caller's); null with the message in `error`.
    VRKPixelImage* DecodeImage(std::string& error);

    const Header& GetHeader() const { return header_; }

    // The file may hold anything in the bits after a 1-bit row's last pixel; images keep them
    // clear. Clears them in a row of this file's layout.
    void ClearPadding(unsigned char* row) const;

  private:
    // Checks the signature, sets up libpng and reads the header.
    bool Start(std::string& error);

    std::FILE* file_ = nullptr;
    Source source_;
    ReadState state_;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    Header header_;
};
