#pragma once

#include "host/core/VRKBaseUnknown.h"

class VRKPrintHPGLProperties;

// Settings of the HP-GL/2 generator: media type (-1 default, 0 paper ... 6 glossy paper), roll
// cutter, print quality, and the output dialect (`Type`: 0 HP-GL/2, any other value HP-GL for pen
// plotters). Every record carries an HP-GL settings record of its own, used in the HP-GL dialect.
class VRKPrintHPGL2Properties : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKPrintHPGL2Properties)

  public:
    VRKPrintHPGL2Properties();
    ~VRKPrintHPGL2Properties() override;

    int GetMediaType() const { return mediaType; }
    void SetMediaType(int value) { mediaType = value; }
    int GetCutterState() const { return cutterState; }
    void SetCutterState(int value) { cutterState = value; }
    int GetQuality() const { return quality; }
    void SetQuality(int value) { quality = value; }
    int GetType() const { return Type; }
    void SetType(int value) { Type = value; }
    // The owned HP-GL settings; the caller gets no reference of its own.
    VRKPrintHPGLProperties* GetHPGLProperties() const { return hpglProperties; }

  protected:
    int mediaType = -1;
    int cutterState = 1;
    int quality = 100;
    int Type = 0;
    VRKPrintHPGLProperties* hpglProperties = nullptr;
};
