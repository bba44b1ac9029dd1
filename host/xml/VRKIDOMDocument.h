#pragma once

#include "host/xml/VRKIDOMElement.h"

// A document of the host's DOM: it creates the elements that are then appended to its nodes.
class VRKIDOMDocument : public VRKIDOMNode {
  public:
    // A new element that belongs to this document but sits in no element until appended.
    virtual VRKResult CreateElement(const VRKString& tagName,
                                    VRKSmartRef<VRKIDOMElement>& element) = 0;
    virtual VRKResult GetDocumentElement(VRKSmartRef<VRKIDOMElement>& element) = 0;
};

using VRKIDOMDocumentRef = VRKSmartRef<VRKIDOMDocument>;
