// Meta classes of the host's interfaces, so that IsA() on a TIE object names its interface.
#include "host/core/VRKIPrtGeneratorProperties.h"

VRK_DEFINE_CLASS(VRKIPrtGeneratorProperties, VRKBaseUnknown, "VRKNull", "System")
