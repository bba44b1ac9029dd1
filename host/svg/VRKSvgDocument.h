#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "host/svg/VRKSvgNode.h"

// An SVG file's element tree, read through libxml2 (the only source of the importer that
// includes it). The reading is closed to the outside: no network, no external DTD or entity is
// ever loaded, and a document that declares entities is refused before any is expanded.
class VRKSvgDocument {
  public:
    // Where the text comes from: `read` fills up to `size` bytes at `data` and gives the count, 0
    // at the end. It may throw to stop the reading; the exception leaves Parse.
    using Reader = std::function<std::size_t(char* data, std::size_t size)>;
    // How much the parser is given at a time.
    static constexpr std::size_t kChunkSize = std::size_t{1} << 16;

    // Reads the document, piece by piece: the whole text is never held. False with `error` ("what
    // is wrong") and `errorLine` (0 when the message has no line) when it is not well-formed XML
    // (the first fault met), declares entities, nests elements too deep or its root element is
    // not <svg>.
    bool Parse(const Reader& read, std::string& error, int& errorLine);

    const VRKSvgNode& Root() const { return *root_; }
    // The element with that id (the first one in document order), or null.
    const VRKSvgNode* FindId(const std::string& id) const;

  private:
    std::unique_ptr<VRKSvgNode> root_;
    std::unordered_map<std::string, const VRKSvgNode*> ids_;

    void IndexIds(const VRKSvgNode& node);
};
