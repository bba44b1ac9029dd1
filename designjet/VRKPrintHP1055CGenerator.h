#pragma once

#include "designjet/VRKDesignJetRecord.h"
#include "designjet/VRKPrintDesignJetGenerator.h"

class VRKPrintHP1055CProperties;

// The DesignJet 1000 series: HP-GL/2 inside a PJL job that sets print area, media source and RET.
// Resolution (600) and render mode (colour) are fixed on this model.
class VRKPrintHP1055CGenerator final : public VRKPrintDesignJetGenerator {
    VRK_DECLARE_CLASS(VRKPrintHP1055CGenerator)

  public:
    VRKPrintHP1055CGenerator();
    ~VRKPrintHP1055CGenerator() override;

    // The DesignJet record: null until one is set or the first job creates one with defaults.
    VRKBaseUnknown* GetProperties() override;
    // Creates the record with its defaults when there is none yet.
    VRKBaseUnknown* EnsureProperties() override;
    VRKPrintHP1055CProperties* GetHP1055CProperties() const { return designJetProperties.Get(); }
    // Takes a reference to the record (null drops the current one).
    void SetHP1055CProperties(VRKPrintHP1055CProperties* record);

  protected:
    void DrvBegin(const VRKPrintParameters& params) override;
    void DrvEnd() override;

  private:
    VRKDesignJetRecord<VRKPrintHP1055CProperties> designJetProperties;
};

// Creates a DesignJet 1000 generator, or returns null.
extern "C" VRKBaseUnknown* fctCreateVRKPrintHP1055CGenerator();
