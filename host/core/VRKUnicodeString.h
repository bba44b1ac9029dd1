#pragma once

#include <string>
#include <string_view>

#include "host/core/VRKString.h"

// A Unicode string, held as UTF-8. Its 8-bit conversion gives ISO 8859-1, the plotter's symbol
// set 14, with '?' for every character outside it and for bytes that are not valid UTF-8.
class VRKUnicodeString {
  public:
    VRKUnicodeString() = default;
    VRKUnicodeString(const char* utf8) : text_(utf8 != nullptr ? utf8 : "") {}  // NOLINT: implicit
    VRKUnicodeString(std::string utf8) : text_(std::move(utf8)) {}              // NOLINT: implicit
    VRKUnicodeString(std::string_view utf8) : text_(utf8) {}                    // NOLINT: implicit

    const std::string& ToUtf8() const { return text_; }
    bool IsEmpty() const { return text_.empty(); }

    // The 8-bit (ISO 8859-1) form.
    VRKString ConvertToChar() const;

    friend bool operator==(const VRKUnicodeString& a, const VRKUnicodeString& b) {
        return a.text_ == b.text_;
    }

  private:
    std::string text_;
};
