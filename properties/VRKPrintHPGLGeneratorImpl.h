#pragma once

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKIPrtGeneratorProperties.h"

class VRKPrintHPGLProperties;

// The settings interface of the HP-GL generator: its pen table and plot options as
// "HPGLProperties". Changes go straight into the generator's live record; without a record every
// operation fails.
class VRKPrintHPGLGeneratorImpl : public VRKDataExtension {
    VRK_DECLARE_CLASS(VRKPrintHPGLGeneratorImpl)

  public:
    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult ReadFromXml(VRKLightXmlElement& element);
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult WriteToXml(VRKLightXmlElement& element);

  private:
    VRKPrintHPGLProperties* record() const;
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGLGeneratorImpl(
    VRKDataExtension* implementation);
