#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/VRKDrawing.h"

// Reads PDF documents into drawings, one a page. Each page is rendered as vector SVG and read by
// the SVG importer, so a page is drawn as that importer draws it: text as outlined fills (or as
// labels, see SetTextLabels), images as images, clipping ignored (and reported). Never throws.
class VRKPdfImporter {
  public:
    // Documents larger than this are refused before they are opened.
    static constexpr std::size_t kMaxFileBytes = std::size_t{1} << 30;
    // Documents with more pages than this are refused.
    static constexpr int kMaxPages = 10000;
    // Each page is drawn in a child process; one whose memory grows by more than this, or that
    // takes longer than this, is stopped and the document refused: a few hundred bytes of forms
    // that draw forms can ask for billions of paths, and an image can claim a million pixels a
    // side.
    static constexpr std::size_t kMaxPageMemory = std::size_t{256} << 20;
    static constexpr std::chrono::milliseconds kMaxPageTime{5000};

    // Bounds other than the defaults above (the tests make them small).
    void SetLimits(std::size_t maxPageMemory, std::chrono::milliseconds maxPageTime) {
        maxPageMemory_ = maxPageMemory;
        maxPageTime_ = maxPageTime;
    }

    // Reads every page of the PDF held in `data` into `pages` (one drawing each, in order).
    // `name` names the document in messages. False with GetError() set ("plan.pdf: ..."), and
    // `pages` emptied: not a PDF, damaged, encrypted (password needed), no pages, or larger
    // than the limits (a page stopped at its bounds).
    bool ReadMemory(std::string_view data, const std::string& name, std::vector<VRKDrawing>& pages);
    // Text in a plain font becomes the drawing's texts (labels the plotter draws with its own
    // font) instead of glyph outlines; text no plotter font can stand for stays outlines
    // (VRKPdfTextLabels). Off by default.
    void SetTextLabels(bool labels) { textLabels_ = labels; }
    const std::string& GetError() const { return error_; }
    // What was not drawn as the document asks, each kind once (from the SVG importer's
    // warnings, with the page named: "plan.pdf: page 2: ...").
    const std::vector<std::string>& GetWarnings() const { return warnings_; }
    // True when `head` starts like a PDF file ("%PDF-" within the first 1024 bytes).
    static bool LooksLikePdf(std::string_view head);

  private:
    std::size_t maxPageMemory_ = kMaxPageMemory;
    std::chrono::milliseconds maxPageTime_ = kMaxPageTime;
    std::string error_;
    std::vector<std::string> warnings_;
    bool textLabels_ = false;

    bool Read(std::string_view data, const std::string& name, std::vector<VRKDrawing>& pages);
    // A message of the SVG importer about the page's SVG, named `svgName`, rewritten to name
    // the page instead: "svgName:LINE: what" becomes "pageName: what".
    static std::string PageMessage(const std::string& message, const std::string& svgName,
                                   const std::string& pageName);
};
