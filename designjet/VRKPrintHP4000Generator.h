#pragma once

#include "designjet/VRKDesignJetRecord.h"
#include "designjet/VRKPrintDesignJetGenerator.h"

class VRKPrintHP4000Properties;

// The DesignJet 4000 series: HP-GL/2 inside a PJL job that sets resolution, render mode, print
// quality, max detail, print area, media source and RET. Print quality travels in PJL, so the
// HP-GL/2 body carries no QL.
class VRKPrintHP4000Generator final : public VRKPrintDesignJetGenerator {
    VRK_DECLARE_CLASS(VRKPrintHP4000Generator)

  public:
    VRKPrintHP4000Generator();
    ~VRKPrintHP4000Generator() override;

    // The DesignJet record: null until one is set or the first job creates one with defaults.
    VRKBaseUnknown* GetProperties() override;
    // Creates the record with its defaults when there is none yet.
    VRKBaseUnknown* EnsureProperties() override;
    VRKPrintHP4000Properties* GetHP4000Properties() const { return designJetProperties.Get(); }
    // Takes a reference to the record (null drops the current one).
    void SetHP4000Properties(VRKPrintHP4000Properties* record);

  protected:
    void DrvBegin(const VRKPrintParameters& params) override;
    void DrvEnd() override;

  private:
    VRKDesignJetRecord<VRKPrintHP4000Properties> designJetProperties;
};

// Creates a DesignJet 4000 generator, or returns null.
extern "C" VRKBaseUnknown* fctCreateVRKPrintHP4000Generator();
