#pragma once

#include <cstdint>

#include "properties/VRKPrintHPGL2Properties.h"

// Settings of the DesignJet 4000 series. Media type and cutter state are the inherited HP-GL/2
// fields; quality travels as the PJL print quality instead. Note that media source 1 is the roll
// and 0 manual feed here, the reverse of the 1000 series. Resolution: 0 300, 1 600, 2 1200 dpi.
// Print quality: 0 draft, 1 normal, 2 high. The four flags are single bytes.
class VRKPrintHP4000Properties : public VRKPrintHPGL2Properties {
    VRK_DECLARE_CLASS(VRKPrintHP4000Properties)

  public:
    VRKPrintHP4000Properties() = default;

    int GetMediaSource() const { return mediaSource; }
    void SetMediaSource(int value) { mediaSource = value; }
    std::uint8_t GetAutoRotate() const { return autoRotate; }
    void SetAutoRotate(std::uint8_t value) { autoRotate = value; }
    std::uint8_t GetInkedArea() const { return inkedArea; }
    void SetInkedArea(std::uint8_t value) { inkedArea = value; }
    int GetResolution() const { return resolution; }
    void SetResolution(int value) { resolution = value; }
    int GetPrintQuality() const { return printQuality; }
    void SetPrintQuality(int value) { printQuality = value; }
    std::uint8_t GetMaxDetail() const { return maxDetail; }
    void SetMaxDetail(std::uint8_t value) { maxDetail = value; }
    std::uint8_t GetRet() const { return ret; }
    void SetRet(std::uint8_t value) { ret = value; }

  protected:
    int mediaSource = 1;
    std::uint8_t autoRotate = 1;
    std::uint8_t inkedArea = 1;
    int resolution = 1;
    int printQuality = 1;
    std::uint8_t maxDetail = 1;
    std::uint8_t ret = 1;
};
