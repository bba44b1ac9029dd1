#pragma once

#include "properties/VRKGeneratorSettingsImpl.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "properties/VRKRecordForm.h"

// The settings interface of the DesignJet 4000 generator: its record as "HP4000GL2Properties".
class VRKPrintHP4000GeneratorImpl
    : public VRKGeneratorSettingsImpl<
          VRKRecordForm<VRKPrintHP4000Properties, VRKPropertiesXmlReader::ReadHP4000,
                        VRKPropertiesXmlWriter::WriteHP4000>> {
    VRK_DECLARE_CLASS(VRKPrintHP4000GeneratorImpl)
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl(
    VRKDataExtension* implementation);
