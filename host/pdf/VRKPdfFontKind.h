#pragma once

#include <string>

// The nearest kind of plotter face for a PDF font, told by the font's name: what a label in
// that font is drawn with.
class VRKPdfFontKind {
  public:
    // The SVG font-family for the font: "Courier", "monospace", "sans-serif", "serif", or empty
    // when the name says nothing of the kind of face.
    static std::string Family(const std::string& font);
    // True when the name gives a bold face.
    static bool Bold(const std::string& font);
};
