#pragma once

#include <charconv>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/core/VRKPixelImage.h"
#include "host/core/VRKPrintGenerator.h"
#include "support/Printable.h"

// A generator that writes down every hook the public calls reach, one line per call, with its
// arguments exactly (floats in their shortest round-trip form). Each public call reaches exactly
// one hook here, so the log is the list of calls a host made.
class RecordingGenerator final : public VRKPrintGenerator {
  public:
    RecordingGenerator() : VRKPrintGenerator("Recording") {}

    std::vector<std::string> calls;
    // How many pattern values SetLineStyle's attribute form logs (the call itself carries no
    // count).
    int patternLength = 0;
    // A hook of this name throws, as one that runs out of memory would.
    std::string failIn;

    static std::string F(float v) {
        char text[32];
        return std::string(text, std::to_chars(text, text + sizeof text, v).ptr);
    }
    static std::string Params(const VRKPrintParameters& p) {
        return "w=" + F(p.GetForm().GetWidth()) + " h=" + F(p.GetForm().GetHeight()) +
               " o=" + std::to_string(p.GetForm().GetOrientation()) +
               " r=" + std::to_string(p.GetPageRotation()) +
               " c=" + std::to_string(p.GetColorMode()) + " m=" + F(p.GetLeftMargin()) + "," +
               F(p.GetTopMargin()) + "," + F(p.GetRightMargin()) + "," + F(p.GetBottomMargin()) +
               " t=" + std::to_string(p.GetTextAsGeometry());
    }

  protected:
    void Log(const std::string& name, const std::string& args = "") {
        if (name == failIn) {
            throw std::bad_alloc();
        }
        calls.push_back(args.empty() ? name : name + " " + args);
    }
    static std::string Points(int count, const float* xy) {
        std::string s = std::to_string(count);
        for (int i = 0; i < 2 * count; ++i) {
            s += " " + F(xy[i]);
        }
        return s;
    }

    void DrvBegin(const VRKPrintParameters& params) override { Log("Begin", Params(params)); }
    void DrvEnd() override { Log("End"); }
    void DrvFormFeed() override { Log("StartNewPage", Params(GetPrintParameters())); }
    void DrvMoveTo(float x, float y) override { Log("MoveTo", F(x) + " " + F(y)); }
    void DrvLineTo(float x, float y) override { Log("LineTo", F(x) + " " + F(y)); }
    void DrvDrawPolyline(int count, const float* xy) override {
        Log("DrawPolyline", Points(count, xy));
    }
    void DrvDrawPolygon(int count, const float* xy) override {
        Log("DrawPolygon", Points(count, xy));
    }
    void DrvDrawPolyBezier(int count, const float* xy) override {
        Log("DrawPolyBezier", Points(count, xy));
    }
    void DrvDrawArcCircle(float cx, float cy, float r, float start, float end,
                          int filled) override {
        Log("DrawArcCircle", F(cx) + " " + F(cy) + " " + F(r) + " " + F(start) + " " + F(end) +
                                 " " + std::to_string(filled));
    }
    void DrvDrawArcEllipse(float cx, float cy, float rx, float ry, float start, float end,
                           float rotation, int filled) override {
        Log("DrawArcEllipse", F(cx) + " " + F(cy) + " " + F(rx) + " " + F(ry) + " " + F(start) +
                                  " " + F(end) + " " + F(rotation) + " " + std::to_string(filled));
    }
    void DrvFillArea(int nbPolygons, const int* nbPoints, const float* points) override {
        std::string s = std::to_string(nbPolygons);
        int total = 0;
        for (int i = 0; i < nbPolygons; ++i) {
            s += " " + std::to_string(nbPoints[i]);
            total += nbPoints[i];
        }
        for (int i = 0; i < 2 * total; ++i) {
            s += " " + F(points[i]);
        }
        Log("FillArea", s);
    }
    void DrvDrawBitmap(float x, float y, const VRKPixelImage* image) override {
        std::string s = F(x) + " " + F(y) + " " + std::to_string(image->GetWidth()) + "x" +
                        std::to_string(image->GetHeight()) +
                        " format=" + std::to_string(image->GetFormat()) +
                        " pixel=" + F(image->GetPixelWidth()) + "," + F(image->GetPixelHeight());
        for (int row = 0; row < image->GetHeight(); ++row) {
            s += " ";
            const unsigned char* p = image->GetRow(row);
            for (std::size_t i = 0; i < image->GetBytesPerRow(); ++i) {
                static const char kHex[] = "0123456789abcdef";
                s += kHex[p[i] >> 4];
                s += kHex[p[i] & 15];
            }
        }
        Log("DrawBitmap", s);
    }
    void DrvDrawText(float x, float y, const VRKUnicodeString& text) override {
        Log("DrawText", F(x) + " " + F(y) + " " + Printable(text.ToUtf8()));
    }
    void DrvDefineColor(int index, float r, float g, float b) override {
        Log("DefineColor", std::to_string(index) + " " + F(r) + " " + F(g) + " " + F(b));
    }
    void DrvSelectDrawColor(int index) override { Log("SelectDrawColor", std::to_string(index)); }
    void DrvSelectFillColor(int index) override { Log("SelectFillColor", std::to_string(index)); }
    void DrvSetDrawWidth(float width) override { Log("SetDrawWidth", F(width)); }
    void DrvSetLineCap(VRKPrintLineAttribute cap) override {
        Log("SetLineCap", std::to_string(static_cast<int>(cap)));
    }
    void DrvSetLineJoin(VRKPrintLineAttribute join) override {
        Log("SetLineJoin", std::to_string(static_cast<int>(join)));
    }
    void DrvSetLineStyle(int style) override { Log("SetLineStyle", std::to_string(style)); }
    void DrvSetLineStyle(VRKPrintLineAttribute style, float length, const float* pattern) override {
        std::string s = std::to_string(static_cast<int>(style)) + " " + F(length);
        if (pattern == nullptr) {
            s += " null";
        }
        for (int i = 0; pattern != nullptr && i < patternLength; ++i) {
            s += " " + F(pattern[i]);
        }
        Log("SetLineStyle", s);
    }
    void DrvSetTextAttribute(VRKPrintTextAttribute kind, float value) override {
        Log("SetTextAttribute", std::to_string(static_cast<int>(kind)) + " " + F(value));
    }
    void DrvSetPolygonFillRule(int rule) override {
        Log("SetPolygonFillRule", std::to_string(rule));
    }
    void DrvSetFillMode(int mode) override { Log("SetFillMode", std::to_string(mode)); }
};
