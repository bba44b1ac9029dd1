#pragma once

#include "designjet/VRKPrintDesignJetGenerator.h"
#include "properties/VRKPrintHP1055CProperties.h"

// The DesignJet 1000 series: HP-GL/2 inside a PJL job that sets print area, media source and RET.
// Resolution (600) and render mode (colour) are fixed on this model.
class VRKPrintHP1055CGenerator final : public VRKPrintDesignJetGenerator {
    VRK_DECLARE_CLASS(VRKPrintHP1055CGenerator)

  public:
    VRKPrintHP1055CGenerator();

    // The DesignJet record (GetProperties()): null until one is set or the first job creates one
    // with defaults.
    VRKPrintHP1055CProperties* GetHP1055CProperties() const;
    // Takes a reference to the record (null drops the current one).
    void SetHP1055CProperties(VRKPrintHP1055CProperties* record);

  protected:
    void startModelJob(const VRKPrintParameters& params) override;
};

// Creates a DesignJet 1000 generator, or returns null.
extern "C" VRKBaseUnknown* fctCreateVRKPrintHP1055CGenerator();
