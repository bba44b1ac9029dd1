#pragma once

#include <string>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintMemoryStream.h"
#include "properties/VRKPrintHPGL2Properties.h"

// An HP-GL/2 generator attached to a memory stream, with its state and hooks open to the tests.
class HPGL2Peer : public VRKPrintHPGL2Generator {
  public:
    HPGL2Peer() : VRKPrintHPGL2Generator("HPGL2") { Attach(&stream); }
    ~HPGL2Peer() override { Attach(nullptr); }

    // Everything written so far.
    const std::string& Bytes() { return stream.Data(); }
    VRKPrintHPGL2Properties& Record() { return *properties; }

    using VRKPrintHPGL2Generator::beginPlotValue;
    using VRKPrintHPGL2Generator::closeEncodedPolyline;
    using VRKPrintHPGL2Generator::currentDrawColor;
    using VRKPrintHPGL2Generator::currentFillColor;
    using VRKPrintHPGL2Generator::currentLineType;
    using VRKPrintHPGL2Generator::DrvBegin;
    using VRKPrintHPGL2Generator::DrvDefineColor;
    using VRKPrintHPGL2Generator::DrvDrawArcCircle;
    using VRKPrintHPGL2Generator::DrvDrawArcEllipse;
    using VRKPrintHPGL2Generator::DrvDrawPolyBezier;
    using VRKPrintHPGL2Generator::DrvEnd;
    using VRKPrintHPGL2Generator::DrvFormFeed;
    using VRKPrintHPGL2Generator::DrvLineTo;
    using VRKPrintHPGL2Generator::DrvMoveTo;
    using VRKPrintHPGL2Generator::DrvSelectDrawColor;
    using VRKPrintHPGL2Generator::encodedPolylineOpen;
    using VRKPrintHPGL2Generator::fontChanged;
    using VRKPrintHPGL2Generator::hostDrawsDefaultFont;
    using VRKPrintHPGL2Generator::hpgl;
    using VRKPrintHPGL2Generator::hpglSettings;
    using VRKPrintHPGL2Generator::lastEncodedX;
    using VRKPrintHPGL2Generator::lastEncodedY;
    using VRKPrintHPGL2Generator::linePatternLength;
    using VRKPrintHPGL2Generator::originOffsetX;
    using VRKPrintHPGL2Generator::originOffsetY;
    using VRKPrintHPGL2Generator::pageHeight;
    using VRKPrintHPGL2Generator::pageRotation;
    using VRKPrintHPGL2Generator::pageWidth;
    using VRKPrintHPGL2Generator::properties;
    using VRKPrintHPGL2Generator::textAngleOffset;
    using VRKPrintHPGL2Generator::textSize;
    using VRKPrintHPGL2Generator::textSlant;
    using VRKPrintHPGL2Generator::textTypeface;
    using VRKPrintHPGL2Generator::textWeight;
    using VRKPrintHPGL2Generator::toPlotterUnits;

    // A pen of the HP-GL dialect's table.
    const VRKPen& Pen(int number) const {
        return hpgl.pens.Slots()[static_cast<std::size_t>(number)];
    }

    // Switches the record to the HP-GL dialect.
    void UseHPGL() { properties->SetType(1); }
    // Bytes written since the last call.
    std::string Take() {
        const std::string& all = stream.Data();
        std::string fresh = all.substr(taken_);
        taken_ = all.size();
        return fresh;
    }

    VRKPrintMemoryStream stream;

  private:
    std::size_t taken_ = 0;
};

// Print parameters for a form of the given size (millimetres) and orientation.
inline VRKPrintParameters FormParameters(float width, float height, int orientation,
                                         int rotation = 0) {
    VRKPrintParameters params;
    params.SetForm(VRKPrintForm(width, height, orientation));
    params.SetPageRotation(rotation);
    return params;
}
