#pragma once

#include "host/core/VRKResult.h"

class VRKPropertiesXmlNode;
class VRKPrintHPGL2Properties;
class VRKPrintHPGLProperties;
class VRKPrintHP1055CProperties;
class VRKPrintHP4000Properties;

// Reads settings elements into property records, in place. A value is taken only when it is
// identical to one of its field's spellings; a missing attribute or any other value leaves the
// field as it was (the HP-GL/2 quality, a plain number, is the exception: it reads 0 when it is
// missing). A number that does not fit its field (beyond the int, not finite, beyond the float,
// or a pen width beyond the plotter's range) leaves the field as it was, and a pen whose number
// does not fit is skipped. Nothing is rolled back: fields read before a failure stay set.
class VRKPropertiesXmlReader {
  public:
    // The attributes of an "HPGL2Properties" element; the caller has checked the name.
    static VRKResult ReadHPGL2(VRKPropertiesXmlNode& node, VRKPrintHPGL2Properties& record);
    // The attributes and pens of an "HPGLProperties" element; the caller has checked the name.
    static VRKResult ReadHPGL(VRKPropertiesXmlNode& node, VRKPrintHPGLProperties& record);
    // E_FAIL, with nothing read, for an element of another name.
    static VRKResult ReadHPGLElement(VRKPropertiesXmlNode& node, VRKPrintHPGLProperties& record);
    static VRKResult ReadHP1055C(VRKPropertiesXmlNode& node, VRKPrintHP1055CProperties& record);
    static VRKResult ReadHP4000(VRKPropertiesXmlNode& node, VRKPrintHP4000Properties& record);
};
