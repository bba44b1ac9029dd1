#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/VRKDrawing.h"

// Reads SVG documents into drawings: shapes and paths become fills and strokes, texts and PNG
// images become the drawing's texts and images, all on the page in millimetres (docs/host.md,
// "SVG drawings", says what is drawn and how). What the file asks for and the importer cannot
// draw is reported in warnings; a file that cannot be drawn at all gives an error and an empty
// drawing. Never throws.
class VRKSvgImporter {
  public:
    // Files larger than this are refused before they are read.
    static constexpr std::size_t kMaxFileBytes = std::size_t{1} << 30;
    // What one drawing may take: points of strokes and fills, and elements drawn (the copies
    // `use` makes included). Beyond either, the file is refused.
    static constexpr std::size_t kMaxPoints = 20000000;
    static constexpr std::size_t kMaxElements = 4000000;
    // Lowers (or restores) the two bounds above for the files read next.
    void SetLimits(std::size_t maxPoints, std::size_t maxElements) {
        maxPoints_ = maxPoints;
        maxElements_ = maxElements;
    }

    // Reads the SVG file at `path` into `drawing` (which it clears first). Linked images are
    // taken relative to the file's folder. False with GetError() set when the file cannot be
    // drawn.
    bool ReadFile(const std::string& path, VRKDrawing& drawing);
    // The same for a document in memory; `name` names it in messages; `baseFolder` is where
    // linked images are looked for (empty: linked images are refused).
    bool ReadMemory(std::string_view text, const std::string& name, const std::string& baseFolder,
                    VRKDrawing& drawing);
    // The same for a document read piece by piece, so that the whole text is never held: `read`
    // fills up to `size` bytes at `data` and gives the count, 0 at the end. A `read` that fails
    // throws; its message (what()) becomes the error.
    bool ReadStream(const std::function<std::size_t(char* data, std::size_t size)>& read,
                    const std::string& name, const std::string& baseFolder, VRKDrawing& drawing);
    // "NAME:LINE: what is wrong", e.g. "bad.svg:7: the file is not well-formed XML (...)".
    const std::string& GetError() const { return error_; }
    // What was not drawn as the file asks: one line per kind of unsupported feature, the first
    // time it is met, naming the element's id or line: "plan.svg:12: <filter id='blur'>: filters
    // are not supported; drawn without them".
    const std::vector<std::string>& GetWarnings() const { return warnings_; }
    // Content sniffing for the input layer: true when `head` (the first bytes of a file) looks
    // like an SVG document (an XML prolog/comments/doctype then an <svg root element, with or
    // without a namespace prefix), false otherwise.
    static bool LooksLikeSvg(std::string_view head);

  private:
    std::string error_;
    std::vector<std::string> warnings_;
    std::size_t maxPoints_ = kMaxPoints;
    std::size_t maxElements_ = kMaxElements;

    bool Read(const std::function<std::size_t(char*, std::size_t)>& read, const std::string& name,
              const std::string& baseFolder, VRKDrawing& drawing);
    // An exception that stopped the reading as the error ("not enough memory" for bad_alloc),
    // with the drawing emptied; false.
    bool Failed(const std::exception& exception, const std::string& name, VRKDrawing& drawing);
};
