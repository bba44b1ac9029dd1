#pragma once

#include "properties/VRKPropertiesXmlNode.h"

class VRKLightXmlElement;

// A light XML element seen as a settings node. A node made by CreateChild owns its element until
// it is appended; from then on it refers to the element where it sits.
class VRKPropertiesLightXmlNode final : public VRKPropertiesXmlNode {
  public:
    VRKPropertiesLightXmlNode(VRKLightXmlElement* element, VRKLightXmlElement* parent = nullptr,
                              int index = 0);
    ~VRKPropertiesLightXmlNode() override;

    bool GetName(VRKString& name) const override;
    void SetName(const VRKString& name) override;
    VRKString GetAttribute(const char* name) const override;
    void SetAttribute(const char* name, const VRKString& value) override;
    std::unique_ptr<VRKPropertiesXmlNode> FirstChild() override;
    std::unique_ptr<VRKPropertiesXmlNode> NextSibling() override;
    bool CanCreateChildren() override { return true; }
    std::unique_ptr<VRKPropertiesXmlNode> CreateChild(const char* name) override;
    void AppendChild(VRKPropertiesXmlNode& child) override;

  private:
    std::unique_ptr<VRKLightXmlElement> owned_;
    VRKLightXmlElement* element_;
    VRKLightXmlElement* parent_;
    int index_;
};
