#include "properties/VRKPrintHP1055CGeneratorImpl.h"

#include <new>

#include "designjet/VRKPrintHP1055CGenerator.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "properties/VRKRecordSettings.h"

VRK_DEFINE_CLASS(VRKPrintHP1055CGeneratorImpl, VRKDataExtension, "VRKPrintHP1055CGenerator",
                 "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP1055CGeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHP1055CGeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration({
    .interfaceName = VRKIPrtGeneratorProperties::kInterfaceName,
    .className = "VRKPrintHP1055CGenerator",
    .implementationName = "VRKPrintHP1055CGeneratorImpl",
    .framework = "Print",
    .createImplementation = []() -> VRKDataExtension* {
        return new (std::nothrow) VRKPrintHP1055CGeneratorImpl;
    },
    .createTie = CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP1055CGeneratorImpl,
});

using Settings = VRKRecordSettings<VRKPrintHP1055CProperties, VRKPropertiesXmlReader::ReadHP1055C,
                                   VRKPropertiesXmlWriter::WriteHP1055C>;

}  // namespace

VRKPrintHP1055CProperties* VRKPrintHP1055CGeneratorImpl::record() const {
    auto* generator = dynamic_cast<VRKPrintHP1055CGenerator*>(GetImpl(0));
    return generator != nullptr
               ? dynamic_cast<VRKPrintHP1055CProperties*>(generator->GetProperties())
               : nullptr;
}

VRKResult VRKPrintHP1055CGeneratorImpl::ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    return Settings::ReadFromDOM(record(), element);
}

VRKResult VRKPrintHP1055CGeneratorImpl::ReadFromXml(VRKLightXmlElement& element) {
    return Settings::ReadFromXml(record(), element);
}

VRKResult VRKPrintHP1055CGeneratorImpl::WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) {
    return Settings::WriteToDOM(record(), element);
}

VRKResult VRKPrintHP1055CGeneratorImpl::WriteToXml(VRKLightXmlElement& element) {
    return Settings::WriteToXml(record(), element);
}
