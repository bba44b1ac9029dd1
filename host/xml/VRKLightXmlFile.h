#pragma once

#include <string>
#include <string_view>

#include "host/xml/VRKLightXmlElement.h"

// Reading and writing light XML documents. A document is its root element; the XML declaration is
// written on output and skipped on input, and so are comments and text. Errors come back as a
// message that names the file (and the line, for a document that is not well-formed XML).
// Parsed elements know the line of their start tag (VRKLightXmlElement::GetSourceLine) when the
// text is UTF-8, the host's own encoding; in another encoding their line is 0. A document with
// elements nested more than 256 deep is refused.
class VRKLightXmlFile {
  public:
    static bool Parse(std::string_view text, VRKLightXmlElement& root, std::string& error,
                      const std::string& sourceName = "XML text");
    static bool Read(const std::string& path, VRKLightXmlElement& root, std::string& error);
    // The document as text, indented by two spaces, with the UTF-8 declaration.
    static std::string ToText(const VRKLightXmlElement& root);
    // Writes the whole document or nothing: the text goes to a temporary file beside the target,
    // which replaces the target only once it is complete.
    static bool Write(const std::string& path, const VRKLightXmlElement& root, std::string& error);
};
