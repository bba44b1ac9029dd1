#pragma once

#include "host/core/VRKPrintParameters.h"
#include "host/drawing/VRKDrawing.h"
#include "host/drawing/VRKDrawingLayout.h"
#include "host/drawing/VRKDrawingPalette.h"

class VRKPrintGenerator;

// Plays a drawing into a print generator as one page, from Begin to End, with the host's
// public calls only:
//
// - a stroke selects its pen (the colour through the palette, SelectDrawColor, then
//   SetDrawWidth, SetLineStyle, SetLineCap and SetLineJoin, each only when it changes), moves to
//   its start (not when it is joined to the stroke before) and draws its lines with LineTo and
//   each run of cubic Béziers with one DrawPolyBezier; a whole ellipse is one DrawArcCircle or
//   DrawArcEllipse;
// - a fill selects its colour (SelectFillColor) and fill rule (SetPolygonFillRule) and is one
//   FillArea, or a filled DrawArcCircle / DrawArcEllipse;
// - a text selects its colour as the draw colour, sets the text attributes that changed and is
//   one DrawText;
// - an image is one DrawBitmap at its top left corner.
//
// Every coordinate, width and text size goes through the placement (scale, then move); an
// image's pixel size is scaled for the call and set back after it.
class VRKDrawingPlayer {
  public:
    VRKDrawingPlayer(VRKPrintGenerator& generator, const VRKDrawingLayout::Placement& placement)
        : generator_(generator), placement_(placement) {}

    // Begin(params), the drawing, End().
    void Play(const VRKDrawing& drawing, const VRKPrintParameters& params);
    // The drawing's calls alone, for a caller that frames the pages itself.
    void PlayItems(const VRKDrawing& drawing);

    const VRKDrawingPalette& GetPalette() const { return palette_; }

    // The placement of what is played from now on (the next page's).
    void SetPlacement(const VRKDrawingLayout::Placement& placement) { placement_ = placement; }
    // Forgets which colours, widths, line and text attributes the generator was given, so that
    // the next calls give them again (after a page advance). The palette's colours stay defined.
    void ForgetSelections() { given_ = Selections{}; }

  private:
    void PlayStroke(const VRKDrawing& drawing, const VRKDrawingItem& item);
    void PlayFill(const VRKDrawing& drawing, const VRKDrawingFill& fill);
    void PlayText(const VRKDrawingText& text);
    void PlayImage(const VRKDrawingImage& image);
    void SelectPen(const VRKDrawingPen& pen);
    void SelectDrawColor(const VRKDrawingColor& color);
    void PlayEllipse(const VRKDrawing& drawing, std::uint32_t first, int filled);
    void SetText(int kind, float value, float& current);

    float X(float x) const { return x * placement_.scale + placement_.dx; }
    float Y(float y) const { return y * placement_.scale + placement_.dy; }

    VRKPrintGenerator& generator_;
    VRKDrawingLayout::Placement placement_;
    VRKDrawingPalette palette_;

    // What the generator was last given; -1 (or a direction no one gives): nothing yet.
    struct Selections {
        int drawColor = -1;
        int fillColor = -1;
        int fillRule = -1;
        float width = -1.0f;
        int lineStyle = -1;
        int cap = -1;
        int join = -1;
        float textSize = -1.0f;
        float textDirection = -1000.0f;
        float textFont = -1.0f;
        float textWeight = -1.0f;
        float textAnchor = -1.0f;
    };
    Selections given_;
    // The coordinates of the current run of calls, kept between calls for their memory.
    std::vector<float> xy_;
    std::vector<int> sizes_;
};
