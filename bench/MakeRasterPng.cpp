// vrk_make_raster_png OUT [WIDTH HEIGHT]: writes the raster workload's image, an 8-bit RGB PNG
// (10,000 by 7,000 pixels unless told), one row at a time.

#include <png.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/RasterPattern.h"

namespace {

// libpng reports errors with longjmp; this function holds no object with a destructor.
bool writePng(std::FILE* file, int width, int height, unsigned char* row) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    if (png == nullptr) {
        return false;
    }
    png_infop info = png_create_info_struct(png);
    if (info == nullptr || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_compression_level(png, 3);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8,
                 PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < height; ++y) {
        rasterPatternRow(y, width, row);
        png_write_row(png, row);
    }
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "usage: vrk_make_raster_png OUT [WIDTH HEIGHT]\n");
        return 2;
    }
    const int width = argc == 4 ? std::atoi(argv[2]) : 10000;
    const int height = argc == 4 ? std::atoi(argv[3]) : 7000;
    if (width < 1 || height < 1) {
        std::fprintf(stderr, "vrk_make_raster_png: the size must be positive\n");
        return 2;
    }
    std::FILE* file = std::fopen(argv[1], "wb");
    if (file == nullptr) {
        std::perror(argv[1]);
        return 2;
    }
    std::vector<unsigned char> row(3 * static_cast<std::size_t>(width));
    const bool written = writePng(file, width, height, row.data());
    if (std::fclose(file) != 0 || !written) {
        std::fprintf(stderr, "vrk_make_raster_png: cannot write %s\n", argv[1]);
        return 2;
    }
    return 0;
}
