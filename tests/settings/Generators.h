#pragma once

#include "designjet/VRKPrintHP1055CGenerator.h"
#include "designjet/VRKPrintHP4000Generator.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKIPrtGeneratorProperties.h"
#include "hpgl/VRKPrintHPGLGenerator.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

// A generator made by its factory, released at the end of the test, with its settings interface.
template <class Generator>
struct Made {
    explicit Made(VRKBaseUnknown* (*factory)())
        : object(VRKSmartRef<VRKBaseUnknown>::Adopt(factory())),
          generator(dynamic_cast<Generator*>(object.get())),
          settings(VRKQueryInterface<VRKIPrtGeneratorProperties>(object.get())) {}

    Generator* operator->() const { return generator; }

    VRKSmartRef<VRKBaseUnknown> object;
    Generator* generator;
    VRKSmartRef<VRKIPrtGeneratorProperties> settings;
};

struct HPGL2Made : Made<VRKPrintHPGL2Generator> {
    HPGL2Made() : Made(&fctCreateVRKPrintHPGL2Generator) {}
    VRKPrintHPGL2Properties* Record() const {
        return dynamic_cast<VRKPrintHPGL2Properties*>(generator->GetProperties());
    }
};

struct HP1055CMade : Made<VRKPrintHP1055CGenerator> {
    HP1055CMade() : Made(&fctCreateVRKPrintHP1055CGenerator) {}
    VRKPrintHP1055CProperties* Record() const { return generator->GetHP1055CProperties(); }
};

struct HP4000Made : Made<VRKPrintHP4000Generator> {
    HP4000Made() : Made(&fctCreateVRKPrintHP4000Generator) {}
    VRKPrintHP4000Properties* Record() const { return generator->GetHP4000Properties(); }
};

struct HPGLMade : Made<VRKPrintHPGLGenerator> {
    HPGLMade() : Made(&fctCreateVRKPrintHPGLGenerator) {}
    VRKPrintHPGLProperties* Record() const {
        return dynamic_cast<VRKPrintHPGLProperties*>(generator->GetProperties());
    }
};
