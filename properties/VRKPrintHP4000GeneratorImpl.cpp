#include "properties/VRKPrintHP4000GeneratorImpl.h"

#include <new>

#include "designjet/VRKPrintHP4000Generator.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "properties/VRKRecordSettings.h"

VRK_DEFINE_CLASS(VRKPrintHP4000GeneratorImpl, VRKDataExtension, "VRKPrintHP4000Generator", "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHP4000GeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration({
    .interfaceName = VRKIPrtGeneratorProperties::kInterfaceName,
    .className = "VRKPrintHP4000Generator",
    .implementationName = "VRKPrintHP4000GeneratorImpl",
    .framework = "Print",
    .createImplementation = []() -> VRKDataExtension* {
        return new (std::nothrow) VRKPrintHP4000GeneratorImpl;
    },
    .createTie = CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl,
});

using Settings = VRKRecordSettings<VRKPrintHP4000Properties, VRKPropertiesXmlReader::ReadHP4000,
                                   VRKPropertiesXmlWriter::WriteHP4000>;

}  // namespace

VRKPrintHP4000Properties* VRKPrintHP4000GeneratorImpl::record() const {
    auto* generator = dynamic_cast<VRKPrintHP4000Generator*>(GetImpl(0));
    return generator != nullptr
               ? dynamic_cast<VRKPrintHP4000Properties*>(generator->GetProperties())
               : nullptr;
}

VRKResult VRKPrintHP4000GeneratorImpl::ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    return Settings::ReadFromDOM(record(), element);
}

VRKResult VRKPrintHP4000GeneratorImpl::ReadFromXml(VRKLightXmlElement& element) {
    return Settings::ReadFromXml(record(), element);
}

VRKResult VRKPrintHP4000GeneratorImpl::WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    return Settings::WriteToDOM(record(), element);
}

VRKResult VRKPrintHP4000GeneratorImpl::WriteToXml(VRKLightXmlElement& element) {
    return Settings::WriteToXml(record(), element);
}
