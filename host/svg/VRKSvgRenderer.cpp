#include "host/svg/VRKSvgRenderer.h"

#include <cmath>
#include <string_view>

#include "host/svg/VRKSvgLength.h"
#include "host/svg/VRKSvgValueParser.h"

namespace {

// Keeps an element on the stack of those being drawn while it is.
class StackEntry {
  public:
    StackEntry(std::vector<const VRKSvgNode*>& stack, const VRKSvgNode& node) : stack_(stack) {
        stack_.push_back(&node);
    }
    ~StackEntry() { stack_.pop_back(); }
    StackEntry(const StackEntry&) = delete;
    StackEntry& operator=(const StackEntry&) = delete;

  private:
    std::vector<const VRKSvgNode*>& stack_;
};

bool IsOneOf(const std::string& name, std::initializer_list<std::string_view> names) {
    for (const std::string_view candidate : names) {
        if (name == candidate) {
            return true;
        }
    }
    return false;
}

// The id of a local reference "#id", or empty.
std::string LocalId(const std::string& link) {
    std::string_view text = link;
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    if (text.size() < 2 || text.front() != '#') {
        return {};
    }
    return std::string(text.substr(1));
}

}  // namespace

double VRKSvgRenderer::State::Diagonal() const {
    return std::sqrt((viewportWidth * viewportWidth + viewportHeight * viewportHeight) / 2.0);
}

VRKSvgRenderer::VRKSvgRenderer(const VRKSvgDocument& document, const std::string& name,
                               const std::string& baseFolder, VRKDrawing& drawing,
                               std::vector<std::string>& warnings, std::size_t maxPoints,
                               std::size_t maxElements)
    : document_(document),
      name_(name),
      baseFolder_(baseFolder),
      drawing_(drawing),
      warnings_(warnings),
      maxPoints_(maxPoints),
      maxElements_(maxElements) {}

bool VRKSvgRenderer::Render(std::string& error, int& errorLine) {
    drawing_ = VRKDrawing();
    try {
        const VRKSvgNode& root = document_.Root();
        CheckUses(root);
        CollectSheets(root);
        Page(root);
        return true;
    } catch (const Failure& failure) {
        drawing_ = VRKDrawing();
        error = failure.message;
        errorLine = failure.line;
        return false;
    }
}

void VRKSvgRenderer::Warn(const std::string& kind, const VRKSvgNode& node,
                          const std::string& message) {
    if (!warned_.insert(kind).second) {
        return;
    }
    std::string element = "<" + node.name;
    if (const std::string* id = node.Attribute("id")) {
        element += " id='" + *id + "'";
    }
    element += ">";
    warnings_.push_back(name_ + ":" + std::to_string(node.line) + ": " + element + ": " + message);
}

void VRKSvgRenderer::Fail(const VRKSvgNode& node, std::string message) {
    throw Failure{node.line, std::move(message)};
}

void VRKSvgRenderer::CollectSheets(const VRKSvgNode& node) {
    for (const auto& child : node.children) {
        if (child->IsText() || !child->inSvg) {
            continue;
        }
        if (child->name == "style") {
            const std::string* type = child->Attribute("type");
            if (type != nullptr && !type->empty() && *type != "text/css") {
                Warn("style-type", *child,
                     "style sheets of type '" + *type + "' are not supported; skipped");
                continue;
            }
            std::string text;
            for (const auto& part : child->children) {
                if (part->IsText()) {
                    text += part->text;
                }
            }
            sheet_.Add(text);
            if (!sheet_.Skipped().empty()) {
                Warn("css", *child,
                     "only type, class and id selectors are supported; " + sheet_.Skipped() +
                         " and the like skipped");
            }
        } else {
            CollectSheets(*child);
        }
    }
}

void VRKSvgRenderer::CheckUses(const VRKSvgNode& node) {
    for (const auto& child : node.children) {
        if (child->IsText()) {
            continue;
        }
        if (child->name == "use" && child->inSvg) {
            const std::string* link = child->Link();
            const std::string id = link != nullptr ? LocalId(*link) : std::string();
            const VRKSvgNode* target = id.empty() ? nullptr : document_.FindId(id);
            for (const VRKSvgNode* up = child.get(); target != nullptr && up != nullptr;
                 up = up->parent) {
                if (up == target) {
                    Fail(*child, "<use> refers to '#" + id +
                                     "', which contains it: the drawing would never end");
                }
            }
        }
        CheckUses(*child);
    }
}

VRKSvgStyle::Declarations VRKSvgRenderer::DeclarationsOf(const VRKSvgNode& node) const {
    VRKSvgStyle::Declarations declarations;
    for (const auto& [name, value] : node.attributes) {
        if (VRKSvgStyle::IsProperty(name) || name == "xml:space") {
            declarations.emplace_back(name, value);
        }
    }
    const VRKSvgStyle::Declarations fromSheet = sheet_.Match(node);
    declarations.insert(declarations.end(), fromSheet.begin(), fromSheet.end());
    if (const std::string* style = node.Attribute("style")) {
        const VRKSvgStyle::Declarations own = VRKSvgStyleSheet::ParseDeclarations(*style);
        declarations.insert(declarations.end(), own.begin(), own.end());
    }
    return declarations;
}

void VRKSvgRenderer::CheckProperties(const VRKSvgNode& node,
                                     const VRKSvgStyle::Declarations& declarations) {
    for (const auto& [name, value] : declarations) {
        if (value == "none" || value.empty()) {
            continue;
        }
        if (name == "filter") {
            Warn("filter", node, "filters are not supported; drawn without them");
        } else if (name == "mask") {
            Warn("mask", node, "masks are not supported; drawn without them");
        } else if (name == "clip-path") {
            Warn("clip", node, "clipping paths are not supported; drawn unclipped");
        } else if (name.rfind("marker", 0) == 0) {
            Warn("marker", node, "markers are not supported; drawn without them");
        }
    }
}

VRKSvgRenderer::State VRKSvgRenderer::Enter(const VRKSvgNode& node, const State& parent,
                                            bool transform) {
    State state = parent;
    const VRKSvgStyle::Declarations declarations = DeclarationsOf(node);
    CheckProperties(node, declarations);
    state.style = VRKSvgStyle::Cascade(parent.style, declarations, parent.Diagonal());
    const std::string* text = transform ? node.Attribute("transform") : nullptr;
    if (text != nullptr) {
        VRKSvgMatrix matrix;
        if (VRKSvgValueParser::ParseTransform(*text, matrix)) {
            state.ctm = state.ctm * matrix;
        } else {
            Warn("transform", node, "a transform that cannot be read; drawn without it");
        }
    }
    return state;
}

bool VRKSvgRenderer::HasLength(const VRKSvgNode& node, const char* attribute) const {
    const std::string* text = node.Attribute(attribute);
    VRKSvgLength length;
    return text != nullptr && VRKSvgLength::Parse(*text, length);
}

double VRKSvgRenderer::Length(const VRKSvgNode& node, const char* attribute, Axis axis,
                              const State& state, double fallback) const {
    const std::string* text = node.Attribute(attribute);
    VRKSvgLength length;
    if (text == nullptr || !VRKSvgLength::Parse(*text, length)) {
        return fallback;
    }
    const double reference = axis == Axis::kX   ? state.viewportWidth
                             : axis == Axis::kY ? state.viewportHeight
                                                : state.Diagonal();
    const double value = length.ToUser(reference, state.style.fontSize);
    return std::isfinite(value) ? value : fallback;
}

bool VRKSvgRenderer::ViewBox(const VRKSvgNode& node, double box[4]) {
    const std::string* text = node.Attribute("viewBox");
    if (text == nullptr) {
        return false;
    }
    const std::vector<double> values = VRKSvgLength::ParseList(*text);
    if (values.size() != 4 || !(values[2] > 0.0) || !(values[3] > 0.0)) {
        return false;
    }
    for (int i = 0; i < 4; ++i) {
        if (!std::isfinite(values[i])) {
            return false;
        }
        box[i] = values[i];
    }
    return true;
}

VRKSvgMatrix VRKSvgRenderer::ViewBoxTransform(const double box[4], double width, double height,
                                              const std::string* preserveAspectRatio) {
    std::string_view align = "xMidYMid";
    bool slice = false;
    if (preserveAspectRatio != nullptr) {
        std::string_view text = *preserveAspectRatio;
        std::vector<std::string_view> words;
        while (!text.empty()) {
            const std::size_t start = text.find_first_not_of(" \t\r\n");
            if (start == std::string_view::npos) {
                break;
            }
            text.remove_prefix(start);
            const std::size_t end = std::min(text.find_first_of(" \t\r\n"), text.size());
            words.push_back(text.substr(0, end));
            text.remove_prefix(end);
        }
        std::size_t i = 0;
        if (i < words.size() && words[i] == "defer") {
            ++i;
        }
        if (i < words.size()) {
            align = words[i++];
        }
        if (i < words.size()) {
            slice = words[i] == "slice";
        }
    }
    const double sx = width / box[2];
    const double sy = height / box[3];
    if (align == "none") {
        return VRKSvgMatrix{sx, 0.0, 0.0, sy, -box[0] * sx, -box[1] * sy};
    }
    const double s = slice ? std::max(sx, sy) : std::min(sx, sy);
    double tx = -box[0] * s;
    double ty = -box[1] * s;
    const double spareX = width - box[2] * s;
    const double spareY = height - box[3] * s;
    if (align.size() == 8) {
        const std::string_view x = align.substr(0, 4);
        const std::string_view y = align.substr(4, 4);
        tx += x == "xMid" ? spareX / 2.0 : x == "xMax" ? spareX : 0.0;
        ty += y == "YMid" ? spareY / 2.0 : y == "YMax" ? spareY : 0.0;
    }
    return VRKSvgMatrix{s, 0.0, 0.0, s, tx, ty};
}

void VRKSvgRenderer::Page(const VRKSvgNode& root) {
    double box[4] = {0.0, 0.0, 0.0, 0.0};
    const bool hasBox = ViewBox(root, box);
    // The page: width and height in absolute units; a percentage or nothing takes the viewBox's
    // size in px, or 300 by 150 px.
    auto side = [&](const char* attribute, double boxSide, double fallbackPx) {
        const std::string* text = root.Attribute(attribute);
        VRKSvgLength length;
        double millimetres = 0.0;
        if (text != nullptr && VRKSvgLength::Parse(*text, length) &&
            length.ToMillimetres(millimetres)) {
            return millimetres;
        }
        return (hasBox ? boxSide : fallbackPx) * VRKSvgLength::kMmPerPx;
    };
    const double width = side("width", box[2], 300.0);
    const double height = side("height", box[3], 150.0);
    if (!(width > 0.0) || !(height > 0.0) || !(width <= kLimit) || !(height <= kLimit)) {
        Fail(root, "the drawing's width and height must be positive and below 10 km");
    }
    drawing_.width = static_cast<float>(width);
    drawing_.height = static_cast<float>(height);

    State state;
    state.ctm = VRKSvgMatrix{1.0, 0.0, 0.0, -1.0, 0.0, height};
    state.viewportWidth = width / VRKSvgLength::kMmPerPx;
    state.viewportHeight = height / VRKSvgLength::kMmPerPx;
    StackEntry entry(stack_, root);
    state = Enter(root, state, false);
    if (!state.style.display) {
        return;
    }
    if (hasBox) {
        state.ctm =
            state.ctm * ViewBoxTransform(box, width, height, root.Attribute("preserveAspectRatio"));
        state.viewportWidth = box[2];
        state.viewportHeight = box[3];
    } else {
        state.ctm = state.ctm * VRKSvgMatrix::Scale(VRKSvgLength::kMmPerPx, VRKSvgLength::kMmPerPx);
    }
    if (const std::string* text = root.Attribute("transform")) {
        VRKSvgMatrix matrix;
        if (VRKSvgValueParser::ParseTransform(*text, matrix)) {
            state.ctm = state.ctm * matrix;
        }
    }
    Children(root, state);
}

void VRKSvgRenderer::Children(const VRKSvgNode& node, const State& state) {
    for (const auto& child : node.children) {
        if (!child->IsText()) {
            Element(*child, state);
        }
    }
}

void VRKSvgRenderer::Viewport(const VRKSvgNode& node, State state, double x, double y, double width,
                              double height) {
    if (!(width > 0.0) || !(height > 0.0)) {
        return;  // a viewport of no size shows nothing
    }
    double box[4] = {0.0, 0.0, 0.0, 0.0};
    state.ctm = state.ctm * VRKSvgMatrix::Translate(x, y);
    if (ViewBox(node, box)) {
        state.ctm =
            state.ctm * ViewBoxTransform(box, width, height, node.Attribute("preserveAspectRatio"));
        state.viewportWidth = box[2];
        state.viewportHeight = box[3];
    } else {
        state.viewportWidth = width;
        state.viewportHeight = height;
    }
    Children(node, state);
}

void VRKSvgRenderer::Element(const VRKSvgNode& node, const State& parent) {
    if (!node.inSvg) {
        return;  // elements of other namespaces: an editor's own data
    }
    const std::string& name = node.name;
    // Not drawn where they stand: descriptions, definitions (drawn where they are referred to)
    // and the style sheets (read before).
    if (IsOneOf(name, {"title", "desc", "metadata", "defs", "style", "symbol", "linearGradient",
                       "radialGradient", "stop"})) {
        return;
    }
    if (name == "filter") {
        Warn("filter", node, "filters are not supported; drawn without them");
        return;
    }
    if (name == "mask") {
        Warn("mask", node, "masks are not supported; drawn without them");
        return;
    }
    if (name == "clipPath") {
        Warn("clip", node, "clipping paths are not supported; drawn unclipped");
        return;
    }
    if (name == "pattern") {
        Warn("pattern", node, "patterns are not supported; what they fill is left unfilled");
        return;
    }
    if (name == "marker") {
        Warn("marker", node, "markers are not supported; drawn without them");
        return;
    }
    if (IsOneOf(name,
                {"animate", "set", "animateMotion", "animateTransform", "animateColor", "mpath"})) {
        Warn("animation", node, "animations are not played; drawn as the file stands");
        return;
    }
    if (name == "script") {
        Warn("script", node, "scripts are not run");
        return;
    }
    if (++elements_ > maxElements_) {
        Fail(node, "the drawing has more than " + std::to_string(maxElements_) +
                       " elements once its <use> copies are made");
    }
    if (stack_.size() >= static_cast<std::size_t>(kMaxDepth)) {
        Fail(node, "elements are nested deeper than " + std::to_string(kMaxDepth) +
                       " levels (counting those <use> brings in)");
    }
    StackEntry entry(stack_, node);
    const State state = Enter(node, parent, name != "svg");
    if (!state.style.display) {
        return;
    }
    if (name == "g" || name == "a") {
        Children(node, state);
    } else if (name == "svg") {
        Viewport(node, state, Length(node, "x", Axis::kX, state, 0.0),
                 Length(node, "y", Axis::kY, state, 0.0),
                 Length(node, "width", Axis::kX, state, state.viewportWidth),
                 Length(node, "height", Axis::kY, state, state.viewportHeight));
    } else if (name == "use") {
        Use(node, state);
    } else if (name == "switch") {
        Warn("switch", node, "conditions of <switch> are not tested; its first element is drawn");
        for (const auto& child : node.children) {
            if (!child->IsText() && child->inSvg) {
                Element(*child, state);
                break;
            }
        }
    } else if (IsOneOf(name,
                       {"rect", "circle", "ellipse", "line", "polyline", "polygon", "path"})) {
        Shape(node, state);
    } else if (name == "text") {
        Text(node, state);
    } else if (name == "image") {
        Image(node, state);
    } else if (name == "foreignObject") {
        Warn("foreignObject", node, "foreign objects are not supported; not drawn");
    } else if (IsOneOf(name, {"tspan", "textPath"})) {
        Warn("stray-text", node, "text content outside <text> is not drawn");
    } else {
        Warn("element-" + name, node,
             "<" + name + "> elements are not supported; what they hold is drawn as a group");
        Children(node, state);
    }
}

void VRKSvgRenderer::Use(const VRKSvgNode& node, const State& useState) {
    const std::string* link = node.Link();
    if (link == nullptr || link->empty()) {
        Warn("use-link", node, "<use> without a reference; not drawn");
        return;
    }
    const std::string id = LocalId(*link);
    if (id.empty()) {
        Warn("use-external", node,
             "<use> of another file ('" + *link + "') is not supported; not drawn");
        return;
    }
    const VRKSvgNode* target = document_.FindId(id);
    if (target == nullptr || !target->inSvg) {
        Warn("missing-reference", node,
             "refers to '#" + id + "', which is not in the file; drawn without it");
        return;
    }
    for (const VRKSvgNode* open : stack_) {
        if (open == target) {
            Fail(node,
                 "<use> refers to '#" + id + "', which contains it: the drawing would never end");
        }
    }
    State state = useState;
    state.ctm = state.ctm * VRKSvgMatrix::Translate(Length(node, "x", Axis::kX, state, 0.0),
                                                    Length(node, "y", Axis::kY, state, 0.0));
    if (target->name == "symbol" || target->name == "svg") {
        if (stack_.size() >= static_cast<std::size_t>(kMaxDepth)) {
            Fail(node, "elements are nested deeper than " + std::to_string(kMaxDepth) +
                           " levels (counting those <use> brings in)");
        }
        StackEntry entry(stack_, *target);
        State inner = Enter(*target, state, target->name != "svg");
        if (!inner.style.display) {
            return;
        }
        // The use's width and height, when given, override the viewport's own.
        const VRKSvgNode& sized = HasLength(node, "width") ? node : *target;
        const VRKSvgNode& sizedY = HasLength(node, "height") ? node : *target;
        const double width = Length(sized, "width", Axis::kX, state, state.viewportWidth);
        const double height = Length(sizedY, "height", Axis::kY, state, state.viewportHeight);
        const double x = target->name == "svg" ? Length(*target, "x", Axis::kX, state, 0.0) : 0.0;
        const double y = target->name == "svg" ? Length(*target, "y", Axis::kY, state, 0.0) : 0.0;
        Viewport(*target, inner, x, y, width, height);
        return;
    }
    Element(*target, state);
}
