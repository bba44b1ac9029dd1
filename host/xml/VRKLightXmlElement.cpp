#include "host/xml/VRKLightXmlElement.h"

#include <algorithm>

VRKString VRKLightXmlElement::GetAttribute(const VRKString& name) const {
    for (const auto& [key, value] : attributes_) {
        if (key == name) {
            return value;
        }
    }
    return {};
}

bool VRKLightXmlElement::HasAttribute(const VRKString& name) const {
    return std::any_of(attributes_.begin(), attributes_.end(),
                       [&](const auto& attribute) { return attribute.first == name; });
}

void VRKLightXmlElement::SetAttribute(const VRKString& name, const VRKString& value) {
    for (auto& [key, old] : attributes_) {
        if (key == name) {
            old = value;
            return;
        }
    }
    attributes_.emplace_back(name, value);
}

void VRKLightXmlElement::RemoveAttribute(const VRKString& name) {
    std::erase_if(attributes_, [&](const auto& attribute) { return attribute.first == name; });
}

VRKLightXmlElement* VRKLightXmlElement::GetChild(int index) {
    if (index < 0 || index >= GetChildCount()) {
        return nullptr;
    }
    return &children_[static_cast<size_t>(index)];
}

const VRKLightXmlElement* VRKLightXmlElement::GetChild(int index) const {
    if (index < 0 || index >= GetChildCount()) {
        return nullptr;
    }
    return &children_[static_cast<size_t>(index)];
}

VRKLightXmlElement& VRKLightXmlElement::AddChild(VRKLightXmlElement child) {
    children_.push_back(std::move(child));
    return children_.back();
}

void VRKLightXmlElement::Clear() {
    name_ = VRKString();
    attributes_.clear();
    children_.clear();
    sourceLine_ = 0;
}

bool operator==(const VRKLightXmlElement& a, const VRKLightXmlElement& b) {
    return a.name_ == b.name_ && a.attributes_ == b.attributes_ && a.children_ == b.children_;
}
