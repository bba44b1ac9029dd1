#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/svg/VRKSvgNode.h"

// An SVG file's element tree, read through libxml2 (the only source of the importer that
// includes it). The reading is closed to the outside: no network, no external DTD or entity is
// ever loaded, and a document that declares entities is refused before any is expanded.
class VRKSvgDocument {
  public:
    // Reads the document. False with `error` ("what is wrong") and `errorLine` (0 when the
    // message has no line) when it is not well-formed XML, declares entities or its root element
    // is not <svg>.
    bool Parse(std::string_view text, std::string& error, int& errorLine);

    const VRKSvgNode& Root() const { return *root_; }
    // The element with that id (the first one in document order), or null.
    const VRKSvgNode* FindId(const std::string& id) const;

  private:
    std::unique_ptr<VRKSvgNode> root_;
    std::unordered_map<std::string, const VRKSvgNode*> ids_;

    void IndexIds(const VRKSvgNode& node);
};
