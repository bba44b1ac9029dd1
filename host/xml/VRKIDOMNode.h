#pragma once

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKResult.h"
#include "host/core/VRKSmartRef.h"
#include "host/core/VRKString.h"

class VRKIDOMDocument;
class VRKIDOMElement;

// A node of the host's DOM. Nodes are reached through counted references (VRKSmartRef); every
// operation returns S_OK or E_FAIL. A node that is not an element (text, say) answers null to
// AsElement().
class VRKIDOMNode : public VRKBaseUnknown {
  public:
    virtual VRKResult GetNodeName(VRKString& name) const = 0;
    // The document the node belongs to.
    virtual VRKResult GetOwnerDocument(VRKSmartRef<VRKIDOMDocument>& document) = 0;
    // S_OK with an empty reference when there is no such node.
    virtual VRKResult GetFirstChild(VRKSmartRef<VRKIDOMNode>& child) = 0;
    virtual VRKResult GetNextSibling(VRKSmartRef<VRKIDOMNode>& sibling) = 0;
    // Moves a node of the same document to the end of this node's children.
    virtual VRKResult AppendChild(const VRKSmartRef<VRKIDOMNode>& child) = 0;
    virtual VRKIDOMElement* AsElement() = 0;
};
