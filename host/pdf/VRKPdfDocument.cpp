#include "host/pdf/VRKPdfDocument.h"

#include <cairo-svg.h>
#include <cairo.h>
#include <poppler.h>

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string>

#include "host/pdf/VRKPdfRenderProcess.h"

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
        return RenderPageHere(index, text, message);
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
