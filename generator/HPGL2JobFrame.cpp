// Job start, page set-up, job end and the coordinate transform of the HP-GL/2 dialect.

#include "generator/HPGL2Writer.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKSaturatingTrunc.h"
#include "properties/VRKPrintHPGL2Properties.h"

void VRKPrintHPGL2Generator::DrvBegin(const VRKPrintParameters& params) {
    if (properties == nullptr) {
        return;
    }
    VRKPrintStream& s = out();
    s.SetFixed(2);
    if (isHPGL()) {
        hpglJobStart(params);
        return;
    }
    originOffsetX = 0.0f;
    HPGL2Writer::ResetAndEnter(s);
    if (beginPlotValue >= 0) {
        HPGL2Writer::BeginPlotRotation(s, beginPlotValue);
    }
    HPGL2Writer::Initialize(s);
    if (properties->GetMediaType() >= 0) {
        HPGL2Writer::MediaType(s, properties->GetMediaType());
    }
    // The cutter flag goes out inverted: a cutter state of 0 writes EC1 (cut), any other value a
    // bare EC. Devices in the field have always been driven this way, so it stays.
    HPGL2Writer::EnableCutter(s, properties->GetCutterState() == 0);
    if (properties->GetQuality() >= 0) {
        HPGL2Writer::Quality(s, properties->GetQuality());
    }
    writePageSetup(params);
    HPGL2Writer::JobDefaults(s);
}

void VRKPrintHPGL2Generator::hpglJobStart(const VRKPrintParameters& params) {
    // Without HP-GL settings the job writes nothing.
    if (hpglSettings != nullptr) {
        originOffsetX = 0.0f;
        hpgl.JobStart(out(), params, *hpglSettings);
    }
}

void VRKPrintHPGL2Generator::writePageSetup(const VRKPrintParameters& params) {
    VRKPrintStream& s = out();
    const VRKPrintForm& form = params.GetForm();
    // The margins are not applied: the input window always starts at 0,0 of the hard-clip area.
    // A size beyond the int is held at its limit, NaN gives 0.
    const int w = VRKSaturatingTrunc<int>(form.GetWidth() * 40.0);
    const int h = VRKSaturatingTrunc<int>(form.GetHeight() * 40.0);
    pageWidth = static_cast<float>(w);
    pageHeight = static_cast<float>(h);
    switch (params.GetPageRotation()) {
        case 1:
            pageRotation = 90.0f;
            break;
        case 2:
            pageRotation = 180.0f;
            break;
        case 3:
            pageRotation = 270.0f;
            break;
        default:
            pageRotation = 0.0f;
            break;
    }
    if (form.GetOrientation() == 0) {
        HPGL2Writer::PlotSize(s, h, w);
        HPGL2Writer::InputWindow(s, h, w);
        pageWidth = static_cast<float>(h);
        pageHeight = static_cast<float>(w);
        textAngleOffset = 0.0f;
        if (h >= w) {
            HPGL2Writer::Rotate(s, 270);
        }
    } else if (form.GetOrientation() == 1) {
        HPGL2Writer::PlotSize(s, w, h);
        HPGL2Writer::InputWindow(s, w, h);
        if (w >= h) {
            HPGL2Writer::Rotate(s, 270);
        } else {
            textAngleOffset = 0.0f;
        }
    }
}

void VRKPrintHPGL2Generator::DrvEnd() {
    if (isHPGL()) {
        hpgl.JobEnd(out());
        return;
    }
    closeEncodedPolyline();
    VRKPrintStream& s = out();
    HPGL2Writer::PenUp(s);
    HPGL2Writer::SelectPen(s, 0);
    HPGL2Writer::AdvancePage(s);
    HPGL2Writer::End(s);
}

void VRKPrintHPGL2Generator::DrvFormFeed() {
    if (properties == nullptr || isHPGL()) {
        return;
    }
    closeEncodedPolyline();
    VRKPrintStream& s = out();
    HPGL2Writer::Rotate(s, 0);
    HPGL2Writer::AdvancePage(s);
    HPGL2Writer::End(s);
    writePageSetup(GetPrintParameters());
}
