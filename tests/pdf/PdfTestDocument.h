#pragma once

#include <cairo-pdf.h>
#include <cairo.h>

#include <functional>
#include <string>

// Makes PDF documents for the tests with cairo's PDF surface, written into a string: `pages`
// pages of `width` by `height` points, each drawn by `draw` (given the page's index from 0).
class PdfTestDocument {
  public:
    static std::string Make(double width, double height, int pages,
                            const std::function<void(cairo_t*, int)>& draw) {
        std::string pdf;
        cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(Write, &pdf, width, height);
        cairo_t* cairo = cairo_create(surface);
        for (int page = 0; page < pages; ++page) {
            draw(cairo, page);
            cairo_show_page(cairo);
        }
        cairo_destroy(cairo);
        cairo_surface_finish(surface);
        cairo_surface_destroy(surface);
        return pdf;
    }

  private:
    static cairo_status_t Write(void* closure, const unsigned char* data, unsigned int length) {
        static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
        return CAIRO_STATUS_SUCCESS;
    }
};
