#include "host/pdf/VRKPdfDocument.h"

#include <cairo-svg.h>
#include <cairo.h>
#include <poppler.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "host/pdf/VRKPdfRenderProcess.h"
#include "host/pdf/VRKPdfTextLabels.h"

namespace {

// The SVG text of one page may not grow beyond what the SVG importer reads.
constexpr std::size_t kMaxSvgBytes = std::size_t{1} << 30;

// Where cairo writes the SVG text: a string, refused beyond the bound or when memory runs out
// (no exception may cross cairo's C frames).
struct SvgSink {
    std::string* text = nullptr;
    bool tooLarge = false;
    bool noMemory = false;
};

cairo_status_t WriteSvg(void* closure, const unsigned char* data, unsigned int length) {
    auto* sink = static_cast<SvgSink*>(closure);
    if (sink->text->size() + length > kMaxSvgBytes) {
        sink->tooLarge = true;
        return CAIRO_STATUS_WRITE_ERROR;
    }
    try {
        sink->text->append(reinterpret_cast<const char*>(data), length);
    } catch (const std::bad_alloc&) {
        sink->noMemory = true;
        return CAIRO_STATUS_WRITE_ERROR;
    }
    return CAIRO_STATUS_SUCCESS;
}

// "10 seconds", "0.25 seconds", "1 second".
std::string Seconds(std::chrono::milliseconds time) {
    const long long count = time.count();
    std::string text = std::to_string(count / 1000);
    if (count % 1000 != 0) {
        std::string fraction = std::to_string(1000 + count % 1000).substr(1);
        fraction.erase(fraction.find_last_not_of('0') + 1);
        text += "." + fraction;
    }
    return text + (count == 1000 ? " second" : " seconds");
}

std::string ErrorText(const GError* error) {
    if (error == nullptr || error->message == nullptr || error->message[0] == '\0') {
        return "no reason given";
    }
    return error->message;
}

// The font name without its subset prefix: six capital letters and a plus sign.
std::string WithoutSubset(const char* name) {
    std::string text = name != nullptr ? name : "";
    if (text.size() > 7 && text[6] == '+') {
        bool prefix = true;
        for (int i = 0; i < 6; ++i) {
            prefix = prefix && text[i] >= 'A' && text[i] <= 'Z';
        }
        if (prefix) {
            text.erase(0, 7);
        }
    }
    return text;
}

// The text as one string a character, UTF-8 sequences kept whole.
std::vector<std::string> SplitCharacters(const char* text) {
    std::vector<std::string> characters;
    for (const char* at = text; *at != '\0';) {
        const char* next = g_utf8_find_next_char(at, nullptr);
        if (next == nullptr) {
            next = at + std::char_traits<char>::length(at);
        }
        characters.emplace_back(at, next);
        at = next;
    }
    return characters;
}

}  // namespace

struct VRKPdfDocument::Handle {
    PopplerDocument* document = nullptr;
    ~Handle() {
        if (document != nullptr) {
            g_object_unref(document);
        }
    }
};

VRKPdfDocument::VRKPdfDocument()
    : handle_(std::make_unique<Handle>()), process_(std::make_unique<VRKPdfRenderProcess>()) {}

VRKPdfDocument::~VRKPdfDocument() = default;

void VRKPdfDocument::SetLimits(std::size_t maxPageMemory, std::chrono::milliseconds maxPageTime) {
    maxPageMemory_ = maxPageMemory;
    maxPageTime_ = maxPageTime;
}

bool VRKPdfDocument::Open(std::string_view data, std::string& error) {
    data_ = data;
    pageCount_ = 0;
    std::string count;
    if (!StartChild(0, count, error)) {
        return false;
    }
    pageCount_ = std::atoi(count.c_str());
    return true;
}

int VRKPdfDocument::PageCount() const {
    return pageCount_;
}

bool VRKPdfDocument::RenderPage(int index, std::string& svg, std::string& error) const {
    svg.clear();
    std::string count;
    if (process_->NextPage() != index && !StartChild(index, count, error)) {
        return false;
    }
    return Answer(process_->Next(svg, error), false, error);
}

bool VRKPdfDocument::StartChild(int first, std::string& count, std::string& error) const {
    VRKPdfRenderProcess::Limits limits;
    limits.maxMemoryGrowth = maxPageMemory_;
    limits.maxTime = maxPageTime_;
    limits.maxOutput = kMaxSvgBytes;
    // In the child, the document is opened (index -1), then its pages drawn.
    const auto work = [this](int index, std::string& text, std::string& message) {
        if (index < 0) {
            if (!OpenHere(data_, message)) {
                return false;
            }
            text = std::to_string(poppler_document_get_n_pages(handle_->document));
            return true;
        }
        if (!RenderPageHere(index, text, message)) {
            return false;
        }
        if (textLabels_) {
            std::vector<VRKPdfCharacter> characters;
            PageCharacters(index, characters);
            VRKPdfTextLabels::Apply(text, characters);
        }
        return true;
    };
    if (!process_->Start(work, first, limits, error)) {
        return false;
    }
    return Answer(process_->Next(count, error), true, error);
}

bool VRKPdfDocument::Answer(VRKPdfRenderProcess::Outcome outcome, bool opening,
                            std::string& error) const {
    switch (outcome) {
        case VRKPdfRenderProcess::Outcome::kDone:
            return true;
        case VRKPdfRenderProcess::Outcome::kTime:
            error = (opening ? "the document takes more than " : "the page takes more than ") +
                    Seconds(maxPageTime_) + (opening ? " to open" : " to draw");
            return false;
        case VRKPdfRenderProcess::Outcome::kMemory:
            error = (opening ? "opening the document takes more than "
                             : "drawing the page takes more than ") +
                    std::to_string(maxPageMemory_ >> 20) + " MiB of memory";
            return false;
        case VRKPdfRenderProcess::Outcome::kTooLarge:
            error = "the page is too large to be drawn";
            return false;
        case VRKPdfRenderProcess::Outcome::kNoMemory:
            throw std::bad_alloc();
        default:
            return false;
    }
}

bool VRKPdfDocument::OpenHere(std::string_view data, std::string& error) const {
    GBytes* bytes = g_bytes_new_static(data.data(), data.size());
    GError* gerror = nullptr;
    PopplerDocument* document = poppler_document_new_from_bytes(bytes, nullptr, &gerror);
    g_bytes_unref(bytes);
    if (document == nullptr) {
        if (gerror != nullptr && gerror->domain == POPPLER_ERROR &&
            gerror->code == POPPLER_ERROR_ENCRYPTED) {
            error = "the document is encrypted; it needs a password";
        } else if (gerror != nullptr && gerror->domain == POPPLER_ERROR &&
                   gerror->code == POPPLER_ERROR_DAMAGED) {
            error = "the document is damaged";
        } else {
            error = "the document cannot be read (" + ErrorText(gerror) + ")";
        }
        if (gerror != nullptr) {
            g_error_free(gerror);
        }
        return false;
    }
    if (handle_->document != nullptr) {
        g_object_unref(handle_->document);
    }
    handle_->document = document;
    return true;
}

bool VRKPdfDocument::RenderPageHere(int index, std::string& svg, std::string& error) const {
    svg.clear();
    PopplerPage* page = handle_->document != nullptr
                            ? poppler_document_get_page(handle_->document, index)
                            : nullptr;
    if (page == nullptr) {
        error = "the page cannot be read";
        return false;
    }
    double width = 0.0;
    double height = 0.0;
    poppler_page_get_size(page, &width, &height);
    if (!std::isfinite(width) || !std::isfinite(height) || width <= 0.0 || height <= 0.0) {
        g_object_unref(page);
        error = "the page has no size";
        return false;
    }
    SvgSink sink;
    sink.text = &svg;
    cairo_surface_t* surface = cairo_svg_surface_create_for_stream(WriteSvg, &sink, width, height);
    cairo_svg_surface_set_document_unit(surface, CAIRO_SVG_UNIT_PT);
    cairo_t* cairo = cairo_create(surface);
    poppler_page_render_for_printing(page, cairo);
    cairo_status_t drawn = cairo_status(cairo);
    cairo_destroy(cairo);
    cairo_surface_finish(surface);
    cairo_status_t written = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    g_object_unref(page);
    if (sink.noMemory) {
        throw std::bad_alloc();
    }
    if (sink.tooLarge) {
        error = "the page is too large to be drawn";
        return false;
    }
    cairo_status_t status = drawn != CAIRO_STATUS_SUCCESS ? drawn : written;
    if (status != CAIRO_STATUS_SUCCESS) {
        error = std::string("the page cannot be drawn (") + cairo_status_to_string(status) + ")";
        return false;
    }
    return true;
}

void VRKPdfDocument::PageCharacters(int index, std::vector<VRKPdfCharacter>& characters) const {
    characters.clear();
    if (handle_->document == nullptr) {
        return;
    }
    PopplerPage* page = poppler_document_get_page(handle_->document, index);
    if (page == nullptr) {
        return;
    }
    // Freed however this ends (a vector below may run out of memory).
    const std::unique_ptr<char, decltype(&g_free)> text(poppler_page_get_text(page), g_free);
    PopplerRectangle* laidOutBoxes = nullptr;
    guint count = 0;
    const bool laidOut = poppler_page_get_text_layout(page, &laidOutBoxes, &count);
    const std::unique_ptr<PopplerRectangle, decltype(&g_free)> boxes(laidOutBoxes, g_free);
    const std::unique_ptr<GList, decltype(&poppler_page_free_text_attributes)> attributes(
        poppler_page_get_text_attributes(page), poppler_page_free_text_attributes);
    g_object_unref(page);
    std::vector<std::string> utf8 =
        text != nullptr ? SplitCharacters(text.get()) : std::vector<std::string>();
    // The text, its boxes and its attributes must tell of the same characters.
    if (!laidOut || utf8.size() != count) {
        return;
    }
    characters.resize(count);
    for (guint i = 0; i < count; ++i) {
        VRKPdfCharacter& character = characters[i];
        character.utf8 = std::move(utf8[i]);
        character.x1 = boxes.get()[i].x1;
        character.y1 = boxes.get()[i].y1;
        character.x2 = boxes.get()[i].x2;
        character.y2 = boxes.get()[i].y2;
        character.plain = false;
    }
    for (GList* item = attributes.get(); item != nullptr; item = item->next) {
        const auto* run = static_cast<const PopplerTextAttributes*>(item->data);
        // A font without a name is reported as "Default". Every kind of font but Type 3 must
        // name its face (/BaseFont); a Type 3 font has no face to name, its glyphs are drawn by
        // procedures of its own. (Asking Poppler for the fonts' kinds instead would look up
        // substitutes for every font of the document.)
        const bool named =
            run->font_name != nullptr && std::string_view(run->font_name) != "Default";
        const std::string font = WithoutSubset(run->font_name);
        for (int i = std::max(run->start_index, 0);
             i <= run->end_index && i < static_cast<int>(count); ++i) {
            characters[i].font = font;
            characters[i].size = run->font_size;
            characters[i].plain = named;
        }
    }
}
