#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

// SHA-256 of a byte stream, fed in pieces of any size: the listing's last line names a plot's bytes
// by it, so that two plots with the same listing but other bytes (raster data, say) differ there.
class Sha256 {
  public:
    Sha256();

    void Update(const unsigned char* data, std::size_t size);

    // The digest in lower-case hexadecimal, 64 characters. Ends the hashing: call it once.
    std::string HexDigest();

  private:
    void compressBlock(const unsigned char* block);

    std::array<std::uint32_t, 8> state_;
    std::array<unsigned char, 64> block_{};
    std::size_t blockFill_ = 0;
    std::uint64_t totalBytes_ = 0;
};
