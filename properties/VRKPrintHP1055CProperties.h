#pragma once

#include "properties/VRKPrintHPGL2Properties.h"

// Settings of the DesignJet 1000 series. The record keeps its own media type, cutter state and
// quality (0-100; below 25 "Fast", below 75 "Normal", else "Best"): its accessors hide the
// inherited HP-GL/2 fields, which keep their defaults until a job copies these values into them.
// Media source: with a single-roll feeder 0 roll, 1 manual feed; with a multi-roll feeder 0, 1, 2
// for rolls 1 to 3.
class VRKPrintHP1055CProperties : public VRKPrintHPGL2Properties {
    VRK_DECLARE_CLASS(VRKPrintHP1055CProperties)

  public:
    VRKPrintHP1055CProperties() = default;

    int GetMediaType() const { return mediaType; }
    void SetMediaType(int value) { mediaType = value; }
    int GetMediaSource() const { return mediaSource; }
    void SetMediaSource(int value) { mediaSource = value; }
    int GetCutterState() const { return cutterState; }
    void SetCutterState(int value) { cutterState = value; }
    int GetQuality() const { return quality; }
    void SetQuality(int value) { quality = value; }
    int GetMultiRollFeeder() const { return multiRollFeeder; }
    void SetMultiRollFeeder(int value) { multiRollFeeder = value; }
    int GetAutoRotate() const { return autoRotate; }
    void SetAutoRotate(int value) { autoRotate = value; }
    int GetInkedArea() const { return inkedArea; }
    void SetInkedArea(int value) { inkedArea = value; }
    int GetRet() const { return ret; }
    void SetRet(int value) { ret = value; }
    float GetScale() const { return scale; }
    // For the unmarshaller, which restores the value the stream carries.
    void SetScale(float value) { scale = value; }

  protected:
    int mediaType = -1;
    int mediaSource = 0;
    int cutterState = 1;
    int quality = 100;
    int multiRollFeeder = 0;
    int autoRotate = 1;
    int inkedArea = 1;
    int ret = 1;
    // Kept for the marshal format; nothing else reads it.
    float scale = 1.0f;
};
