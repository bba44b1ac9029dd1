#include "properties/VRKPrintHPGLGeneratorImpl.h"

#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKTieFactory.h"

VRK_DEFINE_CLASS(VRKPrintHPGLGeneratorImpl, VRKDataExtension, "VRKPrintHPGLGenerator", "Print")

VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGLGeneratorImpl(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEIPrtGeneratorProperties, VRKPrintHPGLGeneratorImpl>(implementation);
}

namespace {

const VRKInterfaceRegistration registration(VRKExtensionEntry<VRKPrintHPGLGeneratorImpl>(
    VRKIPrtGeneratorProperties::kInterfaceName,
    &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGLGeneratorImpl));

}  // namespace
