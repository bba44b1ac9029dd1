#include "host/pdf/VRKPdfDocument.h"

#include <cairo-svg.h>
#include <cairo.h>
#include <poppler.h>

#include <cmath>
#include <cstddef>
#include <new>
#include <string>

#include "host/pdf/VRKPdfBytes.h"
#include "host/pdf/VRKPdfPageWatch.h"

namespace {

// The SVG text of one page may not grow beyond what the SVG importer reads.
constexpr std::size_t kMaxSvgBytes = std::size_t{1} << 30;

// Where cairo writes the SVG text: a string, refused beyond the bound or when memory runs out
// (no exception may cross cairo's C frames).
struct SvgSink {
    std::string* text = nullptr;
    bool tooLarge = false;
    bool noMemory = false;
    // Nothing is wanted any more: cairo is stopped at its first write.
    bool discard = false;
};

cairo_status_t WriteSvg(void* closure, const unsigned char* data, unsigned int length) {
    auto* sink = static_cast<SvgSink*>(closure);
    if (sink->discard) {
        return CAIRO_STATUS_WRITE_ERROR;
    }
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
    // The bytes Poppler reads the document from; withdrawn to stop a page.
    VRKPdfBytes bytes;
    // A page was stopped: the bytes are gone and nothing more can be drawn.
    bool spent = false;
    ~Handle() {
        if (document != nullptr) {
            g_object_unref(document);
        }
    }
};

VRKPdfDocument::VRKPdfDocument() : handle_(std::make_unique<Handle>()) {}

VRKPdfDocument::~VRKPdfDocument() = default;

void VRKPdfDocument::SetLimits(std::size_t maxPageMemory, std::chrono::milliseconds maxPageTime) {
    maxPageMemory_ = maxPageMemory;
    maxPageTime_ = maxPageTime;
}

bool VRKPdfDocument::Open(std::string_view data, std::string& error) {
    if (handle_->document != nullptr) {
        g_object_unref(handle_->document);
        handle_->document = nullptr;
    }
    handle_->spent = false;
    if (!handle_->bytes.Assign(data)) {
        error = "not enough memory to read the document";
        return false;
    }
    GBytes* bytes = g_bytes_new_static(handle_->bytes.Data(), handle_->bytes.Size());
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
    handle_->document = document;
    return true;
}

int VRKPdfDocument::PageCount() const {
    return handle_->document != nullptr ? poppler_document_get_n_pages(handle_->document) : 0;
}

bool VRKPdfDocument::RenderPage(int index, std::string& svg, std::string& error) const {
    svg.clear();
    if (handle_->spent) {
        error = "the document can draw no more pages";
        return false;
    }
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
    VRKPdfPageWatch::Stop stop = VRKPdfPageWatch::Stop::kNone;
    try {
        VRKPdfPageWatch watch(handle_->bytes, maxPageMemory_, maxPageTime_);
        poppler_page_render_for_printing(page, cairo);
        stop = watch.Finish();
    } catch (...) {
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
        g_object_unref(page);
        throw;
    }
    cairo_status_t drawn = cairo_status(cairo);
    cairo_destroy(cairo);
    if (stop != VRKPdfPageWatch::Stop::kNone) {
        // A page that was stopped is not wanted. The SVG surface keeps what was drawn and writes
        // it all out when finished; clearing the whole surface drops it at once, and the text
        // that is left to write goes nowhere.
        cairo_t* clear = cairo_create(surface);
        cairo_set_operator(clear, CAIRO_OPERATOR_CLEAR);
        cairo_paint(clear);
        cairo_destroy(clear);
        sink.discard = true;
    }
    cairo_surface_finish(surface);
    cairo_status_t written = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    g_object_unref(page);
    if (stop != VRKPdfPageWatch::Stop::kNone) {
        // What was drawn before the stop is not the page.
        handle_->spent = true;
        svg.clear();
        error = stop == VRKPdfPageWatch::Stop::kTime
                    ? "the page takes more than " + Seconds(maxPageTime_) + " to draw"
                    : "drawing the page takes more than " + std::to_string(maxPageMemory_ >> 20) +
                          " MiB of memory";
        return false;
    }
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
