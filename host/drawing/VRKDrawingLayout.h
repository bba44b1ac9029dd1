#pragma once

#include <optional>
#include <string>

#include "host/core/VRKPrintParameters.h"

// Where a drawing goes on the paper: the form it is plotted on and how it is placed there.
//
// Without a form the drawing is plotted on a sheet of its own size (and the margins). With one
// (`form`, width and height in millimetres) the drawing keeps its size and is placed against the
// top left corner of the form, inside the margins, unless `fit` asks to scale it, keeping its
// proportions, to the largest size that fits inside the margins, centred. `landscape` lays the form
// with its long side across.
//
// A form of height 0 is a roll: `width` across and as long as the drawing needs (its own length,
// or its length scaled as `fit` asks, and the margins). In landscape the roll's width spans the
// drawing's height and the drawing runs along the roll.
//
// `fitWhenLarger` scales as `fit` does, but only a drawing that does not fit inside the margins
// as it stands (a spooler's "auto" scaling); a drawing that fits keeps its size.
//
// The host's form counts orientation 1 as upright and 0 as turned, in which case the generators
// lay the drawing along the form's height: a landscape form is given as the upright sheet
// (short side as width) with orientation 0, and the drawing then spans the long side across.
struct VRKDrawingLayout {
    struct Form {
        float width = 0.0f;
        float height = 0.0f;
    };
    std::optional<Form> form;
    bool landscape = false;
    bool fit = false;
    bool fitWhenLarger = false;
    float margins = 0.0f;  // millimetres, on every side

    // How the drawing's page coordinates become the form's: scaled, then moved.
    struct Placement {
        float scale = 1.0f;
        float dx = 0.0f;
        float dy = 0.0f;
    };

    // Reads a form: a name (A4, A3, A2, A1, A0, any case) or WIDTHxHEIGHT in millimetres
    // ("420x297"). False with `error` set otherwise.
    static bool ParseForm(const std::string& text, Form& form, std::string& error);

    // The print parameters and placement for a drawing `width` × `height` millimetres. False with
    // `error` set when nothing is left inside the margins.
    bool Place(float width, float height, VRKPrintParameters& params, Placement& placement,
               std::string& error) const;
};
