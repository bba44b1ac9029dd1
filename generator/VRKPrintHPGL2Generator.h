#pragma once

#include <cstdint>

#include "generator/HPGL2Writer.h"
#include "generator/PlotterUnits.h"
#include "host/core/VRKPrintFileGenerator.h"
#include "host/core/VRKPrintNullStream.h"
#include "hpgl/HPGLDialect.h"
#include "properties/VRKPrintHPGL2Properties.h"

class VRKPrintHPGLProperties;

// The HP-GL/2 generator. It writes HP-GL/2 for large-format printers (vectors in Polyline Encoded
// form, palette colours, polygon fills, PCL raster images) or, when its property record's Type
// says HP-GL, plain HP-GL for pen plotters (absolute pen moves, physical pens chosen from pen and
// colour tables, thick lines as parallel strokes, hatched fills). Every hook branches on that
// dialect.
//
// Coordinates reach the plotter in plotter units (0.025 mm, 40 to the millimetre); no SC scaling is
// in force except while a stretched ellipse is drawn.
class VRKPrintHPGL2Generator : public VRKPrintFileGenerator {
    VRK_DECLARE_CLASS(VRKPrintHPGL2Generator)
    // The HP-GL generator drives an inner generator of this class through its HP-GL routines.
    friend class VRKPrintHPGLGenerator;

  public:
    explicit VRKPrintHPGL2Generator(const VRKString& language = "HPGL2");
    ~VRKPrintHPGL2Generator() override;

    // The record, for the host's property interface and dialogs.
    VRKBaseUnknown* GetProperties() override;
    // The HP-GL settings the HP-GL dialect plots with (pens, origin): the record's own.
    VRKPrintHPGLProperties* GetHPGLSettings() const { return hpglSettings; }
    // Hands the stream to the base and nothing else.
    void Attach(VRKPrintStream* stream) override;
    // The plotter draws a text itself (support 2) in HP-GL/2 with a plotter typeface, no host
    // text-as-geometry and a slant of 0 to 45 degrees; otherwise the host draws it (support 1).
    // Clipping is never asked for.
    void GetPrintTextManagement(VRKFont* font, const VRKUnicodeString& text,
                                VRKPrintTextSupport& support,
                                VRKPrintTextClipping& clipping) override;

  protected:
    void DrvBegin(const VRKPrintParameters& params) override;
    void DrvEnd() override;
    void DrvFormFeed() override;
    void DrvMoveTo(float x, float y) override;
    void DrvLineTo(float x, float y) override;
    void DrvDrawPolyBezier(int count, const float* xy) override;
    void DrvDrawArcCircle(float cx, float cy, float radius, float start, float end,
                          int filled) override;
    void DrvDrawArcEllipse(float cx, float cy, float rx, float ry, float start, float end,
                           float rotation, int filled) override;
    void DrvDrawText(float x, float y, const VRKUnicodeString& text) override;
    // Polygon-mode fill in HP-GL/2 (PM0 ... PM2 FP), the host's pattern in fill mode 2, a
    // scan-line hatch in HP-GL. Invalid arguments draw nothing.
    void DrvFillArea(int nbPolygons, const int* nbPoints, const float* points) override;
    // The image as PCL raster inside the HP-GL/2 stream, in tiles when it is larger than PCL
    // allows; nothing in HP-GL.
    void DrvDrawBitmap(float x, float y, const VRKPixelImage* image) override;
    void DrvDefineColor(int index, float r, float g, float b) override;
    void DrvSelectDrawColor(int index) override;
    void DrvSelectFillColor(int index) override;
    void DrvSetDrawWidth(float width) override;
    void DrvSetLineCap(VRKPrintLineAttribute cap) override;
    void DrvSetLineJoin(VRKPrintLineAttribute join) override;
    void DrvSetLineStyle(int style) override;
    void DrvSetLineStyle(VRKPrintLineAttribute style, float length, const float* pattern) override;
    void DrvSetTextAttribute(VRKPrintTextAttribute kind, float value) override;

    // The record, for the generators that wrap this one.
    VRKPrintHPGL2Properties* GetHPGL2Properties() const { return properties; }
    void SetBeginPlotValue(int value) { beginPlotValue = value; }

    // The stream the plot goes to; a generator without a stream writes into a scratch stream
    // that nobody reads, so a host that forgot Attach loses output but does not crash.
    VRKPrintStream& out() {
        VRKPrintStream* stream = GetStream();
        return stream != nullptr ? *stream : unattached;
    }
    // True when the record asks for the HP-GL dialect.
    bool isHPGL() const { return properties != nullptr && properties->GetType() != 0; }
    // Ends an open PE instruction with ";". Every instruction other than a PE continuation
    // calls this first, so that no instruction lands inside a PE.
    void closeEncodedPolyline() {
        if (encodedPolylineOpen == 1) {
            HPGL2Writer::End(out());
            encodedPolylineOpen = 0;
        }
    }
    // Opens an absolute PE run: "=" makes the next pair absolute, and with the reference at 0,0
    // the encoded difference is the absolute position.
    void openEncodedPolyline() {
        HPGL2Writer::OpenEncodedAbsolute(out());
        lastEncodedX = 0;
        lastEncodedY = 0;
        encodedPolylineOpen = 1;
    }
    // Millimetres to plotter units, with the origin offset.
    void toPlotterUnits(float x, float y, int& px, int& py) const {
        ::toPlotterUnits(x, y, originOffsetX, originOffsetY, px, py);
    }
    // The encoded pair of the move from the last encoded position to (px, py), which becomes
    // the last encoded position. The differences are taken in 64 bits and written whole: two
    // positions within the plotter's range (2^30 - 1 units either way) always differ by a 32-bit
    // value, and two that are not, up to the int's limits, by less than 2^32, which still takes
    // six digits at most. The plotter's position therefore always follows lastEncodedX/Y.
    void writeEncodedPair(VRKPrintStream& s, int px, int py) {
        HPGL2Writer::EncodedPair(s, std::int64_t{px} - lastEncodedX,
                                 std::int64_t{py} - lastEncodedY);
        lastEncodedX = px;
        lastEncodedY = py;
    }
    // Page size, rotation and text direction offset of a new form: PS, IP and RO.
    void writePageSetup(const VRKPrintParameters& params);
    // Job start of the HP-GL dialect: nothing without HP-GL settings.
    void hpglJobStart(const VRKPrintParameters& params);
    // Sets the line type and pattern length of one of the five named line styles.
    void applyLineStyle(int index);
    // PU to the start of an arc outline, then its AA around the centre (millimetres, the sweep
    // in degrees, chords of half a degree).
    void writeArcOutline(VRKPrintStream& s, double centreX, double centreY, double radius,
                         double angle, double sweep);
    // Writes the SC that puts user units back to plotter units.
    void restoreScale();
    // One image or tile: PU to its right-hand edge, PCL raster, back to HP-GL/2.
    void writeRaster(float x, float y, const VRKPixelImage& image);
    // Rows of a grey or RGB image as mirrored RGB rows, delta-row compressed where that pays.
    void writeRgbRows(const VRKPixelImage& image);
    // True when the plotter writes the text itself as a label.
    bool plotterDrawsText() const;

    VRKPrintHPGL2Properties* properties = nullptr;
    int beginPlotValue = -1;
    VRKPrintHPGLProperties* hpglSettings = nullptr;
    float originOffsetX = 0.0f;
    float originOffsetY = 0.0f;
    int encodedPolylineOpen = 0;
    int currentDrawColor = 0;
    int currentFillColor = 0;
    int lastEncodedX = 0;
    int lastEncodedY = 0;
    // The text of the last arc sweep written in the quick fixed form.
    ArcSweepText arcSweep;
    float pageRotation = 0.0f;
    float pageWidth = 0.0f;
    float pageHeight = 0.0f;
    float textAngleOffset = 0.0f;

    // Text and line state.
    float textSize = 4.0f;
    float textSlant = 0.0f;
    int textWeight = 25;
    int textTypeface = 48;
    int fontChanged = 1;
    int currentLineType = 1;
    float linePatternLength = 0.0f;
    int hostDrawsDefaultFont = 1;

    // The HP-GL dialect: pens, strokes, hatch and pending moves.
    HPGLDialect hpgl;
    // The generator's own hooks, as the surface the HP-GL hatch draws on.
    class HatchSurface;

  private:
    VRKPrintNullStream unattached;
};

// Creates an HP-GL/2 generator with its default record, or returns null.
extern "C" VRKBaseUnknown* fctCreateVRKPrintHPGL2Generator();
