#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// Builds PNG files byte by byte for the tests, without libpng: the image data goes into stored
// (uncompressed) deflate blocks, so that a test states exactly the scanlines a file holds and can
// break any part of it on purpose.
namespace TestPng {

inline std::uint32_t Crc32(const std::string& bytes) {
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char c : bytes) {
        crc ^= static_cast<unsigned char>(c);
        for (int k = 0; k < 8; ++k) {
            crc = (crc & 1u) != 0 ? (crc >> 1) ^ 0xEDB88320u : crc >> 1;
        }
    }
    return crc ^ 0xFFFFFFFFu;
}

inline void PutBig32(std::string& out, std::uint32_t v) {
    out += static_cast<char>(v >> 24);
    out += static_cast<char>(v >> 16);
    out += static_cast<char>(v >> 8);
    out += static_cast<char>(v);
}

// A chunk: length, type, data, CRC of type and data.
inline std::string Chunk(const std::string& type, const std::string& data) {
    std::string out;
    PutBig32(out, static_cast<std::uint32_t>(data.size()));
    out += type;
    out += data;
    PutBig32(out, Crc32(type + data));
    return out;
}

// A zlib stream holding `raw` in stored deflate blocks.
inline std::string Zlib(const std::string& raw) {
    std::string out = "\x78\x01";
    std::size_t at = 0;
    do {
        const std::size_t n = std::min<std::size_t>(raw.size() - at, 65535);
        const bool last = at + n == raw.size();
        out += static_cast<char>(last ? 1 : 0);
        out += static_cast<char>(n & 0xFF);
        out += static_cast<char>(n >> 8);
        out += static_cast<char>(~n & 0xFF);
        out += static_cast<char>((~n >> 8) & 0xFF);
        out += raw.substr(at, n);
        at += n;
    } while (at < raw.size());
    std::uint32_t a = 1, b = 0;
    for (const char c : raw) {
        a = (a + static_cast<unsigned char>(c)) % 65521;
        b = (b + a) % 65521;
    }
    PutBig32(out, (b << 16) | a);
    return out;
}

inline std::string Header(std::uint32_t width, std::uint32_t height, int depth, int colorType,
                          int interlace = 0) {
    std::string data;
    PutBig32(data, width);
    PutBig32(data, height);
    data += static_cast<char>(depth);
    data += static_cast<char>(colorType);
    data += '\0';  // compression
    data += '\0';  // filter method
    data += static_cast<char>(interlace);
    return Chunk("IHDR", data);
}

inline const std::string kSignature = "\x89PNG\r\n\x1a\n";

// A whole file: signature, IHDR, the extra chunks (PLTE, tRNS, pHYs...), one IDAT holding the
// scanlines (each with its filter byte), IEND.
inline std::string Build(std::uint32_t width, std::uint32_t height, int depth, int colorType,
                         const std::string& scanlines,
                         const std::vector<std::pair<std::string, std::string>>& extra = {},
                         int interlace = 0) {
    std::string out = kSignature + Header(width, height, depth, colorType, interlace);
    for (const auto& [type, data] : extra) {
        out += Chunk(type, data);
    }
    out += Chunk("IDAT", Zlib(scanlines));
    out += Chunk("IEND", "");
    return out;
}

// pHYs data: pixels per unit in x and y, unit 1 for the metre, 0 unknown.
inline std::string Phys(std::uint32_t x, std::uint32_t y, int unit) {
    std::string data;
    PutBig32(data, x);
    PutBig32(data, y);
    data += static_cast<char>(unit);
    return data;
}

}  // namespace TestPng
