#pragma once

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKIPrtGeneratorProperties.h"

class VRKPrintHPGL2Generator;

// The settings interface of the HP-GL/2 generator. The record's Type says the form: HP-GL/2
// settings in "HPGL2Properties", or the HP-GL settings (pens, origin) of the generator in
// "HPGLProperties". In the DOM the element keeps its name and an attribute "Type" ("HPGL2" or
// "HPGL") says the form instead. Changes go straight into the generator's live records.
class VRKPrintHPGL2GeneratorImpl : public VRKDataExtension {
    VRK_DECLARE_CLASS(VRKPrintHPGL2GeneratorImpl)

  public:
    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult ReadFromXml(VRKLightXmlElement& element);
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element);
    VRKResult WriteToXml(VRKLightXmlElement& element);

  private:
    VRKPrintHPGL2Generator* generator() const;
};

// Wraps an implementation in its TIE object; null when it is not one of this class.
extern "C" VRKBaseUnknown* CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGL2GeneratorImpl(
    VRKDataExtension* implementation);
