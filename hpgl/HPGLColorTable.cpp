#include "hpgl/HPGLColorTable.h"

#include <algorithm>
#include <locale>

namespace {

constexpr int kPenBits = 5;

bool isComponent(int value) {
    return value >= 0 && value <= 255;
}

bool isTablePen(int pen) {
    return pen >= 1 && pen <= 31;
}

// Orders packed records by their colour alone, the pen bits left out.
bool colorBefore(std::uint32_t a, std::uint32_t b) {
    return a >> kPenBits < b >> kPenBits;
}

std::uint32_t packedColor(int red, int green, int blue) {
    return static_cast<std::uint32_t>(red) << 16 | static_cast<std::uint32_t>(green) << 8 |
           static_cast<std::uint32_t>(blue);
}

// Reads records from the stream's position: red, green and blue (0-255), one separator
// character read as it is, then the pen, and hands each record to `take` until the reading ends.
// The separator is the character right after the blue value, so "255 0 0:3" and "255 0 0 3" both
// name pen 3, while in "255 0 0 : 3" the blank is the separator and the colon ends the reading.
template <typename Take>
void readRecords(std::ifstream& in, Take take) {
    int r, g, b, pen;
    char separator;
    while (in >> r >> g >> b && in.get(separator) && in >> pen) {
        take(r, g, b, pen);
    }
}

}  // namespace

bool HPGLColorTable::Open(const std::string& path) {
    records.clear();
    reader.open(path);
    if (!reader.is_open()) {
        return false;
    }
    reader.imbue(std::locale::classic());
    // The table is read once per job and then looked up for every colour a job selects: a job
    // changes colours far more often than anyone changes the file while it plots.
    readRecords(reader, [&](int r, int g, int b, int pen) {
        if (isTablePen(pen) && isComponent(r) && isComponent(g) && isComponent(b)) {
            records.push_back(packedColor(r, g, b) << kPenBits | static_cast<std::uint32_t>(pen));
        }
    });
    std::stable_sort(records.begin(), records.end(), colorBefore);
    return true;
}

void HPGLColorTable::Close() {
    records = {};
    // A failed close only marks the reader failed; nothing is reported.
    if (reader.is_open()) {
        reader.close();
    }
}

void HPGLColorTable::PensFor(int red, int green, int blue, std::vector<int>& pens) {
    if (isComponent(red) && isComponent(green) && isComponent(blue)) {
        const std::uint32_t key = packedColor(red, green, blue);
        const auto [first, last] =
            std::equal_range(records.begin(), records.end(), key << kPenBits, colorBefore);
        for (auto record = first; record != last; ++record) {
            pens.push_back(static_cast<int>(*record & ((1u << kPenBits) - 1)));
        }
        return;
    }
    // A colour outside the range of a defined colour: the file is read again for the records
    // the table above does not keep.
    reader.clear();
    reader.seekg(0);
    readRecords(reader, [&](int r, int g, int b, int pen) {
        if (isTablePen(pen) && r == red && g == green && b == blue) {
            pens.push_back(pen);
        }
    });
}
