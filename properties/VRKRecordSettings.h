#pragma once

#include "host/core/VRKResult.h"
#include "host/core/VRKSmartRef.h"
#include "host/xml/VRKIDOMElement.h"
#include "properties/VRKPropertiesDOMNode.h"
#include "properties/VRKPropertiesLightXmlNode.h"

// The four settings operations of a generator whose settings are one record in one element form:
// each runs the form's reader or writer on the record, after the checks every operation makes (a
// record to work on, and for the DOM an element). The DesignJet and HP-GL implementations are
// made of this.
template <typename Record, VRKResult (*Read)(VRKPropertiesXmlNode&, Record&),
          VRKResult (*Write)(VRKPropertiesXmlNode&, const Record&)>
struct VRKRecordSettings {
    static VRKResult ReadFromXml(Record* record, VRKLightXmlElement& element) {
        if (record == nullptr) {
            return E_FAIL;
        }
        VRKPropertiesLightXmlNode node(&element);
        return Read(node, *record);
    }
    static VRKResult WriteToXml(Record* record, VRKLightXmlElement& element) {
        if (record == nullptr) {
            return E_FAIL;
        }
        VRKPropertiesLightXmlNode node(&element);
        return Write(node, *record);
    }
    static VRKResult ReadFromDOM(Record* record, const VRKSmartRef<VRKIDOMElement>& element) {
        if (record == nullptr || !element) {
            return E_FAIL;
        }
        VRKPropertiesDOMNode node(VRKSmartRef<VRKIDOMNode>(element.get()));
        return Read(node, *record);
    }
    static VRKResult WriteToDOM(Record* record, const VRKSmartRef<VRKIDOMElement>& element) {
        if (record == nullptr || !element) {
            return E_FAIL;
        }
        VRKPropertiesDOMNode node(VRKSmartRef<VRKIDOMNode>(element.get()));
        return Write(node, *record);
    }
};
