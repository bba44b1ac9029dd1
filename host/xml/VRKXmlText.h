#pragma once

// Shared by the light XML and DOM files; not part of the host's interface.

#include <cstddef>
#include <string>
#include <string_view>

namespace vrk_xml {

// The largest XML file read. A settings file with all 32 pens is a few kilobytes and a printer
// list of hundreds of printers stays far below this; the limit bounds the memory a file can make
// the reader take (the parsed tree takes several times the text).
inline constexpr std::size_t kMaxFileSize = 1024 * 1024;

// Reads a whole file; false with an error naming the file when it cannot, or when it is larger
// than kMaxFileSize.
bool readWholeFile(const std::string& path, std::string& text, std::string& error);
// Writes a whole file through a temporary file beside it and a rename.
bool writeWholeFile(const std::string& path, std::string_view text, std::string& error);
// The 1-based line of a byte offset in a text.
int lineOfOffset(std::string_view text, std::ptrdiff_t offset);

}  // namespace vrk_xml
