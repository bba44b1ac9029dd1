#pragma once

#include "host/core/VRKResult.h"

class VRKPropertiesXmlNode;
class VRKPrintHPGL2Properties;

// The settings form of the HP-GL/2 generator, a form of VRKGeneratorSettingsImpl. The record's
// Type says the form: HP-GL/2 settings in "HPGL2Properties", or the HP-GL settings (pens, origin)
// the record owns (GetHPGLProperties(), the settings the HP-GL dialect plots with) in
// "HPGLProperties". Reading the HP-GL form sets the dialect to HP-GL; reading the HP-GL/2 form
// leaves the dialect as it is. In the DOM the element keeps its name and an attribute "Type"
// ("HPGL2" or "HPGL") says the form instead; an element without one is read by its name.
class VRKHPGL2SettingsForm {
  public:
    using Record = VRKPrintHPGL2Properties;

    // E_FAIL for an element of another name.
    static VRKResult ReadXml(VRKPropertiesXmlNode& node, Record& record);
    static VRKResult WriteXml(VRKPropertiesXmlNode& node, const Record& record);
    // A form of no known name reads nothing, and that is not a failure.
    static VRKResult ReadDOM(VRKPropertiesXmlNode& node, Record& record);
    static VRKResult WriteDOM(VRKPropertiesXmlNode& node, const Record& record);
};
