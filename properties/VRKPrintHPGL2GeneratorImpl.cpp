#include "properties/VRKPrintHPGL2GeneratorImpl.h"

#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"

VRK_DEFINE_CLASS(VRKPrintHPGL2GeneratorImpl, VRKDataExtension, "VRKPrintHPGL2Generator", "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGL2GeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHPGL2GeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration(VRKExtensionEntry<VRKPrintHPGL2GeneratorImpl>(
    VRKIPrtGeneratorProperties::kInterfaceName,
    &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGL2GeneratorImpl));

}  // namespace
