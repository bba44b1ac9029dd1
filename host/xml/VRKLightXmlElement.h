#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/core/VRKString.h"

// The host's light XML model: an element with a name, attributes in the order they were set and
// child elements in document order. Text content, comments and processing instructions are not
// part of the model. An element owns its children.
//
// An element read from a file knows the line its start tag is on, for messages about it; the line
// is not part of the element's value and two elements on different lines can be equal.
class VRKLightXmlElement {
  public:
    VRKLightXmlElement() = default;
    explicit VRKLightXmlElement(VRKString name) : name_(std::move(name)) {}

    const VRKString& GetName() const { return name_; }
    void SetName(const VRKString& name) { name_ = name; }

    // The value of an attribute; an absent attribute reads as the empty string.
    VRKString GetAttribute(const VRKString& name) const;
    bool HasAttribute(const VRKString& name) const;
    // Sets an attribute: an existing one keeps its place, a new one goes last.
    void SetAttribute(const VRKString& name, const VRKString& value);
    void RemoveAttribute(const VRKString& name);
    // Replaces all attributes by `attributes`, in their order; the names must be distinct. Builds
    // an element of many attributes at once, where setting them one by one would compare each
    // name with all before it.
    void SetAttributes(std::vector<std::pair<VRKString, VRKString>> attributes) {
        attributes_ = std::move(attributes);
    }
    int GetAttributeCount() const { return static_cast<int>(attributes_.size()); }
    // The attributes in order, as (name, value) pairs.
    const std::vector<std::pair<VRKString, VRKString>>& GetAttributes() const {
        return attributes_;
    }

    int GetChildCount() const { return static_cast<int>(children_.size()); }
    // The child at a 0-based index, or null.
    VRKLightXmlElement* GetChild(int index);
    const VRKLightXmlElement* GetChild(int index) const;
    VRKLightXmlElement* GetFirstChild() { return GetChild(0); }
    const VRKLightXmlElement* GetFirstChild() const { return GetChild(0); }
    // Appends a child and returns the element as it now sits in this one.
    VRKLightXmlElement& AddChild(VRKLightXmlElement child);
    void RemoveChildren() { children_.clear(); }

    // The 1-based line of the element's start tag in the text it was read from; 0 when unknown
    // (an element made in code).
    int GetSourceLine() const { return sourceLine_; }
    void SetSourceLine(int line) { sourceLine_ = line; }

    // Removes name, attributes and children, and forgets the line.
    void Clear();

    // Same name, same attributes in the same order, same children; the lines do not count.
    friend bool operator==(const VRKLightXmlElement& a, const VRKLightXmlElement& b);

  private:
    VRKString name_;
    std::vector<std::pair<VRKString, VRKString>> attributes_;
    std::vector<VRKLightXmlElement> children_;
    int sourceLine_ = 0;
};
