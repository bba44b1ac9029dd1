#pragma once

// What the HP-GL hatch draws on: pen-up moves and pen-down lines in millimetres, as the host
// hands them to a generator, and the host's pattern fill for an area in fill mode 2. The
// generator that owns the dialect passes its own hooks, so a hatch travels the same way as any
// other drawing.
class HPGLSurface {
  public:
    virtual void MoveTo(float x, float y) = 0;
    virtual void LineTo(float x, float y) = 0;
    virtual void PatternFill(int nbPolygons, const int* nbPoints, const float* points) = 0;

  protected:
    ~HPGLSurface() = default;
};
