#pragma once

#include "host/xml/VRKIDOMDocument.h"
#include "properties/VRKPropertiesXmlNode.h"

// A DOM node seen as a settings node. Children are made by the element's owner document.
class VRKPropertiesDOMNode final : public VRKPropertiesXmlNode {
  public:
    explicit VRKPropertiesDOMNode(VRKSmartRef<VRKIDOMNode> node);

    bool GetName(VRKString& name) const override;
    void SetName(const VRKString& name) override;
    VRKString GetAttribute(const char* name) const override;
    void SetAttribute(const char* name, const VRKString& value) override;
    std::unique_ptr<VRKPropertiesXmlNode> FirstChild() override;
    std::unique_ptr<VRKPropertiesXmlNode> NextSibling() override;
    bool CanCreateChildren() override;
    std::unique_ptr<VRKPropertiesXmlNode> CreateChild(const char* name) override;
    void AppendChild(VRKPropertiesXmlNode& child) override;

  private:
    VRKIDOMElement* element() const { return node_ ? node_->AsElement() : nullptr; }

    VRKSmartRef<VRKIDOMNode> node_;
    VRKSmartRef<VRKIDOMDocument> document_;
};
