#pragma once

#include "designjet/VRKPrintDesignJetGenerator.h"
#include "properties/VRKPrintHP4000Properties.h"

// The DesignJet 4000 series: HP-GL/2 inside a PJL job that sets resolution, render mode, print
// quality, max detail, print area, media source and RET. Print quality travels in PJL, so the
// HP-GL/2 body carries no QL.
class VRKPrintHP4000Generator final : public VRKPrintDesignJetGenerator {
    VRK_DECLARE_CLASS(VRKPrintHP4000Generator)

  public:
    VRKPrintHP4000Generator();

    // The DesignJet record (GetProperties()): null until one is set or the first job creates one
    // with defaults.
    VRKPrintHP4000Properties* GetHP4000Properties() const;
    // Takes a reference to the record (null drops the current one).
    void SetHP4000Properties(VRKPrintHP4000Properties* record);

  protected:
    void startModelJob(const VRKPrintParameters& params) override;
    // This model's job ends after an empty line.
    void DrvEnd() override;
};

// Creates a DesignJet 4000 generator, or returns null.
extern "C" VRKBaseUnknown* fctCreateVRKPrintHP4000Generator();
