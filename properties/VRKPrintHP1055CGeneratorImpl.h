#pragma once

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKIPrtGeneratorProperties.h"

class VRKPrintHP1055CProperties;

// The settings interface of the DesignJet 1000 generator: its record as "HP1000GL2Properties".
// Changes go straight into the generator's live record; without a record every operation fails.
class VRKPrintHP1055CGeneratorImpl : public VRKDataExtension {
    VRK_DECLARE_CLASS(VRKPrintHP1055CGeneratorImpl)

  public:
    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult ReadFromXml(VRKLightXmlElement& element);
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult WriteToXml(VRKLightXmlElement& element);

  private:
    VRKPrintHP1055CProperties* record() const;
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP1055CGeneratorImpl(
    VRKDataExtension* implementation);
