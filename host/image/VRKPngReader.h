#pragma once

#include <cstddef>
#include <string>

class VRKPixelImage;

// Reads PNG files into pixel images, through libpng (VRKPngFile, inside VRKHostImage, the host's
// only user of libpng); nothing of libpng shows in this header.
//
// What each kind of PNG becomes:
//   grey, 8 or 16 bits           grey (code 0), 16 bits scaled to 8
//   grey, 1 bit                  1 bit per pixel (code 4), rows as the file packs them with
//                                every bit inverted: a black pixel (0 in the file) is a set bit,
//                                as the image's format wants it
//   grey, 2 or 4 bits            grey (code 0), levels scaled to 0..255
//   grey with alpha              RGBA (code 3)
//   RGB, 8 or 16 bits            RGB (code 2)
//   RGBA, 8 or 16 bits           RGBA (code 3)
//   palette                      RGB, or RGBA when the file gives the palette transparency
// Any image with a transparency chunk (tRNS) becomes RGBA, whatever its colour type, so that the
// transparent colour survives. Gamma and colour-profile chunks are not applied: sample values are
// taken as they are. Interlaced files are read whole.
//
// The pixel size comes from the pHYs chunk when its unit is the metre (1000 / pixels-per-metre
// millimetres); without that chunk, or with an unknown unit, it is 0.254 mm (100 pixels to the
// inch).
//
// Images larger than kMaxImageBytes once decoded are refused before any pixel memory is taken, so
// that a small file announcing an enormous image cannot exhaust memory.
class VRKPngReader {
  public:
    static constexpr std::size_t kMaxImageBytes = std::size_t{1} << 30;
    // The most memory one ancillary chunk (text, colour profile, ...) may take, and how many of
    // them are kept: a chunk that claims more is a broken or hostile file.
    static constexpr std::size_t kMaxChunkBytes = std::size_t{4} << 20;
    static constexpr int kMaxStoredChunks = 128;

    // Reads the PNG file at `path`. Returns a new image (one reference, owned by the caller), or
    // null with `error` saying what is wrong; never throws and never writes to standard error.
    static VRKPixelImage* ReadFile(const std::string& path, std::string& error);
    // Like ReadFile, but an image that would take more than kStreamAbove bytes once decoded (and
    // is not interlaced) is not kept in memory: the whole file is decoded once to check it, row
    // by row, and the image returned is a streamed one (VRKPixelImage::CreateStreamed) that
    // decodes its rows again from the file as they are asked for. A large image then costs the
    // memory of a row instead of all of its pixels, and any error in the file is still reported
    // here, before the image is used. Smaller and interlaced files are read whole, as ReadFile
    // reads them.
    static constexpr std::size_t kStreamAbove = std::size_t{8} << 20;
    // An interlaced image cannot be streamed (its rows come in several passes): OpenFile refuses
    // one that would take more than this once decoded.
    static constexpr std::size_t kMaxInterlacedBytes = std::size_t{32} << 20;
    static VRKPixelImage* OpenFile(const std::string& path, std::string& error);
    // The same for a PNG held in memory.
    static VRKPixelImage* ReadMemory(const void* data, std::size_t size, std::string& error);
};
