// Fuzz target: the PNG reader.
//
// Feeds: the input is a PNG file, written to the process's scratch folder and opened with
// VRKPngReader::OpenFile, as the job player opens bitmaps: small images are read whole, large ones
// are checked in one pass and then streamed row by row. Every row is read. An image read whole is
// also read from memory (ReadMemory), turned, converted to RGB and made opaque.
//
// Checks: no crash, leak, undefined behaviour, hang or runaway allocation on any file; every row
// of an image that was read is there; and the file and memory readers give the same image, to the
// byte, with the same size, format and pixel size.

#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "host/core/VRKPixelImage.h"
#include "host/image/VRKPngReader.h"

namespace {

using Image = VRKSmartRef<VRKPixelImage>;

Image Adopt(VRKPixelImage* image) {
    return Image::Adopt(image);
}

// Reads every row (in order, as a generator does) and returns their bytes one after another, or,
// for a streamed image, only checks that every row comes.
std::string Rows(const VRKPixelImage& image) {
    std::string bytes;
    for (int y = 0; y < image.GetHeight(); ++y) {
        const unsigned char* row = image.GetRow(y);
        if (row == nullptr) {
            if (image.GetFormat() == VRKPixelImage::kUnsupported) {
                return bytes;
            }
            vrkfuzz::Broken("row " + std::to_string(y) + " of an image that was read is missing");
        }
        if (!image.IsStreamed()) {
            bytes.append(reinterpret_cast<const char*>(row), image.GetBytesPerRow());
        }
    }
    return bytes;
}

void CompareWithMemoryReader(const VRKPixelImage& fromFile, const std::uint8_t* data,
                             std::size_t size, const std::string& fileRows) {
    std::string error;
    Image fromMemory = Adopt(VRKPngReader::ReadMemory(data, size, error));
    if (!fromMemory) {
        vrkfuzz::Broken("the memory reader refuses what the file reader read: " + error);
    }
    if (fromMemory->GetWidth() != fromFile.GetWidth() ||
        fromMemory->GetHeight() != fromFile.GetHeight() ||
        fromMemory->GetFormat() != fromFile.GetFormat() ||
        fromMemory->GetPixelWidth() != fromFile.GetPixelWidth() ||
        fromMemory->GetPixelHeight() != fromFile.GetPixelHeight() ||
        Rows(*fromMemory) != fileRows) {
        vrkfuzz::Broken("the file and memory readers give different images");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path = vrkfuzz::ScratchFolder() + "/image.png";
    vrkfuzz::WriteFile(path, data, size);
    std::string error;
    Image image = Adopt(VRKPngReader::OpenFile(path, error));
    if (!image) {
        if (error.empty()) {
            vrkfuzz::Broken("a refused PNG file without a message");
        }
        return 0;
    }
    const std::string rows = Rows(*image);
    if (image->IsStreamed()) {
        return 0;
    }
    CompareWithMemoryReader(*image, data, size, rows);
    Image turned = Adopt(image->CreateRotated180());
    if (turned) {
        Rows(*turned);
    }
    Image rgb = Adopt(image->ConvertToRGB());
    if (rgb) {
        Rows(*rgb);
    }
    image->ChangeTransparencyToColor(255, 255, 255);
    return 0;
}
