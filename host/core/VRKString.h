#pragma once

#include <string>
#include <string_view>

// An 8-bit character string. The host uses it for class and language names and for text that a
// plotter receives byte for byte.
class VRKString {
  public:
    VRKString() = default;
    VRKString(const char* text) : text_(text != nullptr ? text : "") {}  // NOLINT: implicit
    VRKString(std::string text) : text_(std::move(text)) {}              // NOLINT: implicit
    VRKString(std::string_view text) : text_(text) {}                    // NOLINT: implicit

    const char* CastToCharPtr() const { return text_.c_str(); }
    int GetLengthInChar() const { return static_cast<int>(text_.size()); }
    bool IsEmpty() const { return text_.empty(); }
    const std::string& str() const { return text_; }

    friend bool operator==(const VRKString& a, const VRKString& b) { return a.text_ == b.text_; }

  private:
    std::string text_;
};
