#include "properties/VRKPrintHP4000GeneratorImpl.h"

#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"

VRK_DEFINE_CLASS(VRKPrintHP4000GeneratorImpl, VRKDataExtension, "VRKPrintHP4000Generator", "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHP4000GeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration(VRKExtensionEntry<VRKPrintHP4000GeneratorImpl>(
    VRKIPrtGeneratorProperties::kInterfaceName,
    &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl));

}  // namespace
