#include "host/image/VRKPngReader.h"

#include <memory>
#include <string>
#include <vector>

#include "host/core/VRKPixelImage.h"
#include "host/image/VRKPngFile.h"
#include "host/image/VRKPngRowSource.h"

VRKPixelImage* VRKPngReader::ReadFile(const std::string& path, std::string& error) {
    VRKPngFile file;
    if (!file.OpenFile(path, error)) {
        return nullptr;
    }
    VRKPixelImage* image = file.DecodeImage(error);
    if (image != nullptr) {
        error.clear();
    }
    return image;
}

VRKPixelImage* VRKPngReader::OpenFile(const std::string& path, std::string& error) {
    auto source = std::make_unique<VRKPngRowSource>(path);
    VRKPngFile& file = source->File();
    if (!file.OpenFile(path, error)) {
        return nullptr;
    }
    const VRKPngFile::Header header = file.GetHeader();
    const std::size_t decoded = header.rowBytes * static_cast<std::size_t>(header.height);
    if (header.passes != 1 && decoded > kMaxInterlacedBytes) {
        error = "an interlaced image of " + std::to_string(decoded >> 20) +
                " MiB once decoded; an interlaced image is held whole and may take at most " +
                std::to_string(kMaxInterlacedBytes >> 20) + " MiB (save it without interlacing)";
        return nullptr;
    }
    if (header.passes != 1 || decoded <= kStreamAbove) {
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
    VRKPngFile file;
    if (!file.OpenMemory(data, size, error)) {
        return nullptr;
    }
    VRKPixelImage* image = file.DecodeImage(error);
    if (image != nullptr) {
        error.clear();
    }
    return image;
}
