// Job start, page set-up, job end and the coordinate transform of the HP-GL/2 dialect.

#include "generator/HPGL2Encoding.h"
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
    s.Write(HPGL2Encoding::kResetAndEnterHPGL2);
    if (beginPlotValue >= 0) {
        s.Write("BP5,");
        s.WriteInt(beginPlotValue);
    }
    s.Write("IN");
    if (properties->GetMediaType() >= 0) {
        s.Write("MT");
        s.WriteInt(properties->GetMediaType());
    }
    s.Write("EC");
    // The cutter flag goes out inverted: a cutter state of 0 writes EC1 (cut), any other value a
    // bare EC. Devices in the field have always been driven this way, so it stays.
    if (properties->GetCutterState() == 0) {
        s.Put('1');
    }
    if (properties->GetQuality() >= 0) {
        s.Write("QL");
        s.WriteInt(properties->GetQuality());
    }
    writePageSetup(params);
    // 256 palette pens, transparency and merge off, no pen yet, mitred joins with limit 2.
    s.Write("NP256TR0MC0SP0LA2,2,3,2");
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
    const auto writeSize = [&s](const char* mnemonic, int a, int b) {
        s.Write(mnemonic);
        s.WriteInt(a);
        s.Put(',');
        s.WriteInt(b);
    };
    if (form.GetOrientation() == 0) {
        writeSize("PS", h, w);
        writeSize("IP0,0,", h, w);
        pageWidth = static_cast<float>(h);
        pageHeight = static_cast<float>(w);
        textAngleOffset = 0.0f;
        if (h >= w) {
            s.Write("RO270");
        }
    } else if (form.GetOrientation() == 1) {
        writeSize("PS", w, h);
        writeSize("IP0,0,", w, h);
        if (w >= h) {
            s.Write("RO270");
        } else {
            textAngleOffset = 0.0f;
        }
    }
}

void VRKPrintHPGL2Generator::DrvEnd() {
    if (isHPGL()) {
        hpglJobEnd();
        return;
    }
    closeEncodedPolyline();
    out().Write("PUSP0PG;");
}

void VRKPrintHPGL2Generator::DrvFormFeed() {
    if (properties == nullptr || isHPGL()) {
        return;
    }
    closeEncodedPolyline();
    out().Write("RO0PG;");
    writePageSetup(GetPrintParameters());
}
