#include "host/fonts/VRKFreeTypeOutliner.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "host/core/VRKFont.h"
#include "host/core/VRKPrintTextAttribute.h"

struct VRKFreeTypeOutliner::Face {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    // Font units.
    double capHeight = 0.0;
    double descender = 0.0;

    Face() = default;
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;
    ~Face() {
        if (face != nullptr) {
            FT_Done_Face(face);
        }
        if (library != nullptr) {
            FT_Done_FreeType(library);
        }
    }
};

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Code points of a UTF-8 string; a byte that does not start a well-formed sequence counts as one
// U+FFFD.
std::vector<char32_t> decodeUtf8(const std::string& s) {
    std::vector<char32_t> out;
    out.reserve(s.size());
    const auto* b = reinterpret_cast<const unsigned char*>(s.data());
    const std::size_t n = s.size();
    std::size_t i = 0;
    while (i < n) {
        const unsigned char c = b[i];
        int length = 0;
        char32_t cp = 0;
        char32_t minimum = 0;
        if (c < 0x80) {
            out.push_back(c);
            ++i;
            continue;
        } else if ((c & 0xE0) == 0xC0) {
            length = 2, cp = c & 0x1F, minimum = 0x80;
        } else if ((c & 0xF0) == 0xE0) {
            length = 3, cp = c & 0x0F, minimum = 0x800;
        } else if ((c & 0xF8) == 0xF0) {
            length = 4, cp = c & 0x07, minimum = 0x10000;
        }
        bool ok = length > 0 && i + length <= n;
        for (int k = 1; ok && k < length; ++k) {
            ok = (b[i + k] & 0xC0) == 0x80;
            cp = (cp << 6) | (b[i + k] & 0x3F);
        }
        // Overlong forms, surrogates and values past U+10FFFF are not characters.
        if (ok && (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))) {
            ok = false;
        }
        if (ok) {
            out.push_back(cp);
            i += length;
        } else {
            out.push_back(kReplacement);
            ++i;
        }
    }
    return out;
}

std::string describe(FT_Error error) {
    const char* text = FT_Error_String(error);
    return text != nullptr ? text : "FreeType error " + std::to_string(error);
}

// Font units to page millimetres: the anchor point to the origin, a shear for the slant, the
// scale for the size, the turn for the direction, then the position.
struct Placement {
    double anchorU = 0.0, anchorV = 0.0;  // font units
    double scale = 1.0;                   // mm per font unit
    double shear = 0.0;                   // tan(slant)
    double cosD = 1.0, sinD = 0.0;
    double x = 0.0, y = 0.0;

    void Map(double u, double v, double& px, double& py) const {
        const double du = u - anchorU, dv = v - anchorV;
        const double a = (du + dv * shear) * scale, b = dv * scale;
        px = x + a * cosD - b * sinD;
        py = y + a * sinD + b * cosD;
    }
};

// What the FreeType decomposition calls back with: the glyph being built and where it goes.
struct Decomposition {
    const Placement* placement;
    double penU;
    VRKGlyphPath* path;

    void Map(const FT_Vector* v, double& px, double& py) const {
        placement->Map(penU + static_cast<double>(v->x), static_cast<double>(v->y), px, py);
    }
};

int moveTo(const FT_Vector* to, void* user) {
    const auto* d = static_cast<const Decomposition*>(user);
    double x, y;
    d->Map(to, x, y);
    d->path->MoveTo(x, y);
    return 0;
}

int lineTo(const FT_Vector* to, void* user) {
    const auto* d = static_cast<const Decomposition*>(user);
    double x, y;
    d->Map(to, x, y);
    d->path->LineTo(x, y);
    return 0;
}

int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
    const auto* d = static_cast<const Decomposition*>(user);
    double cx, cy, x, y;
    d->Map(control, cx, cy);
    d->Map(to, x, y);
    d->path->QuadTo(cx, cy, x, y);
    return 0;
}

int cubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
    const auto* d = static_cast<const Decomposition*>(user);
    double c1x, c1y, c2x, c2y, x, y;
    d->Map(control1, c1x, c1y);
    d->Map(control2, c2x, c2y);
    d->Map(to, x, y);
    d->path->CubicTo(c1x, c1y, c2x, c2y, x, y);
    return 0;
}

// Outlines in font units: no scaling, no hinting (hints fit pixels, not pens), no bitmaps.
constexpr FT_Int32 kLoadFlags = FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;

}  // namespace

VRKFreeTypeOutliner::VRKFreeTypeOutliner() : useDefaultFont_(true) {}

VRKFreeTypeOutliner::VRKFreeTypeOutliner(std::string fontPath) : path_(std::move(fontPath)) {}

VRKFreeTypeOutliner::~VRKFreeTypeOutliner() = default;

std::string VRKFreeTypeOutliner::GetFontPath() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return path_;
}

std::string VRKFreeTypeOutliner::GetError() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return error_;
}

bool VRKFreeTypeOutliner::Load() {
    if (tried_) {
        return face_ != nullptr;
    }
    tried_ = true;
    if (useDefaultFont_) {
        path_ = VRKFont::GetDefaultFont().GetPath();
    }
    auto face = std::make_unique<Face>();
    FT_Error error = FT_Init_FreeType(&face->library);
    if (error != 0) {
        face->library = nullptr;
        error_ = "cannot start FreeType: " + describe(error);
    } else if ((error = FT_New_Face(face->library, path_.c_str(), 0, &face->face)) != 0) {
        face->face = nullptr;
        error_ = "cannot load the font '" + path_ + "': " + describe(error);
    } else if (!FT_IS_SCALABLE(face->face)) {
        error_ = "the font '" + path_ + "' has no outlines";
    }
    if (!error_.empty()) {
        // Said once: every later text is left out the same way.
        std::fprintf(stderr, "VRKHostFonts: %s; text drawn as geometry is left out\n",
                     error_.c_str());
        return false;
    }
    FT_Face f = face->face;
    // Unicode is the map a TrueType font is read with; FreeType selects it when there is one.
    FT_Select_Charmap(f, FT_ENCODING_UNICODE);
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(f, FT_SFNT_OS2));
    if (os2 != nullptr && os2->version >= 2 && os2->sCapHeight > 0) {
        face->capHeight = os2->sCapHeight;
    } else {
        const FT_UInt h = FT_Get_Char_Index(f, 'H');
        if (h != 0 && FT_Load_Glyph(f, h, kLoadFlags) == 0 &&
            f->glyph->format == FT_GLYPH_FORMAT_OUTLINE) {
            FT_BBox box;
            FT_Outline_Get_CBox(&f->glyph->outline, &box);
            face->capHeight = static_cast<double>(box.yMax);
        }
    }
    if (!(face->capHeight > 0.0)) {
        face->capHeight = 0.7 * f->units_per_EM;
    }
    face->descender = std::min<double>(f->descender, 0.0);
    face_ = std::move(face);
    return true;
}

bool VRKFreeTypeOutliner::Outline(const VRKUnicodeString& text, float x, float y, float size,
                                  float direction, float slant, int anchor, int weight,
                                  Outlines& out) {
    const std::lock_guard<std::mutex> lock(mutex_);
    return Paths(text, x, y, size, direction, slant, anchor, weight, [&](VRKGlyphPath& glyph) {
        const int contours = glyph.Flatten(kFlatness, out.contourPoints, out.points);
        if (contours > 0) {
            out.glyphContours.push_back(contours);
        }
    });
}

bool VRKFreeTypeOutliner::OutlineInPieces(const VRKUnicodeString& text, float x, float y,
                                          float size, float direction, float slant, int anchor,
                                          int weight, const Take& take) {
    const std::lock_guard<std::mutex> lock(mutex_);
    Outlines piece;
    const bool ok =
        Paths(text, x, y, size, direction, slant, anchor, weight, [&](VRKGlyphPath& glyph) {
            const int contours = glyph.Flatten(kFlatness, piece.contourPoints, piece.points);
            if (contours > 0) {
                piece.glyphContours.push_back(contours);
            }
            if (piece.glyphContours.size() >= kGlyphsPerPiece) {
                take(piece);
                piece.glyphContours.clear();
                piece.contourPoints.clear();
                piece.points.clear();
            }
        });
    if (ok && !piece.glyphContours.empty()) {
        take(piece);
    }
    return ok;
}

bool VRKFreeTypeOutliner::OutlinePaths(const VRKUnicodeString& text, float x, float y, float size,
                                       float direction, float slant, int anchor, int weight,
                                       std::vector<VRKGlyphPath>& glyphs) {
    const std::lock_guard<std::mutex> lock(mutex_);
    return Paths(text, x, y, size, direction, slant, anchor, weight,
                 [&](VRKGlyphPath& glyph) { glyphs.push_back(std::move(glyph)); });
}

bool VRKFreeTypeOutliner::Paths(const VRKUnicodeString& text, float x, float y, float size,
                                float direction, float slant, int anchor, int weight,
                                const std::function<void(VRKGlyphPath&)>& each) {
    if (!Load()) {
        return false;
    }
    if (text.IsEmpty() || !(size > 0.0f) || !std::isfinite(size) || !std::isfinite(x) ||
        !std::isfinite(y) || !std::isfinite(direction) || !std::isfinite(slant)) {
        return true;
    }
    FT_Face f = face_->face;

    // Synthetic bold, in font units: the strokes grow by `bold` across and along. FreeType
    // grows each side by half the strength, so the strength is kept even.
    FT_Pos bold = 0;
    if (weight == VRKWeightBold) {
        bold = 2 * (f->units_per_EM / 48);
    } else if (weight == VRKWeightExtraBold) {
        bold = 2 * (f->units_per_EM / 32);
    }

    // First pass: glyphs and pen positions along the baseline, for the length of the box.
    struct Placed {
        FT_UInt glyph;
        double penU;
    };
    std::vector<Placed> placed;
    const bool kerning = FT_HAS_KERNING(f);
    double pen = 0.0;
    FT_UInt previous = 0;
    for (const char32_t c : decodeUtf8(text.ToUtf8())) {
        if (c < 0x20 || c == 0x7F) {
            continue;
        }
        // 0 is .notdef, what a font draws for a character it lacks.
        const FT_UInt glyph = FT_Get_Char_Index(f, c);
        if (kerning && previous != 0 && glyph != 0) {
            FT_Vector kern{0, 0};
            if (FT_Get_Kerning(f, previous, glyph, FT_KERNING_UNSCALED, &kern) == 0) {
                pen += static_cast<double>(kern.x);
            }
        }
        placed.push_back({glyph, pen});
        FT_Fixed advance = 0;
        if (FT_Get_Advance(f, glyph, kLoadFlags, &advance) == 0) {
            pen += static_cast<double>(advance + bold);
        }
        previous = glyph;
    }

    Placement placement;
    // Compared before the subtraction, which the int's smallest would overflow.
    int a = 0;
    if (anchor >= VRKAnchorBaseLeft && anchor <= VRKAnchorTopRight) {
        a = anchor - VRKAnchorBaseLeft;
    }
    // Anchors come in columns of four: base, bottom, middle, top; left, center, right.
    const double alongBox[3] = {0.0, pen / 2.0, pen};
    const double acrossBox[4] = {0.0, face_->descender, face_->capHeight / 2.0, face_->capHeight};
    placement.anchorU = alongBox[a / 4];
    placement.anchorV = acrossBox[a % 4];
    placement.scale = static_cast<double>(size) / face_->capHeight;
    const double slantDegrees = std::clamp(static_cast<double>(slant), -89.0, 89.0);
    placement.shear = std::tan(slantDegrees * std::numbers::pi / 180.0);
    const double turn = static_cast<double>(direction) * std::numbers::pi / 180.0;
    placement.cosD = std::cos(turn);
    placement.sinD = std::sin(turn);
    placement.x = x;
    placement.y = y;

    // Second pass: the outlines.
    FT_Outline_Funcs funcs{};
    funcs.move_to = moveTo;
    funcs.line_to = lineTo;
    funcs.conic_to = conicTo;
    funcs.cubic_to = cubicTo;
    funcs.shift = 0;
    funcs.delta = 0;
    for (const Placed& p : placed) {
        if (FT_Load_Glyph(f, p.glyph, kLoadFlags) != 0 ||
            f->glyph->format != FT_GLYPH_FORMAT_OUTLINE || f->glyph->outline.n_contours <= 0) {
            continue;
        }
        FT_Outline* outline = &f->glyph->outline;
        if (bold != 0) {
            // Grows the outline by `bold` to the right and upward; half of it is moved back
            // down so that horizontal strokes thicken on both sides.
            FT_Outline_EmboldenXY(outline, bold, bold);
            FT_Outline_Translate(outline, 0, -bold / 2);
        }
        VRKGlyphPath path;
        Decomposition d{&placement, p.penU, &path};
        if (FT_Outline_Decompose(outline, &funcs, &d) == 0 && !path.IsEmpty()) {
            each(path);
        }
    }
    return true;
}
