#include "properties/VRKPrintHPGL2GeneratorImpl.h"

#include <new>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"
#include "host/xml/VRKIDOMElement.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesDOMNode.h"
#include "properties/VRKPropertiesLightXmlNode.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"

VRK_DEFINE_CLASS(VRKPrintHPGL2GeneratorImpl, VRKDataExtension, "VRKPrintHPGL2Generator", "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGL2GeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHPGL2GeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration({
    .interfaceName = VRKIPrtGeneratorProperties::kInterfaceName,
    .className = "VRKPrintHPGL2Generator",
    .implementationName = "VRKPrintHPGL2GeneratorImpl",
    .framework = "Print",
    .createImplementation = []() -> VRKDataExtension* {
        return new (std::nothrow) VRKPrintHPGL2GeneratorImpl;
    },
    .createTie = CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGL2GeneratorImpl,
});

VRKPrintHPGL2Properties* recordOf(VRKPrintHPGL2Generator* generator) {
    return generator != nullptr ? dynamic_cast<VRKPrintHPGL2Properties*>(generator->GetProperties())
                                : nullptr;
}

}  // namespace

VRKPrintHPGL2Generator* VRKPrintHPGL2GeneratorImpl::generator() const {
    return dynamic_cast<VRKPrintHPGL2Generator*>(GetImpl(0));
}

VRKResult VRKPrintHPGL2GeneratorImpl::WriteToXml(VRKLightXmlElement& element) {
    VRKPrintHPGL2Generator* owner = generator();
    VRKPrintHPGL2Properties* record = recordOf(owner);
    if (record == nullptr) {
        return E_FAIL;
    }
    VRKPropertiesLightXmlNode node(&element);
    if (record->GetType() != 0) {
        VRKPrintHPGLProperties* hpgl = owner->GetHPGLSettings();
        return hpgl != nullptr ? VRKPropertiesXmlWriter::WriteHPGL(node, *hpgl) : E_FAIL;
    }
    return VRKPropertiesXmlWriter::WriteHPGL2(node, *record);
}

VRKResult VRKPrintHPGL2GeneratorImpl::ReadFromXml(VRKLightXmlElement& element) {
    VRKPrintHPGL2Generator* owner = generator();
    VRKPrintHPGL2Properties* record = recordOf(owner);
    if (record == nullptr) {
        return E_FAIL;
    }
    VRKPropertiesLightXmlNode node(&element);
    VRKString name;
    node.GetName(name);
    if (name == VRKString("HPGL2Properties")) {
        // The HP-GL/2 settings; the dialect stays as it is.
        return VRKPropertiesXmlReader::ReadHPGL2(node, *record);
    }
    if (name == VRKString("HPGLProperties")) {
        VRKPrintHPGLProperties* hpgl = owner->GetHPGLSettings();
        if (hpgl == nullptr) {
            return E_FAIL;
        }
        record->SetType(1);
        return VRKPropertiesXmlReader::ReadHPGL(node, *hpgl);
    }
    return E_FAIL;
}

VRKResult VRKPrintHPGL2GeneratorImpl::WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    VRKPrintHPGL2Generator* owner = generator();
    VRKPrintHPGL2Properties* record = recordOf(owner);
    if (record == nullptr) {
        return E_FAIL;
    }
    VRKPrintHPGLProperties* hpgl = record->GetType() != 0 ? owner->GetHPGLSettings() : nullptr;
    if (record->GetType() != 0 && hpgl == nullptr) {
        return E_FAIL;
    }
    if (!element) {
        return E_FAIL;
    }
    VRKPropertiesDOMNode node(VRKSmartRef<VRKIDOMNode>(element.get()));
    if (hpgl != nullptr) {
        node.SetAttribute("Type", "HPGL");
        return VRKPropertiesXmlWriter::WriteHPGL(node, *hpgl, false);
    }
    node.SetAttribute("Type", "HPGL2");
    return VRKPropertiesXmlWriter::WriteHPGL2(node, *record, false);
}

VRKResult VRKPrintHPGL2GeneratorImpl::ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    VRKPrintHPGL2Generator* owner = generator();
    VRKPrintHPGL2Properties* record = recordOf(owner);
    if (record == nullptr || !element) {
        return E_FAIL;
    }
    // The form comes from the "Type" attribute or, without one, from the element's name.
    VRKString type = "HPGL2";
    if (element->GetAttribute("Type", type) != S_OK || type.IsEmpty()) {
        VRKString tag;
        if (element->GetTagName(tag) != S_OK) {
            return E_FAIL;
        }
        if (tag == VRKString("HPGL2Properties")) {
            type = "HPGL2";
        } else if (tag == VRKString("HPGLProperties")) {
            type = "HPGL";
        } else {
            type = VRKString();
        }
    }
    VRKPropertiesDOMNode node(VRKSmartRef<VRKIDOMNode>(element.get()));
    if (type == VRKString("HPGL2")) {
        return VRKPropertiesXmlReader::ReadHPGL2(node, *record);
    }
    if (type == VRKString("HPGL")) {
        VRKPrintHPGLProperties* hpgl = owner->GetHPGLSettings();
        if (hpgl == nullptr) {
            return E_FAIL;
        }
        record->SetType(1);
        return VRKPropertiesXmlReader::ReadHPGL(node, *hpgl);
    }
    // A form of no known name reads nothing, and that is not a failure.
    return S_OK;
}
