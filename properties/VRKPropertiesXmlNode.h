#pragma once

#include <memory>

#include "host/core/VRKString.h"

// One element of a settings document, whichever XML model holds it. The property readers and
// writers are written once against this, and run on the host's light XML elements and on its DOM
// alike.
class VRKPropertiesXmlNode {
  public:
    virtual ~VRKPropertiesXmlNode() = default;

    // False when the model cannot tell the element's name.
    virtual bool GetName(VRKString& name) const = 0;
    virtual void SetName(const VRKString& name) = 0;
    // An absent attribute reads as the empty string.
    virtual VRKString GetAttribute(const char* name) const = 0;
    virtual void SetAttribute(const char* name, const VRKString& value) = 0;

    // The first child node and the next sibling, or null. A node that is not an element has no
    // name of interest to the readers (its name is never one they look for).
    virtual std::unique_ptr<VRKPropertiesXmlNode> FirstChild() = 0;
    virtual std::unique_ptr<VRKPropertiesXmlNode> NextSibling() = 0;

    // Gets ready to make child elements; false when the model cannot (a DOM element without an
    // owner document).
    virtual bool CanCreateChildren() = 0;
    // A new element, not yet in the document; null when it cannot be made.
    virtual std::unique_ptr<VRKPropertiesXmlNode> CreateChild(const char* name) = 0;
    // Appends an element made by CreateChild as this element's last child.
    virtual void AppendChild(VRKPropertiesXmlNode& child) = 0;
};
