#include "properties/VRKPropertiesLightXmlNode.h"

#include "host/xml/VRKLightXmlElement.h"

VRKPropertiesLightXmlNode::VRKPropertiesLightXmlNode(VRKLightXmlElement* element,
                                                     VRKLightXmlElement* parent, int index)
    : element_(element), parent_(parent), index_(index) {}

VRKPropertiesLightXmlNode::~VRKPropertiesLightXmlNode() = default;

bool VRKPropertiesLightXmlNode::GetName(VRKString& name) const {
    name = element_->GetName();
    return true;
}

void VRKPropertiesLightXmlNode::SetName(const VRKString& name) {
    element_->SetName(name);
}

VRKString VRKPropertiesLightXmlNode::GetAttribute(const char* name) const {
    return element_->GetAttribute(name);
}

void VRKPropertiesLightXmlNode::SetAttribute(const char* name, const VRKString& value) {
    element_->SetAttribute(name, value);
}

std::unique_ptr<VRKPropertiesXmlNode> VRKPropertiesLightXmlNode::FirstChild() {
    VRKLightXmlElement* child = element_->GetFirstChild();
    if (child == nullptr) {
        return nullptr;
    }
    return std::make_unique<VRKPropertiesLightXmlNode>(child, element_, 0);
}

std::unique_ptr<VRKPropertiesXmlNode> VRKPropertiesLightXmlNode::NextSibling() {
    if (parent_ == nullptr) {
        return nullptr;
    }
    VRKLightXmlElement* sibling = parent_->GetChild(index_ + 1);
    if (sibling == nullptr) {
        return nullptr;
    }
    return std::make_unique<VRKPropertiesLightXmlNode>(sibling, parent_, index_ + 1);
}

std::unique_ptr<VRKPropertiesXmlNode> VRKPropertiesLightXmlNode::CreateChild(const char* name) {
    auto element = std::make_unique<VRKLightXmlElement>(VRKString(name));
    auto node = std::make_unique<VRKPropertiesLightXmlNode>(element.get());
    node->owned_ = std::move(element);
    return node;
}

void VRKPropertiesLightXmlNode::AppendChild(VRKPropertiesXmlNode& child) {
    auto& light = static_cast<VRKPropertiesLightXmlNode&>(child);
    if (light.owned_ == nullptr) {
        return;
    }
    VRKLightXmlElement& placed = element_->AddChild(std::move(*light.owned_));
    light.owned_.reset();
    light.element_ = &placed;
    light.parent_ = element_;
    light.index_ = element_->GetChildCount() - 1;
}
