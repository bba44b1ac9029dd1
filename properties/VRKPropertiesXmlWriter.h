#pragma once

#include "host/core/VRKResult.h"

class VRKPropertiesXmlNode;
class VRKPrintHPGL2Properties;
class VRKPrintHPGLProperties;
class VRKPrintHP1055CProperties;
class VRKPrintHP4000Properties;

// Writes property records into settings elements. Attributes go in a fixed order; a field whose
// value has no spelling is left out, and numbers are written as they are, unchecked. `setName`
// false leaves the element's name as the caller made it (the HP-GL/2 generator's DOM form, which
// says its dialect in a "Type" attribute instead).
class VRKPropertiesXmlWriter {
  public:
    // "HPGL2Properties": mediaType, cutterState, quality.
    static VRKResult WriteHPGL2(VRKPropertiesXmlNode& node, const VRKPrintHPGL2Properties& record,
                                bool setName = true);
    // "HPGLProperties": origin, relativeMovePen, printThickness and the "pens" child. E_FAIL when
    // the element cannot make children; the three attributes are written by then.
    static VRKResult WriteHPGL(VRKPropertiesXmlNode& node, const VRKPrintHPGLProperties& record,
                               bool setName);
    // The same, naming the element (the form a settings interface takes as its writer).
    static VRKResult WriteHPGL(VRKPropertiesXmlNode& node, const VRKPrintHPGLProperties& record) {
        return WriteHPGL(node, record, true);
    }
    // "HP1000GL2Properties" with its feeder child.
    static VRKResult WriteHP1055C(VRKPropertiesXmlNode& node,
                                  const VRKPrintHP1055CProperties& record);
    // "HP4000GL2Properties".
    static VRKResult WriteHP4000(VRKPropertiesXmlNode& node,
                                 const VRKPrintHP4000Properties& record);
};
