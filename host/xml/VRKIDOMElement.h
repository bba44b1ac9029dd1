#pragma once

#include "host/xml/VRKIDOMNode.h"

// An element of the host's DOM.
class VRKIDOMElement : public VRKIDOMNode {
  public:
    virtual VRKResult GetTagName(VRKString& name) const = 0;
    virtual VRKResult SetTagName(const VRKString& name) = 0;
    // An absent attribute reads as the empty string, with S_OK.
    virtual VRKResult GetAttribute(const VRKString& name, VRKString& value) const = 0;
    // An existing attribute keeps its place; a new one goes last.
    virtual VRKResult SetAttribute(const VRKString& name, const VRKString& value) = 0;
};

using VRKIDOMElementRef = VRKSmartRef<VRKIDOMElement>;
