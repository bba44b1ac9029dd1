#include "host/xml/VRKLightXmlFile.h"

#include <pugixml.hpp>

#include <sstream>

#include "host/xml/VRKXmlText.h"

namespace {

void fromPugi(const pugi::xml_node& node, VRKLightXmlElement& element) {
    element.SetName(node.name());
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        element.SetAttribute(attribute.name(), attribute.value());
    }
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_element) {
            fromPugi(child, element.AddChild(VRKLightXmlElement()));
        }
    }
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
    root.Clear();
    fromPugi(top, root);
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
