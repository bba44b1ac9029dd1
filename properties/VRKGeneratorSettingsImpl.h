#pragma once

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKIPrtGeneratorProperties.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKResult.h"
#include "host/core/VRKSmartRef.h"
#include "host/xml/VRKIDOMElement.h"
#include "properties/VRKPropertiesDOMNode.h"
#include "properties/VRKPropertiesLightXmlNode.h"

// The settings interface of a generator, the four operations of VRKIPrtGeneratorProperties over
// the record of the generator it extends: the one that generator's GetProperties() gives, when it
// is a `Form::Record`. Changes go straight into that live record. Without a record of the form's
// class, and in the DOM without an element, every operation fails (E_FAIL) and touches nothing;
// otherwise the form reads or writes the element: Form::ReadXml and Form::WriteXml in the light
// model, Form::ReadDOM and Form::WriteDOM in the DOM.
//
// Each generator's implementation is a class of its own derived from this (VRK_DECLARE_CLASS with
// VRKDataExtension as the meta class's base), registered for the generator's class.
template <typename Form>
class VRKGeneratorSettingsImpl : public VRKDataExtension {
  public:
    using Record = typename Form::Record;

    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) {
        return inDOM(element, [](VRKPropertiesXmlNode& node, Record& record) {
            return Form::ReadDOM(node, record);
        });
    }
    VRKResult ReadFromXml(VRKLightXmlElement& element) {
        return inLight(element, [](VRKPropertiesXmlNode& node, Record& record) {
            return Form::ReadXml(node, record);
        });
    }
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) {
        return inDOM(element, [](VRKPropertiesXmlNode& node, const Record& record) {
            return Form::WriteDOM(node, record);
        });
    }
    VRKResult WriteToXml(VRKLightXmlElement& element) {
        return inLight(element, [](VRKPropertiesXmlNode& node, const Record& record) {
            return Form::WriteXml(node, record);
        });
    }

    // The record of the extended generator, or null when there is no generator or its record is
    // not of the form's class.
    Record* GetRecord() const {
        auto* generator = dynamic_cast<VRKPrintGenerator*>(GetImpl(0));
        return generator != nullptr ? dynamic_cast<Record*>(generator->GetProperties()) : nullptr;
    }

  private:
    template <typename Operation>
    VRKResult inLight(VRKLightXmlElement& element, Operation operation) const {
        Record* record = GetRecord();
        if (record == nullptr) {
            return E_FAIL;
        }
        VRKPropertiesLightXmlNode node(&element);
        return operation(node, *record);
    }
    template <typename Operation>
    VRKResult inDOM(const VRKSmartRef<VRKIDOMElement>& element, Operation operation) const {
        Record* record = GetRecord();
        if (record == nullptr || !element) {
            return E_FAIL;
        }
        VRKPropertiesDOMNode node(VRKSmartRef<VRKIDOMNode>(element.get()));
        return operation(node, *record);
    }
};
