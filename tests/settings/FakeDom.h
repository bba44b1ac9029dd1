#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/xml/VRKIDOMDocument.h"

// A DOM that can be told to fail: an element whose tag name cannot be read, whose attributes
// cannot be fetched, or that belongs to no document, and a document that refuses to create some
// elements. Everything done to the elements is kept for the tests to look at.

class FakeDocument;

class FakeElement final : public VRKIDOMElement {
  public:
    explicit FakeElement(std::string tag, FakeDocument* document = nullptr);

    // Failure switches.
    bool tagNameFails = false;
    bool getAttributeFails = false;

    std::string tag;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<VRKSmartRef<VRKIDOMNode>> children;
    int setTagNameCalls = 0;

    VRKResult GetNodeName(VRKString& name) const override {
        name = tag;
        return S_OK;
    }
    VRKResult GetOwnerDocument(VRKSmartRef<VRKIDOMDocument>& document) override;
    VRKResult GetFirstChild(VRKSmartRef<VRKIDOMNode>& child) override {
        child = children.empty() ? VRKSmartRef<VRKIDOMNode>() : children.front();
        return S_OK;
    }
    VRKResult GetNextSibling(VRKSmartRef<VRKIDOMNode>& sibling) override {
        sibling.reset();
        if (parent_ != nullptr) {
            for (size_t i = 0; i + 1 < parent_->children.size(); ++i) {
                if (parent_->children[i].get() == this) {
                    sibling = parent_->children[i + 1];
                }
            }
        }
        return S_OK;
    }
    VRKResult AppendChild(const VRKSmartRef<VRKIDOMNode>& child) override {
        auto* element = dynamic_cast<FakeElement*>(child.get());
        if (element == nullptr) {
            return E_FAIL;
        }
        element->parent_ = this;
        children.push_back(child);
        return S_OK;
    }
    VRKIDOMElement* AsElement() override { return this; }

    VRKResult GetTagName(VRKString& name) const override {
        if (tagNameFails) {
            return E_FAIL;
        }
        name = tag;
        return S_OK;
    }
    VRKResult SetTagName(const VRKString& name) override {
        ++setTagNameCalls;
        tag = name.str();
        return S_OK;
    }
    VRKResult GetAttribute(const VRKString& name, VRKString& value) const override {
        if (getAttributeFails) {
            return E_FAIL;
        }
        value = VRKString();
        for (const auto& [n, v] : attributes) {
            if (n == name.str()) {
                value = v;
            }
        }
        return S_OK;
    }
    VRKResult SetAttribute(const VRKString& name, const VRKString& value) override {
        for (auto& [n, v] : attributes) {
            if (n == name.str()) {
                v = value.str();
                return S_OK;
            }
        }
        attributes.emplace_back(name.str(), value.str());
        return S_OK;
    }

    // <tag a="v" ...>children</tag> on one line.
    std::string Dump() const {
        std::string text = "<" + tag;
        for (const auto& [n, v] : attributes) {
            text += " " + n + "=\"" + v + "\"";
        }
        if (children.empty()) {
            return text + "/>";
        }
        text += ">";
        for (const auto& child : children) {
            text += static_cast<const FakeElement*>(child.get())->Dump();
        }
        return text + "</" + tag + ">";
    }

  private:
    VRKSmartRef<FakeDocument> document_;
    FakeElement* parent_ = nullptr;
};

class FakeDocument final : public VRKIDOMDocument {
  public:
    // CreateElement fails for this tag name, or once this many elements have been made.
    std::string refusedTag;
    int createLimit = 1 << 30;
    int created = 0;

    VRKResult GetNodeName(VRKString& name) const override {
        name = "#document";
        return S_OK;
    }
    VRKResult GetOwnerDocument(VRKSmartRef<VRKIDOMDocument>& document) override {
        document = VRKSmartRef<VRKIDOMDocument>(this);
        return S_OK;
    }
    VRKResult GetFirstChild(VRKSmartRef<VRKIDOMNode>& child) override {
        child.reset();
        return S_OK;
    }
    VRKResult GetNextSibling(VRKSmartRef<VRKIDOMNode>& sibling) override {
        sibling.reset();
        return S_OK;
    }
    VRKResult AppendChild(const VRKSmartRef<VRKIDOMNode>& /*child*/) override { return E_FAIL; }
    VRKIDOMElement* AsElement() override { return nullptr; }
    VRKResult CreateElement(const VRKString& tagName,
                            VRKSmartRef<VRKIDOMElement>& element) override {
        if (tagName.str() == refusedTag || created >= createLimit) {
            return E_FAIL;
        }
        ++created;
        element = VRKSmartRef<VRKIDOMElement>::Adopt(new FakeElement(tagName.str(), this));
        return S_OK;
    }
    VRKResult GetDocumentElement(VRKSmartRef<VRKIDOMElement>& element) override {
        element.reset();
        return E_FAIL;
    }
};

inline FakeElement::FakeElement(std::string tagName, FakeDocument* document)
    : tag(std::move(tagName)), document_(document) {}

inline VRKResult FakeElement::GetOwnerDocument(VRKSmartRef<VRKIDOMDocument>& document) {
    document = VRKSmartRef<VRKIDOMDocument>(document_.get());
    return document ? S_OK : E_FAIL;
}

// A fake element held by a counted reference.
inline VRKSmartRef<FakeElement> MakeFake(const std::string& tag, FakeDocument* document = nullptr) {
    return VRKSmartRef<FakeElement>::Adopt(new FakeElement(tag, document));
}
