#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/svg/VRKSvgNode.h"

// Builds a document's element tree from what the XML parser meets, in document order: elements
// opened and closed, and runs of text. Adjacent runs of text within one element are one text node
// (whatever the parser hands over in pieces, and across comments). Runs that are only white space
// are left out where no text is read: outside <text> and <style> elements. Each element's list of
// children is cut to its size when it closes.
class VRKSvgTreeBuilder {
  public:
    // Opens an element inside the open one (the root when none is open); the caller adds its
    // attributes to the node returned.
    VRKSvgNode& Open(std::string_view name, bool inSvg, int line);
    // Closes the innermost open element.
    void Close();
    // Characters of the innermost open element (nothing when none is open).
    void Text(std::string_view text);
    // The root with all under it; the builder is empty again.
    std::unique_ptr<VRKSvgNode> TakeRoot();

  private:
    std::unique_ptr<VRKSvgNode> root_;
    VRKSvgNode* current_ = nullptr;
    // For each open element, whether the text it holds may be read.
    std::vector<bool> keepsText_;

    // Drops the open element's last child when it is a run of white space it does not keep.
    void EndTextRun();
};
