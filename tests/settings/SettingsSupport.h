#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/core/VRKBaseUnknown.h"
#include "host/xml/VRKDOMImplementation.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"
#include "properties/VRKPrintHPGLProperties.h"

// Helpers of the settings tests: records owned for one test, elements shown as one line of text,
// and pen tables read back in full.

// A record (or any counted object) made with new and released at the end of the test.
template <class T>
struct Owned {
    T* p = new T;
    Owned() = default;
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { p->Release(); }
    T* operator->() const { return p; }
    T& operator*() const { return *p; }
};

// An element on one line: <name a="v" ...>children</name>, or <name .../> without children.
// Attributes appear in their order in the element, so a test of this text checks names, values
// and order at once.
inline std::string Dump(const VRKLightXmlElement& element) {
    std::string text = "<" + element.GetName().str();
    for (const auto& [name, value] : element.GetAttributes()) {
        text += " " + name.str() + "=\"" + value.str() + "\"";
    }
    if (element.GetChildCount() == 0) {
        return text + "/>";
    }
    text += ">";
    for (int i = 0; i < element.GetChildCount(); ++i) {
        text += Dump(*element.GetChild(i));
    }
    return text + "</" + element.GetName().str() + ">";
}

// A light element from XML text; an element named "#bad" when the text is not XML.
inline VRKLightXmlElement Light(const std::string& xml) {
    VRKLightXmlElement element;
    std::string error;
    if (!VRKLightXmlFile::Parse(xml, element, error)) {
        element.SetName("#bad");
    }
    return element;
}

// The document element of a DOM document as a light element, through the document's text.
inline VRKLightXmlElement LightOfDOM(const VRKIDOMDocumentRef& document) {
    return Light(VRKDOMImplementation::ToText(document));
}

// The document element of a DOM document.
inline VRKIDOMElementRef RootOf(const VRKIDOMDocumentRef& document) {
    VRKIDOMElementRef root;
    if (document) {
        document->GetDocumentElement(root);
    }
    return root;
}

// The pen table as the getters give it: penCount entries of each array.
struct PenTable {
    int count = 0;
    std::vector<float> red, green, blue, width;
    std::vector<int> enable;

    explicit PenTable(const VRKPrintHPGLProperties& record)
        : count(record.GetPenCount()), red(32), green(32), blue(32), width(32), enable(32) {
        record.GetPenColors(red.data(), green.data(), blue.data());
        record.GetPenWidths(width.data());
        record.GetPenEnables(enable.data());
    }
};

// Reads the pens of a record, all 32 slots, past the pen count.
struct PenArrays {
    static const VRKPen& Pen(const VRKPrintHPGLProperties& r, int i) {
        return r.GetPenTable().Slots()[static_cast<size_t>(i)];
    }
    static float Red(const VRKPrintHPGLProperties& r, int i) { return Pen(r, i).red; }
    static float Green(const VRKPrintHPGLProperties& r, int i) { return Pen(r, i).green; }
    static float Blue(const VRKPrintHPGLProperties& r, int i) { return Pen(r, i).blue; }
    static float Width(const VRKPrintHPGLProperties& r, int i) { return Pen(r, i).width; }
    static int Enable(const VRKPrintHPGLProperties& r, int i) { return Pen(r, i).enable; }
};

// Fills every pen array of a record with one set of values for all 32 slots, count included.
inline void FillPens(VRKPrintHPGLProperties& record, int count, float red, float green, float blue,
                     float width, int enable) {
    std::vector<float> r(32, red), g(32, green), b(32, blue), w(32, width);
    std::vector<int> e(32, enable);
    record.SetPens(count, r.data(), g.data(), b.data(), w.data(), e.data());
}
