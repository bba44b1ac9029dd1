#pragma once

#include "properties/VRKGeneratorSettingsImpl.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "properties/VRKRecordForm.h"

// The settings interface of the DesignJet 1000 generator: its record as "HP1000GL2Properties".
class VRKPrintHP1055CGeneratorImpl
    : public VRKGeneratorSettingsImpl<
          VRKRecordForm<VRKPrintHP1055CProperties, VRKPropertiesXmlReader::ReadHP1055C,
                        VRKPropertiesXmlWriter::WriteHP1055C>> {
    VRK_DECLARE_CLASS(VRKPrintHP1055CGeneratorImpl)
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP1055CGeneratorImpl(
    VRKDataExtension* implementation);
