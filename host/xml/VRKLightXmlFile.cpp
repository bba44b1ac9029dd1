#include "host/xml/VRKLightXmlFile.h"

#include <pugixml.hpp>

#include <algorithm>
#include <sstream>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/xml/VRKXmlText.h"

namespace {

// The lines of byte offsets met in document order. Offsets only grow from one element to the
// next, so the cursor goes on from where it stopped and a whole document costs one pass over its
// text (an offset behind the cursor is counted back from it).
class LineCursor {
  public:
    explicit LineCursor(std::string_view text) : text_(text) {}

    // The 1-based line of an offset; 0 for an offset outside the text.
    int LineOf(std::ptrdiff_t offset) {
        if (offset < 0 || static_cast<size_t>(offset) > text_.size()) {
            return 0;
        }
        const auto target = static_cast<size_t>(offset);
        const char* base = text_.data();
        if (target >= offset_) {
            line_ += static_cast<int>(std::count(base + offset_, base + target, '\n'));
        } else {
            line_ -= static_cast<int>(std::count(base + target, base + offset_, '\n'));
        }
        offset_ = target;
        return line_;
    }

  private:
    std::string_view text_;
    size_t offset_ = 0;
    int line_ = 1;
};

// Deeper documents are refused: the light model and its copies, comparisons and destruction go
// down the tree by recursion, and a file of nested elements must not exhaust the stack. The
// host's own files are five levels deep at most (a printer list with pens).
constexpr int kMaxDepth = 256;

// The attributes of an element in document order. A name given twice keeps its first place and
// takes its last value, as setting them one by one would; found through a hash of the names, so
// an element of any number of attributes is read in linear time.
void setAttributes(const pugi::xml_node& node, VRKLightXmlElement& element) {
    std::vector<std::pair<VRKString, VRKString>> attributes;
    std::unordered_map<std::string_view, size_t> places;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        const std::string_view name = attribute.name();
        const auto [place, added] = places.try_emplace(name, attributes.size());
        if (added) {
            attributes.emplace_back(attribute.name(), attribute.value());
        } else {
            attributes[place->second].second = attribute.value();
        }
    }
    element.SetAttributes(std::move(attributes));
}

// Converts an element and its children; false, with the element too deep, when the document goes
// below kMaxDepth. `lines` is null when the parsed text is not the text the offsets count in (a
// document in another encoding, converted to UTF-8 before parsing): the elements then have no
// line.
bool fromPugi(const pugi::xml_node& node, VRKLightXmlElement& element, LineCursor* lines, int depth,
              pugi::xml_node& tooDeep) {
    element.SetName(node.name());
    if (lines != nullptr) {
        element.SetSourceLine(lines->LineOf(node.offset_debug()));
    }
    setAttributes(node, element);
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() != pugi::node_element) {
            continue;
        }
        if (depth == kMaxDepth) {
            tooDeep = child;
            return false;
        }
        if (!fromPugi(child, element.AddChild(VRKLightXmlElement()), lines, depth + 1, tooDeep)) {
            return false;
        }
    }
    return true;
}

void toPugi(const VRKLightXmlElement& element, pugi::xml_node node) {
    for (const auto& [name, value] : element.GetAttributes()) {
        node.append_attribute(name.CastToCharPtr()).set_value(value.CastToCharPtr());
    }
    for (int i = 0; i < element.GetChildCount(); ++i) {
        const VRKLightXmlElement* child = element.GetChild(i);
        toPugi(*child, node.append_child(child->GetName().CastToCharPtr()));
    }
}

}  // namespace

bool VRKLightXmlFile::Parse(std::string_view text, VRKLightXmlElement& root, std::string& error,
                            const std::string& sourceName) {
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size());
    if (!result) {
        error = sourceName + ":" + std::to_string(vrk_xml::lineOfOffset(text, result.offset)) +
                ": not XML: " + result.description();
        return false;
    }
    const pugi::xml_node top = document.document_element();
    if (!top) {
        error = sourceName + ": not XML: no element";
        return false;
    }
    LineCursor lines(text);
    VRKLightXmlElement parsed;
    pugi::xml_node tooDeep;
    if (!fromPugi(top, parsed, result.encoding == pugi::encoding_utf8 ? &lines : nullptr, 1,
                  tooDeep)) {
        error = sourceName + ":" +
                std::to_string(vrk_xml::lineOfOffset(text, tooDeep.offset_debug())) +
                ": elements nested more than " + std::to_string(kMaxDepth) + " deep";
        return false;
    }
    root = std::move(parsed);
    return true;
}

bool VRKLightXmlFile::Read(const std::string& path, VRKLightXmlElement& root, std::string& error) {
    std::string text;
    return vrk_xml::readWholeFile(path, text, error) && Parse(text, root, error, path);
}

std::string VRKLightXmlFile::ToText(const VRKLightXmlElement& root) {
    pugi::xml_document document;
    toPugi(root, document.append_child(root.GetName().CastToCharPtr()));
    std::ostringstream out;
    document.save(out, "  ", pugi::format_default, pugi::encoding_utf8);
    std::string text = std::move(out).str();
    // A text file ends with a line end.
    if (!text.empty() && text.back() != '\n') {
        text += '\n';
    }
    return text;
}

bool VRKLightXmlFile::Write(const std::string& path, const VRKLightXmlElement& root,
                            std::string& error) {
    return vrk_xml::writeWholeFile(path, ToText(root), error);
}
