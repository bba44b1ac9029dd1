#pragma once

// Shared by the light XML and DOM files; not part of the host's interface.

#include <cstddef>
#include <string>
#include <string_view>

namespace vrk_xml {

// Reads a whole file; false with an error naming the file when it cannot.
bool readWholeFile(const std::string& path, std::string& text, std::string& error);
// Writes a whole file through a temporary file beside it and a rename.
bool writeWholeFile(const std::string& path, std::string_view text, std::string& error);
// The 1-based line of a byte offset in a text.
int lineOfOffset(std::string_view text, std::ptrdiff_t offset);

}  // namespace vrk_xml
