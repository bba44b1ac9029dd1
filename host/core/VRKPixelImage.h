#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "host/core/VRKBaseUnknown.h"

// The rows of an image that is not held in memory, read one after another from the top (an image
// file decoded as it is read).
class VRKPixelRowSource {
  public:
    virtual ~VRKPixelRowSource() = default;
    // Reads the next row into `row` (the image's bytes per row); false when it cannot.
    virtual bool NextRow(unsigned char* row) = 0;
    // Starts again at the top row; false when it cannot.
    virtual bool Rewind() = 0;
};

// A raster image as the host hands it to DrawBitmap: rows of pixels, top row first, and the size
// of one pixel on paper in millimetres.
//
// Images are reference-counted objects of the host's object model: every function that returns
// a new image returns it with one reference, owned by the caller, who gives it up with Release().
// Those functions return null instead of throwing when the size is invalid or memory runs out.
//
// Pixel formats, by their host code:
//   0  8-bit grey, one byte per pixel, 0 black to 255 white;
//   1  a format the host cannot represent: the image has a size but no rows;
//   2  RGB, three bytes per pixel;
//   3  RGBA, four bytes per pixel, straight (not premultiplied) alpha, 0 fully transparent;
//   4  1 bit per pixel, eight pixels to a byte, leftmost pixel in the most significant bit,
//      (width + 7) / 8 bytes per row. A set bit is a black pixel, a clear bit a white one: the
//      bit says where the printer puts ink, as a monochrome raster row of the plotter does, and
//      generators send the bits as they are. A 1-bit grey PNG stores the opposite (its bit is the
//      grey level, 1 white), so its reader inverts the bits. The unused low bits of a row's last
//      byte are kept clear.
// Rows are packed: there is no padding between them beyond what the format itself needs.
class VRKPixelImage : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKPixelImage)

  public:
    enum Format : int {
        kGrey8 = 0,
        kUnsupported = 1,
        kRGB8 = 2,
        kRGBA8 = 3,
        kMono1 = 4,
    };

    // 0.254 mm: the pixel size of an image that does not say (100 pixels to the inch).
    static constexpr float kDefaultPixelSize = 0.254f;

    // A new image with every byte of every row zero (black; transparent black for RGBA; white for
    // 1 bit per pixel, where a clear bit is a pixel without ink). Width
    // and height must not be negative (an image of width or height 0 has no pixels) and the
    // format must be one of the codes above.
    static VRKPixelImage* Create(int width, int height, int format,
                                 float pixelWidth = kDefaultPixelSize,
                                 float pixelHeight = kDefaultPixelSize);
    // A new image whose rows are copied from memory: row y starts at data + y * stride, and
    // stride must be at least BytesPerRow(format, width). For the unsupported format no data is
    // read and `data` may be null.
    static VRKPixelImage* CreateFromData(int width, int height, int format, const void* data,
                                         std::size_t stride, float pixelWidth = kDefaultPixelSize,
                                         float pixelHeight = kDefaultPixelSize);

    // A new image whose rows are not kept: they come from `source` (which the image owns from
    // now on, and deletes even when this fails) as they are asked for, so that an image of any
    // size takes the memory of one row. A streamed image reads its rows top to bottom; asking
    // for an earlier row starts the source again. The pointer GetRow() const returns stays valid
    // only until the next GetRow() call on the image, and is null when the source fails. The
    // non-const GetRow() (a caller about to change pixels) first reads every row into memory,
    // and the image is an ordinary one from then on. Formats as for Create; not the unsupported
    // one.
    static VRKPixelImage* CreateStreamed(int width, int height, int format,
                                         VRKPixelRowSource* source,
                                         float pixelWidth = kDefaultPixelSize,
                                         float pixelHeight = kDefaultPixelSize);
    bool IsStreamed() const { return source_ != nullptr; }

    // Bytes in one row of the format at the given width; 0 for the unsupported format or an
    // unknown code.
    static std::size_t BytesPerRow(int format, int width);

    int GetWidth() const { return width_; }
    int GetHeight() const { return height_; }
    int GetFormat() const { return format_; }
    std::size_t GetBytesPerRow() const { return bytesPerRow_; }
    // Size of one pixel on paper, millimetres.
    float GetPixelWidth() const { return pixelWidth_; }
    float GetPixelHeight() const { return pixelHeight_; }
    void SetPixelSize(float width, float height) {
        pixelWidth_ = width;
        pixelHeight_ = height;
    }

    // Row y, 0 the top row; null when y is outside the image or the format has no rows.
    unsigned char* GetRow(int y);
    const unsigned char* GetRow(int y) const;

    // A new image holding the rectangle of w by h pixels whose top left pixel is (x, y), clipped
    // to this image; the pixel size is kept. Null when nothing of the rectangle lies inside the
    // image or the format has no rows.
    VRKPixelImage* GetSubImage(int x, int y, int w, int h) const;
    // A new image turned by 180 degrees: the last pixel of the last row comes first. Null for the
    // unsupported format.
    VRKPixelImage* CreateRotated180() const;
    // A new RGB (code 2) image of the same pixels: grey levels become equal components, a set
    // 1-bit pixel black (0, 0, 0) and a clear one white (255, 255, 255); an RGBA image loses its
    // alpha channel and keeps its colours as they are, so a caller that wants transparent pixels
    // painted calls ChangeTransparencyToColor first. Null for the unsupported format.
    VRKPixelImage* ConvertToRGB() const;

    // Makes an RGBA image opaque over the given background colour. A pixel with alpha 0 becomes
    // the colour; a partly transparent pixel is composited over it, each component becoming
    // (c * a + background * (255 - a)) / 255 rounded to nearest; alpha ends at 255 everywhere.
    // Opaque pixels are unchanged. Images of other formats have no transparency and are left as
    // they are.
    void ChangeTransparencyToColor(unsigned char r, unsigned char g, unsigned char b);

  private:
    VRKPixelImage(int width, int height, int format, float pixelWidth, float pixelHeight);
    // Row y of a streamed image, read from the source.
    const unsigned char* StreamRow(int y) const;
    // Reads every row of a streamed image into memory and lets the source go.
    bool Materialize();
    // Allocates the rows; false when memory runs out or the size overflows.
    bool Allocate();
    bool GetBit(int x, int y) const;
    void SetBit(int x, int y, bool set);

    int width_;
    int height_;
    int format_;
    std::size_t bytesPerRow_;
    float pixelWidth_;
    float pixelHeight_;
    std::vector<unsigned char> pixels_;
    // A streamed image: its source, the last row read and how many rows were read since the
    // source (re)started.
    std::unique_ptr<VRKPixelRowSource> source_;
    mutable std::vector<unsigned char> streamRow_;
    mutable int rowsRead_ = 0;
};
