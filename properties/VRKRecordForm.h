#pragma once

#include "host/core/VRKResult.h"
#include "properties/VRKPropertiesXmlNode.h"

// The settings form of a generator whose settings are one record in one element form, the same in
// the light model and the DOM: `Read` and `Write` are the form's reader and writer. A form of
// VRKGeneratorSettingsImpl.
template <typename RecordClass, VRKResult (*Read)(VRKPropertiesXmlNode&, RecordClass&),
          VRKResult (*Write)(VRKPropertiesXmlNode&, const RecordClass&)>
struct VRKRecordForm {
    using Record = RecordClass;

    static VRKResult ReadXml(VRKPropertiesXmlNode& node, Record& record) {
        return Read(node, record);
    }
    static VRKResult WriteXml(VRKPropertiesXmlNode& node, const Record& record) {
        return Write(node, record);
    }
    static VRKResult ReadDOM(VRKPropertiesXmlNode& node, Record& record) {
        return Read(node, record);
    }
    static VRKResult WriteDOM(VRKPropertiesXmlNode& node, const Record& record) {
        return Write(node, record);
    }
};
