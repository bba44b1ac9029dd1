#include "properties/VRKPrintHP1055CGeneratorImpl.h"

#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"

VRK_DEFINE_CLASS(VRKPrintHP1055CGeneratorImpl, VRKDataExtension, "VRKPrintHP1055CGenerator",
                 "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP1055CGeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHP1055CGeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration(VRKExtensionEntry<VRKPrintHP1055CGeneratorImpl>(
    VRKIPrtGeneratorProperties::kInterfaceName,
    &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP1055CGeneratorImpl));

}  // namespace
