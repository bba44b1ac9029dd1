#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"

VRK_DEFINE_CLASS(VRKPrintHP1055CProperties, VRKPrintHPGL2Properties, "VRKNull", "Print")
VRK_DEFINE_CLASS(VRKPrintHP4000Properties, VRKPrintHPGL2Properties, "VRKNull", "Print")
