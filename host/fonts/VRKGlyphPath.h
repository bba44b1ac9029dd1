#pragma once

#include <vector>

// The outline of one glyph as exact curves, already placed on the page (millimetres): closed
// contours of straight, quadratic and cubic Bézier segments, as a font gives them. It is kept
// apart from the font so that the flattening can be checked against the curves it approximates.
class VRKGlyphPath {
  public:
    enum class SegmentKind { Line, Quadratic, Cubic };

    // One segment of a contour: its start, its control points and its end.
    struct Segment {
        SegmentKind kind = SegmentKind::Line;
        // Index of the contour the segment belongs to, from 0.
        int contour = 0;
        // Points 0 (start) to 1, 2 or 3 (end) for a line, a quadratic or a cubic.
        double x[4] = {};
        double y[4] = {};

        int Degree() const;
        // The point at parameter t (0 to 1).
        void PointAt(double t, double& px, double& py) const;
    };

    // Starts a contour; the previous one, if any, is closed implicitly.
    void MoveTo(double x, double y);
    // Each continues the current contour from its last point. Without a MoveTo first they are
    // ignored.
    void LineTo(double x, double y);
    void QuadTo(double cx, double cy, double x, double y);
    void CubicTo(double c1x, double c1y, double c2x, double c2y, double x, double y);

    const std::vector<Segment>& GetSegments() const { return segments_; }
    bool IsEmpty() const { return segments_.empty(); }

    // Appends the contours as polygons whose chords stay within `tolerance` of the curves:
    // every segment's end point is kept exactly (as a float), a closing point equal to the
    // contour's first is left out, repeated points are dropped, and a contour left with fewer
    // than 3 points is dropped. Returns the number of contours appended.
    int Flatten(double tolerance, std::vector<int>& contourPoints,
                std::vector<float>& points) const;

  private:
    std::vector<Segment> segments_;
    int contours_ = 0;
    bool open_ = false;
    double lastX_ = 0.0;
    double lastY_ = 0.0;
};
