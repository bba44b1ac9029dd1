#pragma once

#include "properties/VRKGeneratorSettingsImpl.h"
#include "properties/VRKHPGL2SettingsForm.h"
#include "properties/VRKPrintHPGL2Properties.h"

// The settings interface of the HP-GL/2 generator: its record in the HP-GL/2 form or, in the HP-GL
// dialect, the record's HP-GL settings in the HP-GL form (VRKHPGL2SettingsForm).
class VRKPrintHPGL2GeneratorImpl : public VRKGeneratorSettingsImpl<VRKHPGL2SettingsForm> {
    VRK_DECLARE_CLASS(VRKPrintHPGL2GeneratorImpl)
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGL2GeneratorImpl(
    VRKDataExtension* implementation);
