#pragma once

#include "host/core/VRKPrintGenerator.h"
#include "host/job/VRKJobCall.h"

// The calls of the verbs, from the values their kinds read (VRKJobVerbs). They are defined here,
// in the header, so that the reading of common lines makes them in place. DrawBitmap's is
// VRKJobBitmap::Draw.
class VRKJobCalls {
  public:
    static bool Begin(const VRKJobCall& c) {
        c.generator.Begin(c.arguments.page);
        return true;
    }
    static bool StartNewPage(const VRKJobCall& c) {
        if (c.arguments.pageGiven) {
            c.generator.StartNewPage(c.arguments.page);
        } else {
            c.generator.StartNewPage();
        }
        return true;
    }
    static bool End(const VRKJobCall& c) {
        c.generator.End();
        return true;
    }
    static bool MoveTo(const VRKJobCall& c) {
        c.generator.MoveTo(Number(c, 0), Number(c, 1));
        return true;
    }
    static bool LineTo(const VRKJobCall& c) {
        c.generator.LineTo(Number(c, 0), Number(c, 1));
        return true;
    }
    static bool DrawPolyline(const VRKJobCall& c) {
        c.generator.DrawPolyline(Integer(c, 0), c.arguments.points.data());
        return true;
    }
    static bool DrawPolygon(const VRKJobCall& c) {
        c.generator.DrawPolygon(Integer(c, 0), c.arguments.points.data());
        return true;
    }
    static bool DrawPolyBezier(const VRKJobCall& c) {
        c.generator.DrawPolyBezier(Integer(c, 0), c.arguments.points.data());
        return true;
    }
    static bool DrawArcCircle(const VRKJobCall& c) {
        c.generator.DrawArcCircle(Number(c, 0), Number(c, 1), Number(c, 2), Number(c, 3),
                                  Number(c, 4), Integer(c, 5));
        return true;
    }
    static bool DrawArcEllipse(const VRKJobCall& c) {
        c.generator.DrawArcEllipse(Number(c, 0), Number(c, 1), Number(c, 2), Number(c, 3),
                                   Number(c, 4), Number(c, 5), Number(c, 6), Integer(c, 7));
        return true;
    }
    static bool FillArea(const VRKJobCall& c) {
        c.generator.FillArea(Integer(c, 0), c.arguments.counts.data(), c.arguments.points.data());
        return true;
    }
    static bool DrawText(const VRKJobCall& c) {
        c.generator.DrawText(Number(c, 0), Number(c, 1), VRKUnicodeString(*c.arguments.text));
        return true;
    }
    static bool DefineColor(const VRKJobCall& c) {
        c.generator.DefineColor(Integer(c, 0), Number(c, 1), Number(c, 2), Number(c, 3));
        return true;
    }
    static bool SelectDrawColor(const VRKJobCall& c) {
        c.generator.SelectDrawColor(Integer(c, 0));
        return true;
    }
    static bool SelectFillColor(const VRKJobCall& c) {
        c.generator.SelectFillColor(Integer(c, 0));
        return true;
    }
    static bool SetDrawWidth(const VRKJobCall& c) {
        c.generator.SetDrawWidth(Number(c, 0));
        return true;
    }
    // The enumeration numbers of the line and text attributes go to the generator unchecked: a
    // job file can hand a generator any value a host could, the unexpected ones included.
    static bool SetLineCap(const VRKJobCall& c) {
        c.generator.SetLineCap(static_cast<VRKPrintLineAttribute>(Integer(c, 0)));
        return true;
    }
    static bool SetLineJoin(const VRKJobCall& c) {
        c.generator.SetLineJoin(static_cast<VRKPrintLineAttribute>(Integer(c, 0)));
        return true;
    }
    // One argument: the integer form. Otherwise the pattern length and values; without values
    // the generator gets no pattern array at all.
    static bool SetLineStyle(const VRKJobCall& c) {
        const std::vector<float>& dashes = c.arguments.points;
        if (dashes.empty()) {
            c.generator.SetLineStyle(Integer(c, 0));
        } else {
            c.generator.SetLineStyle(static_cast<VRKPrintLineAttribute>(Integer(c, 0)), dashes[0],
                                     dashes.size() > 1 ? dashes.data() + 1 : nullptr);
        }
        return true;
    }
    static bool SetTextAttribute(const VRKJobCall& c) {
        c.generator.SetTextAttribute(static_cast<VRKPrintTextAttribute>(Integer(c, 0)),
                                     Number(c, 1));
        return true;
    }
    static bool SetPolygonFillRule(const VRKJobCall& c) {
        c.generator.SetPolygonFillRule(Integer(c, 0));
        return true;
    }
    static bool SetFillMode(const VRKJobCall& c) {
        c.generator.SetFillMode(Integer(c, 0));
        return true;
    }

  private:
    static float Number(const VRKJobCall& c, int i) { return c.arguments.values[i].number; }
    static int Integer(const VRKJobCall& c, int i) { return c.arguments.values[i].integer; }
};
