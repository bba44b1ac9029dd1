#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "host/core/VRKMarshal.h"

// Builds the bytes of a marshal stream by hand, value by value, as the host lays them out: 4 bytes
// little-endian per value, class names with their length in front.
class MarshalBytes {
  public:
    MarshalBytes& Int(std::int32_t value) {
        const auto bits = static_cast<std::uint32_t>(value);
        for (int shift = 0; shift < 32; shift += 8) {
            bytes_.push_back(static_cast<unsigned char>(bits >> shift));
        }
        return *this;
    }
    MarshalBytes& Float(float value) { return Int(FloatBits(value)); }
    MarshalBytes& Name(const std::string& name) {
        Int(static_cast<std::int32_t>(name.size()));
        bytes_.insert(bytes_.end(), name.begin(), name.end());
        return *this;
    }
    MarshalBytes& Object(const std::string& className, std::int32_t ident) {
        return Int(kVRKMarshalObjectTag).Name(className).Int(ident);
    }
    MarshalBytes& End() { return Int(kVRKMarshalEndTag); }

    const std::vector<unsigned char>& Bytes() const { return bytes_; }

    static std::int32_t FloatBits(float value) {
        std::int32_t bits = 0;
        std::memcpy(&bits, &value, 4);
        return bits;
    }
    // The bytes read back as 32-bit little-endian words, from `offset` on.
    static std::vector<std::int32_t> Words(const std::vector<unsigned char>& bytes,
                                           std::size_t offset = 0) {
        std::vector<std::int32_t> words;
        for (std::size_t i = offset; i + 4 <= bytes.size(); i += 4) {
            const std::uint32_t w = static_cast<std::uint32_t>(bytes[i]) |
                                    static_cast<std::uint32_t>(bytes[i + 1]) << 8 |
                                    static_cast<std::uint32_t>(bytes[i + 2]) << 16 |
                                    static_cast<std::uint32_t>(bytes[i + 3]) << 24;
            words.push_back(static_cast<std::int32_t>(w));
        }
        return words;
    }

  private:
    std::vector<unsigned char> bytes_;
};
