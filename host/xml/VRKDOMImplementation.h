#pragma once

#include <string>
#include <string_view>

#include "host/xml/VRKIDOMDocument.h"

// Creates, reads and writes DOM documents.
//
// An element that a document creates and that has not been appended anywhere yet belongs to the
// document but is not part of its text: only the document element is written.
class VRKDOMImplementation {
  public:
    // A new document whose document element has the given tag name.
    static VRKIDOMDocumentRef CreateDocument(const VRKString& rootTagName);
    // An empty reference, with the error, when the text is not well-formed XML or has no element.
    static VRKIDOMDocumentRef Parse(std::string_view text, std::string& error,
                                    const std::string& sourceName = "XML text");
    static VRKIDOMDocumentRef Read(const std::string& path, std::string& error);
    static std::string ToText(const VRKIDOMDocumentRef& document);
    // Whole document or nothing, as VRKLightXmlFile::Write.
    static bool Write(const std::string& path, const VRKIDOMDocumentRef& document,
                      std::string& error);
};
