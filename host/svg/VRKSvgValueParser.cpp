#include "host/svg/VRKSvgValueParser.h"

#include <boost/array.hpp>
#include <boost/range/iterator_range.hpp>
#include <cmath>
#include <exception>
#include <string>
#include <svgpp/parser/color.hpp>
#include <svgpp/parser/paint.hpp>
#include <svgpp/parser/path_data.hpp>
#include <svgpp/parser/transform_list.hpp>
#include <svgpp/policy/path.hpp>
#include <svgpp/policy/transform.hpp>

namespace {

using Range = boost::iterator_range<const char*>;

Range AsRange(std::string_view text) {
    return Range(text.data(), text.data() + text.size());
}

// The grammars take ASCII only (Spirit's character classes are undefined for other bytes): a value
// is read up to its first byte that is not ASCII, which is an error in any of them.
std::size_t AsciiLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) {
        ++length;
    }
    return length;
}

// A parse error is a false result, never an exception.
struct QuietErrors {
    template <class Context, class AttributeTag, class AttributeValue>
    static bool parse_failed(Context const&, AttributeTag, AttributeValue const&) {
        return false;
    }
};

// Colours as 0xRRGGBB; percentages rounded to the nearest level (50% is 128).
struct RoundingColorFactory : svgpp::factory::color::integer_base<int> {
    typedef double percentage_type;
    static int create_from_percent(double r, double g, double b) {
        return create(Level(r), Level(g), Level(b));
    }
    static unsigned char Level(double percent) {
        const double clamped = percent > 100.0 ? 100.0 : (percent < 0.0 ? 0.0 : percent);
        return static_cast<unsigned char>(std::lround(clamped * 255.0 / 100.0));
    }
};

// Colours come as 0xRRGGBB.
VRKDrawingColor FromInteger(int value) {
    return {static_cast<std::uint8_t>((value >> 16) & 0xff),
            static_cast<std::uint8_t>((value >> 8) & 0xff),
            static_cast<std::uint8_t>(value & 0xff)};
}

class PathContext {
  public:
    explicit PathContext(VRKSvgPathSink& sink) : sink_(sink) {}
    void path_move_to(double x, double y, svgpp::tag::coordinate::absolute) { sink_.MoveTo(x, y); }
    void path_line_to(double x, double y, svgpp::tag::coordinate::absolute) { sink_.LineTo(x, y); }
    void path_cubic_bezier_to(double x1, double y1, double x2, double y2, double x, double y,
                              svgpp::tag::coordinate::absolute) {
        sink_.CubicTo(x1, y1, x2, y2, x, y);
    }
    void path_quadratic_bezier_to(double x1, double y1, double x, double y,
                                  svgpp::tag::coordinate::absolute) {
        sink_.QuadTo(x1, y1, x, y);
    }
    void path_elliptical_arc_to(double rx, double ry, double rotation, bool largeArc, bool sweep,
                                double x, double y, svgpp::tag::coordinate::absolute) {
        sink_.ArcTo(rx, ry, rotation, largeArc, sweep, x, y);
    }
    void path_close_subpath() { sink_.Close(); }
    void path_exit() {}

  private:
    VRKSvgPathSink& sink_;
};

class TransformContext {
  public:
    VRKSvgMatrix matrix;
    void transform_matrix(const boost::array<double, 6>& m) {
        matrix = VRKSvgMatrix{m[0], m[1], m[2], m[3], m[4], m[5]};
    }
};

class PaintContext {
  public:
    VRKSvgPaint paint;
    bool inherit = false;

    template <class Tag>
    void set(Tag, svgpp::tag::value::none) {
        paint.kind = VRKSvgPaint::Kind::kNone;
    }
    template <class Tag>
    void set(Tag, svgpp::tag::value::currentColor) {
        paint.kind = VRKSvgPaint::Kind::kCurrentColor;
    }
    template <class Tag>
    void set(Tag, svgpp::tag::value::inherit) {
        inherit = true;
    }
    template <class Tag>
    void set(Tag, int color) {
        paint.kind = VRKSvgPaint::Kind::kColor;
        paint.color = FromInteger(color);
    }
    template <class Tag>
    void set(Tag, int color, svgpp::tag::skip_icc_color) {
        set(Tag(), color);
    }
    template <class Tag, class Iri>
    void set(Tag, Iri const& iri) {
        Reference(iri);
    }
    template <class Tag, class Iri, class... Rest>
    void set(Tag, svgpp::tag::iri_fragment, Iri const& iri, Rest const&... rest) {
        set(Tag(), std::string("#") + std::string(boost::begin(iri), boost::end(iri)), rest...);
    }
    template <class Tag, class Iri>
    void set(Tag, Iri const& iri, svgpp::tag::value::none) {
        Reference(iri);
        paint.hasFallback = true;
        paint.fallback = VRKSvgPaint::Kind::kNone;
    }
    template <class Tag, class Iri>
    void set(Tag, Iri const& iri, svgpp::tag::value::currentColor) {
        Reference(iri);
        paint.hasFallback = true;
        paint.fallback = VRKSvgPaint::Kind::kCurrentColor;
    }
    template <class Tag, class Iri>
    void set(Tag, Iri const& iri, int color) {
        Reference(iri);
        paint.hasFallback = true;
        paint.fallback = VRKSvgPaint::Kind::kColor;
        paint.fallbackColor = FromInteger(color);
    }
    template <class Tag, class Iri>
    void set(Tag, Iri const& iri, int color, svgpp::tag::skip_icc_color) {
        set(Tag(), iri, color);
    }

  private:
    template <class Iri>
    void Reference(Iri const& iri) {
        paint.kind = VRKSvgPaint::Kind::kReference;
        paint.reference.assign(boost::begin(iri), boost::end(iri));
        paint.localReference = !paint.reference.empty() && paint.reference[0] == '#';
        if (paint.localReference) {
            paint.reference.erase(0, 1);
        }
    }
};

class ColorContext {
  public:
    VRKDrawingColor color;
    template <class Tag>
    void set(Tag, int value) {
        color = FromInteger(value);
    }
    template <class Tag>
    void set(Tag, int value, svgpp::tag::skip_icc_color) {
        color = FromInteger(value);
    }
};

}  // namespace

bool VRKSvgValueParser::ParsePath(std::string_view data, VRKSvgPathSink& sink) {
    try {
        PathContext context(sink);
        const std::size_t ascii = AsciiLength(data);
        const bool parsed = svgpp::value_parser<
            svgpp::tag::type::path_data, svgpp::path_policy<svgpp::policy::path::no_shorthands>,
            svgpp::error_policy<QuietErrors>>::parse(svgpp::tag::attribute::d(), context,
                                                     AsRange(data.substr(0, ascii)),
                                                     svgpp::tag::source::attribute());
        return parsed && ascii == data.size();
    } catch (const std::exception&) {
        return false;
    }
}

bool VRKSvgValueParser::ParseTransform(std::string_view text, VRKSvgMatrix& matrix) {
    if (AsciiLength(text) != text.size()) {
        return false;
    }
    try {
        TransformContext context;
        if (!svgpp::value_parser<
                svgpp::tag::type::transform_list,
                svgpp::transform_policy<svgpp::policy::transform::matrix>,
                svgpp::error_policy<QuietErrors>>::parse(svgpp::tag::attribute::transform(),
                                                         context, AsRange(text),
                                                         svgpp::tag::source::attribute())) {
            return false;
        }
        matrix = context.matrix;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool VRKSvgValueParser::ParseColor(std::string_view text, VRKDrawingColor& color) {
    if (AsciiLength(text) != text.size()) {
        return false;
    }
    try {
        ColorContext context;
        if (!svgpp::value_parser<
                svgpp::tag::type::color, svgpp::color_factory<RoundingColorFactory>,
                svgpp::error_policy<QuietErrors>>::parse(svgpp::tag::attribute::color(), context,
                                                         AsRange(text),
                                                         svgpp::tag::source::attribute())) {
            return false;
        }
        color = context.color;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool VRKSvgValueParser::ParsePaint(std::string_view text, VRKSvgPaint& paint) {
    if (AsciiLength(text) != text.size()) {
        return false;
    }
    try {
        PaintContext context;
        if (!svgpp::value_parser<
                svgpp::tag::type::paint, svgpp::color_factory<RoundingColorFactory>,
                svgpp::error_policy<QuietErrors>>::parse(svgpp::tag::attribute::fill(), context,
                                                         AsRange(text),
                                                         svgpp::tag::source::attribute()) ||
            context.inherit) {
            return false;
        }
        paint = context.paint;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}
