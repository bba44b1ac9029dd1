#pragma once

#include <string>

#include "pdf/PdfTestDocument.h"

// The documents the spooler's tests print: a PDF page of 100 by 50 mm (283.46 by 141.73 points)
// with a frame and a diagonal line.
inline std::string CupsTestPdf() {
    return PdfTestDocument::Make(283.46457, 141.73228, 1, [](cairo_t* cairo, int) {
        cairo_set_line_width(cairo, 1.0);
        cairo_rectangle(cairo, 20, 20, 240, 100);
        cairo_move_to(cairo, 20, 20);
        cairo_line_to(cairo, 260, 120);
        cairo_stroke(cairo);
    });
}

// A page of the same size with one line of text: 24 points of DejaVu Sans.
inline std::string CupsTextPdf() {
    return PdfTestDocument::Make(283.46457, 141.73228, 1, [](cairo_t* cairo, int) {
        cairo_select_font_face(cairo, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cairo, 24);
        cairo_move_to(cairo, 36, 72);
        cairo_show_text(cairo, "Plan 7");
    });
}
