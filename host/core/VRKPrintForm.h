#pragma once

// The paper form a drawing is laid out on: width and height in millimetres and the orientation
// (0 landscape, 1 portrait, as the host counts them).
class VRKPrintForm {
  public:
    VRKPrintForm() = default;
    VRKPrintForm(float width, float height, int orientation)
        : width_(width), height_(height), orientation_(orientation) {}

    float GetWidth() const { return width_; }
    float GetHeight() const { return height_; }
    int GetOrientation() const { return orientation_; }
    void SetWidth(float width) { width_ = width; }
    void SetHeight(float height) { height_ = height; }
    void SetOrientation(int orientation) { orientation_ = orientation; }

  private:
    float width_ = 210.0f;
    float height_ = 297.0f;
    int orientation_ = 1;
};
