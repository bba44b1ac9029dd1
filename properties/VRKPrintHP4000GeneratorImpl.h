#pragma once

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKIPrtGeneratorProperties.h"

class VRKPrintHP4000Properties;

// The settings interface of the DesignJet 4000 generator: its record as "HP4000GL2Properties".
// Changes go straight into the generator's live record; without a record every operation fails.
class VRKPrintHP4000GeneratorImpl : public VRKDataExtension {
    VRK_DECLARE_CLASS(VRKPrintHP4000GeneratorImpl)

  public:
    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult ReadFromXml(VRKLightXmlElement& element);
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult WriteToXml(VRKLightXmlElement& element);

  private:
    VRKPrintHP4000Properties* record() const;
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl(
    VRKDataExtension* implementation);
