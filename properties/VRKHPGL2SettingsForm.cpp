#include "properties/VRKHPGL2SettingsForm.h"

#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesXmlNode.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"

namespace {

enum class Form { kHPGL2, kHPGL, kUnknown };

Form formOfName(const VRKString& name) {
    if (name == VRKString("HPGL2Properties")) {
        return Form::kHPGL2;
    }
    return name == VRKString("HPGLProperties") ? Form::kHPGL : Form::kUnknown;
}

Form formOfType(const VRKString& type) {
    if (type == VRKString("HPGL2")) {
        return Form::kHPGL2;
    }
    return type == VRKString("HPGL") ? Form::kHPGL : Form::kUnknown;
}

// Reads the element in the given form; `unknown` is the result for a form of no known name.
VRKResult readForm(VRKPropertiesXmlNode& node, VRKPrintHPGL2Properties& record, Form form,
                   VRKResult unknown) {
    switch (form) {
        case Form::kHPGL2:
            // The HP-GL/2 settings; the dialect stays as it is.
            return VRKPropertiesXmlReader::ReadHPGL2(node, record);
        case Form::kHPGL: {
            VRKPrintHPGLProperties* hpgl = record.GetHPGLProperties();
            if (hpgl == nullptr) {
                return E_FAIL;
            }
            record.SetType(1);
            return VRKPropertiesXmlReader::ReadHPGL(node, *hpgl);
        }
        case Form::kUnknown:
            break;
    }
    return unknown;
}

// Writes the form the dialect asks for; `setName` false writes a "Type" attribute instead of
// naming the element.
VRKResult writeForm(VRKPropertiesXmlNode& node, const VRKPrintHPGL2Properties& record,
                    bool setName) {
    if (record.GetType() == 0) {
        if (!setName) {
            node.SetAttribute("Type", "HPGL2");
        }
        return VRKPropertiesXmlWriter::WriteHPGL2(node, record, setName);
    }
    VRKPrintHPGLProperties* hpgl = record.GetHPGLProperties();
    if (hpgl == nullptr) {
        return E_FAIL;
    }
    if (!setName) {
        node.SetAttribute("Type", "HPGL");
    }
    return VRKPropertiesXmlWriter::WriteHPGL(node, *hpgl, setName);
}

}  // namespace

VRKResult VRKHPGL2SettingsForm::ReadXml(VRKPropertiesXmlNode& node, Record& record) {
    VRKString name;
    node.GetName(name);
    return readForm(node, record, formOfName(name), E_FAIL);
}

VRKResult VRKHPGL2SettingsForm::WriteXml(VRKPropertiesXmlNode& node, const Record& record) {
    return writeForm(node, record, true);
}

VRKResult VRKHPGL2SettingsForm::ReadDOM(VRKPropertiesXmlNode& node, Record& record) {
    // The form comes from the "Type" attribute or, without one, from the element's name.
    const VRKString type = node.GetAttribute("Type");
    if (!type.IsEmpty()) {
        return readForm(node, record, formOfType(type), S_OK);
    }
    VRKString name;
    if (!node.GetName(name)) {
        return E_FAIL;
    }
    return readForm(node, record, formOfName(name), S_OK);
}

VRKResult VRKHPGL2SettingsForm::WriteDOM(VRKPropertiesXmlNode& node, const Record& record) {
    return writeForm(node, record, false);
}
