#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// One node of an SVG document as the importer walks it: an element or a run of text. Attributes
// keep their SVG names; those in the XLink and XML namespaces are named "xlink:NAME" and
// "xml:NAME" whatever prefix the file gives them, and those of other namespaces are left out.
class VRKSvgNode {
  public:
    std::string name;   // the element's local name; empty for text
    bool inSvg = true;  // an element of the SVG namespace (or of no namespace)
    int line = 0;       // where it starts in the file
    std::string text;   // the characters of a text node
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<std::unique_ptr<VRKSvgNode>> children;
    VRKSvgNode* parent = nullptr;

    bool IsText() const { return name.empty(); }
    // The attribute's value, or null when the element does not have it.
    const std::string* Attribute(std::string_view attributeName) const {
        for (const auto& [key, value] : attributes) {
            if (key == attributeName) {
                return &value;
            }
        }
        return nullptr;
    }
    // The link of a `use`, `image` or gradient: href, or xlink:href when href is not given.
    const std::string* Link() const {
        const std::string* link = Attribute("href");
        return link != nullptr ? link : Attribute("xlink:href");
    }
};
