#pragma once

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKPrintLineAttribute.h"
#include "host/core/VRKPrintParameters.h"
#include "host/core/VRKPrintTextAttribute.h"
#include "host/core/VRKPrintTextClipping.h"
#include "host/core/VRKPrintTextSupport.h"
#include "host/core/VRKString.h"
#include "host/core/VRKTextOutliner.h"
#include "host/core/VRKUnicodeString.h"

class VRKDlgDialog;
class VRKFont;
class VRKPixelImage;

// The host's print generator. A host plays a drawing into it call by call; every public call
// hands its work to a protected Drv... hook, which a printer language's generator overrides. The
// default hooks reduce a call to simpler hooks (curves to moves and lines, filled curves to
// FillArea) so that a generator only needs to implement what its language does natively.
// Coordinates, sizes and widths are millimetres; angles are radians.
//
// No exception leaves a public call: a hook that throws (memory exhausted) stops that call, and
// the generator is marked failed through ReportFailure().
class VRKPrintGenerator : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKPrintGenerator)

  public:
    explicit VRKPrintGenerator(const VRKString& language);
    ~VRKPrintGenerator() override;

    // The printer language this generator writes, for example "HPGL2".
    const VRKString& GetLanguage() const { return language_; }

    void Begin(const VRKPrintParameters& params) noexcept;
    void End() noexcept;
    // A page break; the second form first takes the new page's parameters.
    void StartNewPage() noexcept;
    void StartNewPage(const VRKPrintParameters& params) noexcept;

    // The calls of every line and circle of a drawing are made in place, without a call of
    // their own.
    void MoveTo(float x, float y) noexcept {
        Guard([&] { DrvMoveTo(x, y); });
    }
    void LineTo(float x, float y) noexcept {
        Guard([&] { DrvLineTo(x, y); });
    }
    void DrawPolyline(int count, const float* xy) noexcept;
    void DrawPolygon(int count, const float* xy) noexcept;
    void DrawPolyBezier(int count, const float* xy) noexcept;
    void DrawPolyQuadBezier(int count, const float* xy) noexcept;
    void DrawArcCircle(float cx, float cy, float radius, float start, float end,
                       int filled) noexcept {
        Guard([&] {
            ReturnFillColor();
            DrvDrawArcCircle(cx, cy, radius, start, end, filled);
        });
    }
    void DrawArcEllipse(float cx, float cy, float rx, float ry, float start, float end,
                        float rotation, int filled) noexcept;
    void FillArea(int nbPolygons, const int* nbPoints, const float* points) noexcept;
    // `mode` is reserved by the host and passed as 0.
    void DrawBitmap(float x, float y, int mode, const VRKPixelImage* image) noexcept;
    void DrawText(float x, float y, const VRKUnicodeString& text) noexcept;

    void DefineColor(int index, float r, float g, float b) noexcept;
    void SelectDrawColor(int index) noexcept;
    void SelectFillColor(int index) noexcept;
    void SetDrawWidth(float width) noexcept;
    void SetLineCap(VRKPrintLineAttribute cap) noexcept;
    void SetLineJoin(VRKPrintLineAttribute join) noexcept;
    void SetLineStyle(int style) noexcept;
    void SetLineStyle(VRKPrintLineAttribute style, float length, const float* pattern) noexcept;
    void SetTextAttribute(VRKPrintTextAttribute kind, float value) noexcept;
    void SetPolygonFillRule(int rule) noexcept;
    void SetFillMode(int mode) noexcept;

    // The generator's settings record, or null. The caller does not get a reference.
    virtual VRKBaseUnknown* GetProperties() { return nullptr; }
    // Makes sure the generator has a settings record, creating one with default values when it
    // has none yet (some generators make theirs only when the first job starts), and returns it:
    // a host calls this before it applies saved settings.
    virtual VRKBaseUnknown* EnsureProperties() { return GetProperties(); }
    // The property-editor factory: makes the generator's property dialog, parented to `parent`
    // (may be null) and editing the generator's record, shown by the caller. The dialogs live in
    // a library of their own, which enters an editor for each generator class as it loads; null
    // while it is not loaded, or for a class it has no editor for.
    virtual VRKDlgDialog* CreatePropertyEditor(VRKDlgDialog* parent);
    // Asks who draws a text: the generator (support 2) or the host, as geometry (support 1).
    // The default leaves every text to the host.
    virtual void GetPrintTextManagement(VRKFont* font, const VRKUnicodeString& text,
                                        VRKPrintTextSupport& support,
                                        VRKPrintTextClipping& clipping);

    // State the base keeps for the generators.
    const VRKPrintParameters& GetPrintParameters() const { return params_; }
    int GetPolygonFillRule() const { return fillRule_; }
    int GetFillMode() const { return fillMode_; }
    int GetTextAsGeometry() const { return textAsGeometry_; }
    float GetTextSize() const { return textSize_; }
    float GetTextSlant() const { return textSlant_; }
    float GetTextDirection() const { return textDirection_; }
    int GetTextFont() const { return textFont_; }
    int GetTextWeight() const { return textWeight_; }
    int GetTextAnchor() const { return textAnchor_; }
    // The colours the drawing last selected with SelectDrawColor and SelectFillColor; 0 for
    // both before any selection, as a generator starts.
    int GetDrawColor() const { return drawColor_; }
    int GetFillColor() const { return fillColor_; }
    // True once a hook has failed (for example for want of memory).
    bool HasFailed() const { return failed_; }

  protected:
    // Job frame. Defaults: nothing.
    virtual void DrvBegin(const VRKPrintParameters& params);
    virtual void DrvEnd();
    virtual void DrvFormFeed();

    // Pen-up move and pen-down line. Defaults: nothing (a generator must draw them).
    virtual void DrvMoveTo(float x, float y);
    virtual void DrvLineTo(float x, float y);
    // Default: DrvMoveTo to the first point, DrvLineTo to each further one.
    virtual void DrvDrawPolyline(int count, const float* xy);
    // Default: as DrvDrawPolyline, then DrvLineTo back to the first point.
    virtual void DrvDrawPolygon(int count, const float* xy);
    // Cubic Bézier chain of 3k+1 points. Default: DrvMoveTo to the first point, then each
    // segment flattened into DrvLineTo calls within 0.025 mm of the curve.
    virtual void DrvDrawPolyBezier(int count, const float* xy);
    // Quadratic Bézier chain of 2k+1 points. Default: flattened as the cubic chain.
    virtual void DrvDrawPolyQuadBezier(int count, const float* xy);
    // Default: the elliptical arc default with equal radii and no rotation.
    virtual void DrvDrawArcCircle(float cx, float cy, float radius, float start, float end,
                                  int filled);
    // Default: an outline is flattened into DrvMoveTo/DrvLineTo within 0.025 mm; a filled
    // arc becomes one DrvFillArea polygon (the whole ellipse for a full sweep, else the sector
    // from the centre). A start above the end sweeps through 2π.
    virtual void DrvDrawArcEllipse(float cx, float cy, float rx, float ry, float start, float end,
                                   float rotation, int filled);
    // Default: FillPatternPolygon.
    virtual void DrvFillArea(int nbPolygons, const int* nbPoints, const float* points);
    // Default: nothing; a generator without raster output leaves images out.
    virtual void DrvDrawBitmap(float x, float y, const VRKPixelImage* image);
    // Default: text as geometry. The installed VRKTextOutliner (see VRKTextOutliner::Install)
    // outlines the text at the kept size, direction, slant, anchor and weight (GetTextSize() and
    // the others), and each glyph is filled with one DrvFillArea call (a glyph's contours form
    // one area; a glyph without contours, like a space, makes no call). The non-zero rule is in
    // force during those calls: when the kept rule is another, DrvSetPolygonFillRule(1) comes
    // first and DrvSetPolygonFillRule(previous rule) after the last glyph. Text takes the draw
    // colour, as lines do: when the selected fill colour is another, DrvSelectFillColor(draw
    // colour) comes before the first glyph (after the rule), and after the last glyph
    // DrvSelectFillColor(fill colour) and DrvSelectDrawColor(draw colour), so that a generator
    // that takes up a pen at each selection holds the draw colour's pen again (then the rule
    // goes back). With equal colours no colour hook is called. With no outliner installed
    // (VRKHostFonts not loaded), or without a usable font, nothing is drawn and no hook is
    // called.
    virtual void DrvDrawText(float x, float y, const VRKUnicodeString& text);

    // Colours and line attributes. Defaults: nothing (the public SelectDrawColor and
    // SelectFillColor keep the colours they select, for the default DrvDrawText).
    virtual void DrvDefineColor(int index, float r, float g, float b);
    virtual void DrvSelectDrawColor(int index);
    virtual void DrvSelectFillColor(int index);
    virtual void DrvSetDrawWidth(float width);
    virtual void DrvSetLineCap(VRKPrintLineAttribute cap);
    virtual void DrvSetLineJoin(VRKPrintLineAttribute join);
    virtual void DrvSetLineStyle(int style);
    virtual void DrvSetLineStyle(VRKPrintLineAttribute style, float length, const float* pattern);
    // Default: keeps the attribute (font, size, weight, slant in degrees, direction in degrees,
    // anchor) for text drawn by the host.
    virtual void DrvSetTextAttribute(VRKPrintTextAttribute kind, float value);
    // Defaults: keep the rule (1 non-zero winding, else even-odd) and the mode (2 pattern).
    virtual void DrvSetPolygonFillRule(int rule);
    virtual void DrvSetFillMode(int mode);

    // The host's pattern fill: hatch lines at 45 degrees, 1 mm apart, inside the area by the
    // current fill rule (1 non-zero winding, else even-odd), each span drawn with DrvMoveTo and
    // DrvLineTo, then every polygon's outline through DrvDrawPolygon. Invalid arguments (no
    // polygon, null arrays, negative counts) draw nothing.
    void FillPatternPolygon(int nbPolygons, const int* nbPoints, const float* points);

    // Called when a hook threw; the default marks the generator failed.
    virtual void ReportFailure();

  private:
    // Runs a hook; a hook that throws makes the generator failed (ReportFailure), and nothing
    // leaves the public call.
    template <class Call>
    void Guard(Call&& call) noexcept {
        try {
            call();
        } catch (...) {
            HookThrew();
        }
    }
    void HookThrew() noexcept;
    void FlattenEllipse(float cx, float cy, float rx, float ry, double start, double sweep,
                        float rotation, bool asPolygon, bool sector);
    // What the default DrvDrawText switched for its glyph fills, to be switched back.
    struct TextFillState {
        int previousRule;
        bool started = false;
        bool ruleSwitched = false;
        bool colourSwitched = false;
    };
    // Before the first glyph: the non-zero rule and the draw colour as fill colour, when they
    // are not in force already.
    void BeginTextFill(TextFillState& state);
    // After the last glyph: the fill colour and the rule as they were.
    void EndTextFill(const TextFillState& state);
    // Selects the drawing's fill colour again in the generator, if a text still lends it the
    // draw colour, before a call that fills.
    void ReturnFillColor();
    void FillGlyphs(const VRKTextOutliner::Outlines& glyphs);

    VRKString language_;
    VRKPrintParameters params_;
    int fillRule_ = 0;
    int drawColor_ = 0;
    int fillColor_ = 0;
    // True when the last colour selected was the fill colour: a pen plotter then holds its pen.
    bool fillSelectedLast_ = false;
    // True while the generator's fill colour is the draw colour a text was filled in.
    bool fillColorLent_ = false;
    int fillMode_ = 0;
    int textAsGeometry_ = 0;
    int textFont_ = VRKFontDefault;
    float textSize_ = 4.0f;
    int textWeight_ = VRKWeightNormal;
    float textSlant_ = 0.0f;
    float textDirection_ = 0.0f;
    int textAnchor_ = VRKAnchorBaseLeft;
    bool failed_ = false;
};
