#include "properties/VRKPropertiesDOMNode.h"

VRKPropertiesDOMNode::VRKPropertiesDOMNode(VRKSmartRef<VRKIDOMNode> node)
    : node_(std::move(node)) {}

bool VRKPropertiesDOMNode::GetName(VRKString& name) const {
    if (VRKIDOMElement* e = element()) {
        return e->GetTagName(name) == S_OK;
    }
    // Text and other nodes have no tag name; they never match the names the readers look for.
    name = VRKString();
    return static_cast<bool>(node_);
}

void VRKPropertiesDOMNode::SetName(const VRKString& name) {
    if (VRKIDOMElement* e = element()) {
        e->SetTagName(name);
    }
}

VRKString VRKPropertiesDOMNode::GetAttribute(const char* name) const {
    VRKString value;
    if (VRKIDOMElement* e = element(); e == nullptr || e->GetAttribute(name, value) != S_OK) {
        return {};
    }
    return value;
}

void VRKPropertiesDOMNode::SetAttribute(const char* name, const VRKString& value) {
    if (VRKIDOMElement* e = element()) {
        e->SetAttribute(name, value);
    }
}

std::unique_ptr<VRKPropertiesXmlNode> VRKPropertiesDOMNode::FirstChild() {
    VRKSmartRef<VRKIDOMNode> child;
    if (!node_ || node_->GetFirstChild(child) != S_OK || !child) {
        return nullptr;
    }
    return std::make_unique<VRKPropertiesDOMNode>(std::move(child));
}

std::unique_ptr<VRKPropertiesXmlNode> VRKPropertiesDOMNode::NextSibling() {
    VRKSmartRef<VRKIDOMNode> sibling;
    if (!node_ || node_->GetNextSibling(sibling) != S_OK || !sibling) {
        return nullptr;
    }
    return std::make_unique<VRKPropertiesDOMNode>(std::move(sibling));
}

bool VRKPropertiesDOMNode::CanCreateChildren() {
    if (!document_ && node_) {
        node_->GetOwnerDocument(document_);
    }
    return static_cast<bool>(document_);
}

std::unique_ptr<VRKPropertiesXmlNode> VRKPropertiesDOMNode::CreateChild(const char* name) {
    if (!CanCreateChildren()) {
        return nullptr;
    }
    VRKSmartRef<VRKIDOMElement> created;
    if (document_->CreateElement(name, created) != S_OK || !created) {
        return nullptr;
    }
    auto node = std::make_unique<VRKPropertiesDOMNode>(VRKSmartRef<VRKIDOMNode>(created.get()));
    node->document_ = document_;
    return node;
}

void VRKPropertiesDOMNode::AppendChild(VRKPropertiesXmlNode& child) {
    if (node_) {
        node_->AppendChild(static_cast<VRKPropertiesDOMNode&>(child).node_);
    }
}
