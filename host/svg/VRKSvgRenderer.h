#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "host/drawing/VRKDrawing.h"
#include "host/svg/VRKSvgDocument.h"
#include "host/svg/VRKSvgMatrix.h"
#include "host/svg/VRKSvgPaint.h"
#include "host/svg/VRKSvgStyle.h"
#include "host/svg/VRKSvgStyleSheet.h"

class VRKSvgPath;

// Draws a read SVG document into a drawing: walks the element tree with each element's style and
// transform, and adds what the shapes, texts and images become. Its sources are split by concern:
// the structure (this one's .cpp: page, groups, viewports, use), shapes and paint
// (VRKSvgRendererShapes.cpp), text (VRKSvgRendererText.cpp) and images
// (VRKSvgRendererImage.cpp).
class VRKSvgRenderer {
  public:
    static constexpr int kMaxDepth = 256;       // elements and use within each other
    static constexpr double kLimit = 1e7;       // millimetres from the page's origin
    static constexpr double kTolerance = 0.01;  // of flattened curves, millimetres

    // `maxPoints` bounds the points of the drawing, `maxElements` the elements drawn (the copies
    // `use` makes included).
    VRKSvgRenderer(const VRKSvgDocument& document, const std::string& name,
                   const std::string& baseFolder, VRKDrawing& drawing,
                   std::vector<std::string>& warnings, std::size_t maxPoints,
                   std::size_t maxElements);
    // Fills the drawing (cleared first). False with `error` and `errorLine` when the document
    // cannot be drawn.
    bool Render(std::string& error, int& errorLine);

  private:
    // What an element's content is drawn with.
    struct State {
        VRKSvgMatrix ctm;  // user units to the page (millimetres, y up)
        VRKSvgStyle style;
        double viewportWidth = 0.0;  // of the nearest viewport, user units
        double viewportHeight = 0.0;
        double Diagonal() const;
    };
    // A reason the drawing stops, thrown inside the walk and caught by Render.
    struct Failure {
        int line = 0;
        std::string message;
    };
    enum class Axis { kX, kY, kDiagonal };

    const VRKSvgDocument& document_;
    std::string name_;
    std::string baseFolder_;
    VRKDrawing& drawing_;
    std::vector<std::string>& warnings_;
    VRKSvgStyleSheet sheet_;
    std::vector<const VRKSvgNode*> stack_;
    std::set<std::string> warned_;
    std::size_t elements_ = 0;
    std::size_t maxPoints_;
    std::size_t maxElements_;

    // Structure.
    void CollectSheets(const VRKSvgNode& node);
    void CheckUses(const VRKSvgNode& node);
    void Page(const VRKSvgNode& root);
    void Element(const VRKSvgNode& node, const State& parent);
    void Children(const VRKSvgNode& node, const State& state);
    void Use(const VRKSvgNode& node, const State& state);
    void Viewport(const VRKSvgNode& node, State state, double x, double y, double width,
                  double height);
    State Enter(const VRKSvgNode& node, const State& parent, bool transform = true);
    VRKSvgStyle::Declarations DeclarationsOf(const VRKSvgNode& node) const;
    void CheckProperties(const VRKSvgNode& node, const VRKSvgStyle::Declarations& declarations);
    double Length(const VRKSvgNode& node, const char* attribute, Axis axis, const State& state,
                  double fallback) const;
    bool HasLength(const VRKSvgNode& node, const char* attribute) const;
    static bool ViewBox(const VRKSvgNode& node, double box[4]);
    static VRKSvgMatrix ViewBoxTransform(const double box[4], double width, double height,
                                         const std::string* preserveAspectRatio);

    // Shapes and paint.
    void Shape(const VRKSvgNode& node, const State& state);
    void DrawPath(VRKSvgPath& path, const VRKSvgNode& node, const State& state);
    void DrawEllipse(double cx, double cy, double rx, double ry, const VRKSvgNode& node,
                     const State& state);
    bool Paint(const VRKSvgPaint& paint, double opacity, const VRKSvgNode& node, const State& state,
               VRKDrawingColor& color);
    bool GradientColor(const VRKSvgNode& gradient, double& r, double& g, double& b,
                       double& opacity);
    bool StrokePen(const VRKSvgNode& node, const State& state, std::uint32_t& pen);
    static int LineStyle(const std::vector<double>& dashes, double strokeWidth);
    void Reserve(const VRKSvgNode& node, std::size_t points);
    void Absurd(const VRKSvgNode& node);

    // Text.
    void Text(const VRKSvgNode& node, const State& state);
    static int Font(const std::string& family);

    // Images.
    void Image(const VRKSvgNode& node, const State& state);

    // Reports.
    void Warn(const std::string& kind, const VRKSvgNode& node, const std::string& message);
    [[noreturn]] static void Fail(const VRKSvgNode& node, std::string message);
};
