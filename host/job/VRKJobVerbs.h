#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/job/VRKJobBitmap.h"
#include "host/job/VRKJobCalls.h"
#include "host/job/VRKJobVerb.h"

// The verbs of job files: each with its arguments' kinds and its call, the one statement of
// what a line of the verb holds.
class VRKJobVerbs {
  public:
    using K = VRKJobArgumentKind;
    using R = VRKJobVerb::Role;
    static constexpr K L = K::kLength;
    static constexpr K N = K::kNumber;
    static constexpr K I = K::kInteger;

    // Sorted by nothing in particular: the list is short and looked up once per line.
    static constexpr VRKJobVerb kAll[] = {
        {"Begin",
         "Begin [key=value ...]",
         R::kBegin,
         false,
         1,
         {K::kPageKeys},
         &VRKJobCalls::Begin},
        {"StartNewPage",
         "StartNewPage [key=value ...]",
         R::kNewPage,
         false,
         1,
         {K::kPageKeys},
         &VRKJobCalls::StartNewPage},
        {"End", "End", R::kEnd, false, 0, {}, &VRKJobCalls::End},
        {"MoveTo", "MoveTo x y", R::kDrawing, true, 2, {L, L}, &VRKJobCalls::MoveTo},
        {"LineTo", "LineTo x y", R::kDrawing, true, 2, {L, L}, &VRKJobCalls::LineTo},
        {"DrawPolyline",
         "DrawPolyline n x1 y1 ... xn yn",
         R::kDrawing,
         false,
         1,
         {K::kPoints},
         &VRKJobCalls::DrawPolyline},
        {"DrawPolygon",
         "DrawPolygon n x1 y1 ... xn yn",
         R::kDrawing,
         false,
         1,
         {K::kPoints},
         &VRKJobCalls::DrawPolygon},
        {"DrawPolyBezier",
         "DrawPolyBezier n x1 y1 ... xn yn",
         R::kDrawing,
         false,
         1,
         {K::kPoints},
         &VRKJobCalls::DrawPolyBezier},
        // Centre and radius are lengths, the angles are not.
        {"DrawArcCircle",
         "DrawArcCircle cx cy r start end filled",
         R::kDrawing,
         true,
         6,
         {L, L, L, N, N, K::kFilled},
         &VRKJobCalls::DrawArcCircle},
        {"DrawArcEllipse",
         "DrawArcEllipse cx cy rx ry start end rotation filled",
         R::kDrawing,
         false,
         8,
         {L, L, L, L, N, N, N, K::kFilled},
         &VRKJobCalls::DrawArcEllipse},
        {"FillArea",
         "FillArea k n1 ... nk x y ...",
         R::kDrawing,
         true,
         1,
         {K::kPolygons},
         &VRKJobCalls::FillArea},
        {"DrawBitmap",
         "DrawBitmap x y \"file.png\" [pw ph]",
         R::kDrawing,
         false,
         4,
         {L, L, K::kText, K::kPixelSize},
         &VRKJobBitmap::Draw},
        {"DrawText",
         "DrawText x y \"text\"",
         R::kDrawing,
         false,
         3,
         {L, L, K::kText},
         &VRKJobCalls::DrawText},
        {"DefineColor",
         "DefineColor i r g b",
         R::kDrawing,
         false,
         4,
         {I, K::kComponent, K::kComponent, K::kComponent},
         &VRKJobCalls::DefineColor},
        {"SelectDrawColor",
         "SelectDrawColor i",
         R::kDrawing,
         true,
         1,
         {I},
         &VRKJobCalls::SelectDrawColor},
        {"SelectFillColor",
         "SelectFillColor i",
         R::kDrawing,
         true,
         1,
         {I},
         &VRKJobCalls::SelectFillColor},
        {"SetDrawWidth", "SetDrawWidth w", R::kDrawing, false, 1, {L}, &VRKJobCalls::SetDrawWidth},
        {"SetLineCap", "SetLineCap v", R::kDrawing, false, 1, {I}, &VRKJobCalls::SetLineCap},
        {"SetLineJoin", "SetLineJoin v", R::kDrawing, false, 1, {I}, &VRKJobCalls::SetLineJoin},
        {"SetLineStyle",
         "SetLineStyle v, or SetLineStyle attr length [p1 p2 ...]",
         R::kDrawing,
         false,
         2,
         {I, K::kDashes},
         &VRKJobCalls::SetLineStyle},
        // The text size is a length; fonts, weights and anchors are enumeration values, slants
        // and directions degrees.
        {"SetTextAttribute",
         "SetTextAttribute kind value",
         R::kDrawing,
         false,
         2,
         {I, K::kAttributeValue},
         &VRKJobCalls::SetTextAttribute},
        {"SetPolygonFillRule",
         "SetPolygonFillRule v",
         R::kDrawing,
         false,
         1,
         {I},
         &VRKJobCalls::SetPolygonFillRule},
        {"SetFillMode", "SetFillMode v", R::kDrawing, false, 1, {I}, &VRKJobCalls::SetFillMode},
    };
    static constexpr std::size_t kCount = std::size(kAll);

    // The verb named `name`, or null. `previous` is tried first: jobs repeat a verb line after
    // line.
    static const VRKJobVerb* Find(std::string_view name, const VRKJobVerb* previous);
    // The verb that `name` spells in other letter case, or null: for the message of an unknown
    // verb.
    static const VRKJobVerb* FindIgnoringCase(std::string_view name);
    // The index of `verb` in kAll.
    static std::size_t IndexOf(const VRKJobVerb* verb) {
        return static_cast<std::size_t>(verb - kAll);
    }
};
