// Meta classes of the host's interfaces, so that IsA() on a TIE object names its interface.
#include "host/core/VRKCreateCorba.h"
#include "host/core/VRKIPrtGeneratorProperties.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKSerialize.h"

VRK_DEFINE_CLASS(VRKIPrtGeneratorProperties, VRKBaseUnknown, "VRKNull", "System")
VRK_DEFINE_CLASS(VRKMarshallableCorba, VRKBaseUnknown, "VRKNull", "System")
VRK_DEFINE_CLASS(VRKSerialize, VRKBaseUnknown, "VRKNull", "System")
VRK_DEFINE_CLASS(VRKCreateCorba, VRKBaseUnknown, "VRKNull", "System")
