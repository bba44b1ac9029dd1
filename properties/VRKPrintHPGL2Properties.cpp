#include "properties/VRKPrintHPGL2Properties.h"

#include <new>

#include "properties/VRKPrintHPGLProperties.h"

VRK_DEFINE_CLASS(VRKPrintHPGL2Properties, VRKBaseUnknown, "VRKNull", "Print")

VRKPrintHPGL2Properties::VRKPrintHPGL2Properties()
    : hpglProperties(new (std::nothrow) VRKPrintHPGLProperties) {}

VRKPrintHPGL2Properties::~VRKPrintHPGL2Properties() {
    if (hpglProperties != nullptr) {
        hpglProperties->Release();
        hpglProperties = nullptr;
    }
}
