#pragma once

#include "host/core/VRKPrintForm.h"

// What the host knows about the page it is about to play: the form, the margins (millimetres),
// the colour mode (0 colour, 1 grey scale, 2 true black), the page rotation setting (0 to 3,
// quarter turns) and whether text is to be drawn as geometry.
class VRKPrintParameters {
  public:
    const VRKPrintForm& GetForm() const { return form_; }
    VRKPrintForm& GetForm() { return form_; }
    void SetForm(const VRKPrintForm& form) { form_ = form; }

    float GetLeftMargin() const { return left_; }
    float GetTopMargin() const { return top_; }
    float GetRightMargin() const { return right_; }
    float GetBottomMargin() const { return bottom_; }
    void SetMargins(float left, float top, float right, float bottom) {
        left_ = left;
        top_ = top;
        right_ = right;
        bottom_ = bottom;
    }

    int GetColorMode() const { return colorMode_; }
    void SetColorMode(int mode) { colorMode_ = mode; }
    int GetPageRotation() const { return pageRotation_; }
    void SetPageRotation(int rotation) { pageRotation_ = rotation; }
    int GetTextAsGeometry() const { return textAsGeometry_; }
    void SetTextAsGeometry(int flag) { textAsGeometry_ = flag; }

  private:
    VRKPrintForm form_;
    float left_ = 0.0f;
    float top_ = 0.0f;
    float right_ = 0.0f;
    float bottom_ = 0.0f;
    int colorMode_ = 0;
    int pageRotation_ = 0;
    int textAsGeometry_ = 0;
};
