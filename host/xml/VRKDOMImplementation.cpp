#include "host/xml/VRKDOMImplementation.h"

#include <pugixml.hpp>

#include <memory>
#include <new>
#include <sstream>

#include "host/xml/VRKXmlText.h"

// The DOM over pugixml. A node object is a counted handle on a pugixml node that also keeps its
// document alive; the same XML node may have several handles. pugixml has no detached nodes, so
// a created element waits as a top-level node of the document until it is appended somewhere; the
// document's text is that of its document element only.

namespace {

class PugiDocument;

class PugiNode : public VRKIDOMElement {
  public:
    PugiNode(PugiDocument* document, pugi::xml_node node);

    VRKResult GetNodeName(VRKString& name) const override;
    VRKResult GetOwnerDocument(VRKSmartRef<VRKIDOMDocument>& document) override;
    VRKResult GetFirstChild(VRKSmartRef<VRKIDOMNode>& child) override;
    VRKResult GetNextSibling(VRKSmartRef<VRKIDOMNode>& sibling) override;
    VRKResult AppendChild(const VRKSmartRef<VRKIDOMNode>& child) override;
    VRKIDOMElement* AsElement() override {
        return node_.type() == pugi::node_element ? this : nullptr;
    }

    VRKResult GetTagName(VRKString& name) const override;
    VRKResult SetTagName(const VRKString& name) override;
    VRKResult GetAttribute(const VRKString& name, VRKString& value) const override;
    VRKResult SetAttribute(const VRKString& name, const VRKString& value) override;

    pugi::xml_node node() const { return node_; }
    PugiDocument* document() const;

  private:
    VRKSmartRef<VRKIDOMDocument> document_;
    pugi::xml_node node_;
};

class PugiDocument : public VRKIDOMDocument {
  public:
    pugi::xml_document xml;

    VRKResult GetNodeName(VRKString& name) const override {
        name = "#document";
        return S_OK;
    }
    VRKResult GetOwnerDocument(VRKSmartRef<VRKIDOMDocument>& document) override {
        document = VRKSmartRef<VRKIDOMDocument>(this);
        return S_OK;
    }
    VRKResult GetFirstChild(VRKSmartRef<VRKIDOMNode>& child) override {
        return wrap(xml.document_element(), child);
    }
    VRKResult GetNextSibling(VRKSmartRef<VRKIDOMNode>& sibling) override {
        sibling.reset();
        return S_OK;
    }
    VRKResult AppendChild(const VRKSmartRef<VRKIDOMNode>& /*child*/) override {
        // A document holds its one document element, made with the document.
        return E_FAIL;
    }
    VRKIDOMElement* AsElement() override { return nullptr; }

    VRKResult CreateElement(const VRKString& tagName,
                            VRKSmartRef<VRKIDOMElement>& element) override {
        pugi::xml_node node = xml.append_child(pugi::node_element);
        if (!node || !node.set_name(tagName.CastToCharPtr())) {
            return E_FAIL;
        }
        auto* wrapper = new (std::nothrow) PugiNode(this, node);
        if (wrapper == nullptr) {
            return E_FAIL;
        }
        element = VRKSmartRef<VRKIDOMElement>::Adopt(wrapper);
        return S_OK;
    }
    VRKResult GetDocumentElement(VRKSmartRef<VRKIDOMElement>& element) override {
        const pugi::xml_node root = xml.document_element();
        if (!root) {
            return E_FAIL;
        }
        auto* wrapper = new (std::nothrow) PugiNode(this, root);
        if (wrapper == nullptr) {
            return E_FAIL;
        }
        element = VRKSmartRef<VRKIDOMElement>::Adopt(wrapper);
        return S_OK;
    }

    VRKResult wrap(pugi::xml_node node, VRKSmartRef<VRKIDOMNode>& out) {
        out.reset();
        if (!node) {
            return S_OK;
        }
        auto* wrapper = new (std::nothrow) PugiNode(this, node);
        if (wrapper == nullptr) {
            return E_FAIL;
        }
        out = VRKSmartRef<VRKIDOMNode>::Adopt(wrapper);
        return S_OK;
    }
};

PugiNode::PugiNode(PugiDocument* document, pugi::xml_node node)
    : document_(document), node_(node) {}

PugiDocument* PugiNode::document() const {
    return static_cast<PugiDocument*>(document_.get());
}

VRKResult PugiNode::GetNodeName(VRKString& name) const {
    name = node_.type() == pugi::node_element ? VRKString(node_.name()) : VRKString("#text");
    return S_OK;
}

VRKResult PugiNode::GetOwnerDocument(VRKSmartRef<VRKIDOMDocument>& document) {
    document = document_;
    return document ? S_OK : E_FAIL;
}

VRKResult PugiNode::GetFirstChild(VRKSmartRef<VRKIDOMNode>& child) {
    return document()->wrap(node_.first_child(), child);
}

VRKResult PugiNode::GetNextSibling(VRKSmartRef<VRKIDOMNode>& sibling) {
    // A created element waiting at the top level has no siblings yet.
    if (node_.parent() == document()->xml) {
        sibling.reset();
        return S_OK;
    }
    return document()->wrap(node_.next_sibling(), sibling);
}

VRKResult PugiNode::AppendChild(const VRKSmartRef<VRKIDOMNode>& child) {
    auto* other = dynamic_cast<PugiNode*>(child.get());
    if (other == nullptr || other->document() != document() || node_.type() != pugi::node_element) {
        return E_FAIL;
    }
    return node_.append_move(other->node_) ? S_OK : E_FAIL;
}

VRKResult PugiNode::GetTagName(VRKString& name) const {
    if (node_.type() != pugi::node_element) {
        return E_FAIL;
    }
    name = node_.name();
    return S_OK;
}

VRKResult PugiNode::SetTagName(const VRKString& name) {
    return node_.type() == pugi::node_element && node_.set_name(name.CastToCharPtr()) ? S_OK
                                                                                      : E_FAIL;
}

VRKResult PugiNode::GetAttribute(const VRKString& name, VRKString& value) const {
    if (node_.type() != pugi::node_element) {
        return E_FAIL;
    }
    value = node_.attribute(name.CastToCharPtr()).value();
    return S_OK;
}

VRKResult PugiNode::SetAttribute(const VRKString& name, const VRKString& value) {
    if (node_.type() != pugi::node_element) {
        return E_FAIL;
    }
    pugi::xml_attribute attribute = node_.attribute(name.CastToCharPtr());
    if (!attribute) {
        attribute = node_.append_attribute(name.CastToCharPtr());
    }
    return attribute && attribute.set_value(value.CastToCharPtr()) ? S_OK : E_FAIL;
}

}  // namespace

VRKIDOMDocumentRef VRKDOMImplementation::CreateDocument(const VRKString& rootTagName) {
    auto* document = new (std::nothrow) PugiDocument;
    if (document == nullptr) {
        return {};
    }
    VRKIDOMDocumentRef ref = VRKIDOMDocumentRef::Adopt(document);
    if (!document->xml.append_child(rootTagName.CastToCharPtr())) {
        return {};
    }
    return ref;
}

VRKIDOMDocumentRef VRKDOMImplementation::Parse(std::string_view text, std::string& error,
                                               const std::string& sourceName) {
    auto* document = new (std::nothrow) PugiDocument;
    if (document == nullptr) {
        error = sourceName + ": out of memory";
        return {};
    }
    VRKIDOMDocumentRef ref = VRKIDOMDocumentRef::Adopt(document);
    const pugi::xml_parse_result result = document->xml.load_buffer(text.data(), text.size());
    if (!result) {
        error = sourceName + ":" + std::to_string(vrk_xml::lineOfOffset(text, result.offset)) +
                ": not XML: " + result.description();
        return {};
    }
    if (!document->xml.document_element()) {
        error = sourceName + ": not XML: no element";
        return {};
    }
    return ref;
}

VRKIDOMDocumentRef VRKDOMImplementation::Read(const std::string& path, std::string& error) {
    std::string text;
    if (!vrk_xml::readWholeFile(path, text, error)) {
        return {};
    }
    return Parse(text, error, path);
}

std::string VRKDOMImplementation::ToText(const VRKIDOMDocumentRef& document) {
    auto* pugiDocument = dynamic_cast<PugiDocument*>(document.get());
    if (pugiDocument == nullptr) {
        return {};
    }
    pugi::xml_document copy;
    copy.append_copy(pugiDocument->xml.document_element());
    std::ostringstream out;
    copy.save(out, "  ", pugi::format_default, pugi::encoding_utf8);
    std::string text = std::move(out).str();
    // A text file ends with a line end.
    if (!text.empty() && text.back() != '\n') {
        text += '\n';
    }
    return text;
}

bool VRKDOMImplementation::Write(const std::string& path, const VRKIDOMDocumentRef& document,
                                 std::string& error) {
    if (!document) {
        error = path + ": no document";
        return false;
    }
    return vrk_xml::writeWholeFile(path, ToText(document), error);
}
