#pragma once

#include "properties/VRKGeneratorSettingsImpl.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "properties/VRKRecordForm.h"

// The settings interface of the HP-GL generator: its pen table and plot options as
// "HPGLProperties", and only that form.
class VRKPrintHPGLGeneratorImpl
    : public VRKGeneratorSettingsImpl<
          VRKRecordForm<VRKPrintHPGLProperties, VRKPropertiesXmlReader::ReadHPGLElement,
                        VRKPropertiesXmlWriter::WriteHPGL>> {
    VRK_DECLARE_CLASS(VRKPrintHPGLGeneratorImpl)
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGLGeneratorImpl(
    VRKDataExtension* implementation);
