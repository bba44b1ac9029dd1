#include "properties/VRKPrintHPGLGeneratorImpl.h"

#include <new>

#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"
#include "hpgl/VRKPrintHPGLGenerator.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "properties/VRKRecordSettings.h"

VRK_DEFINE_CLASS(VRKPrintHPGLGeneratorImpl, VRKDataExtension, "VRKPrintHPGLGenerator", "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGLGeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHPGLGeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration({
    .interfaceName = VRKIPrtGeneratorProperties::kInterfaceName,
    .className = "VRKPrintHPGLGenerator",
    .implementationName = "VRKPrintHPGLGeneratorImpl",
    .framework = "Print",
    .createImplementation = []() -> VRKDataExtension* {
        return new (std::nothrow) VRKPrintHPGLGeneratorImpl;
    },
    .createTie = CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGLGeneratorImpl,
});

// The HP-GL generator reads only its own form.
VRKResult readHPGLElement(VRKPropertiesXmlNode& node, VRKPrintHPGLProperties& record) {
    VRKString name;
    if (!node.GetName(name) || !(name == VRKString("HPGLProperties"))) {
        return E_FAIL;
    }
    return VRKPropertiesXmlReader::ReadHPGL(node, record);
}

VRKResult writeHPGLElement(VRKPropertiesXmlNode& node, const VRKPrintHPGLProperties& record) {
    return VRKPropertiesXmlWriter::WriteHPGL(node, record);
}

using Settings = VRKRecordSettings<VRKPrintHPGLProperties, readHPGLElement, writeHPGLElement>;

}  // namespace

VRKPrintHPGLProperties* VRKPrintHPGLGeneratorImpl::record() const {
    auto* generator = dynamic_cast<VRKPrintHPGLGenerator*>(GetImpl(0));
    return generator != nullptr ? dynamic_cast<VRKPrintHPGLProperties*>(generator->GetProperties())
                                : nullptr;
}

VRKResult VRKPrintHPGLGeneratorImpl::ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    return Settings::ReadFromDOM(record(), element);
}

VRKResult VRKPrintHPGLGeneratorImpl::ReadFromXml(VRKLightXmlElement& element) {
    return Settings::ReadFromXml(record(), element);
}

VRKResult VRKPrintHPGLGeneratorImpl::WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    return Settings::WriteToDOM(record(), element);
}

VRKResult VRKPrintHPGLGeneratorImpl::WriteToXml(VRKLightXmlElement& element) {
    return Settings::WriteToXml(record(), element);
}
