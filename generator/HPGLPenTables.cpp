// Pen and colour tables of the HP-GL dialect: the pen table from the settings or from a "PenTable"
// file, and the optional "ColorTable" file that maps colours to pens.

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <locale>
#include <memory>
#include <new>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKEnvironment.h"
#include "host/core/VRKPlotterRange.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

// The folder of the table files. Test installations keep them in a folder of their own, named
// with a Windows separator; otherwise they lie in the system's temporary directory, which comes
// with its separator.
std::string tableFilePath(const char* fileName) {
    std::string dir;
    if (VRKEnvironment::IsDefined("TestPrint")) {
        dir = VRKEnvironment::Get("QMB_RWX_TMP").value_or("") + "\\";
    } else {
        dir = VRKEnvironment::TemporaryDirectory();
    }
    return dir + fileName;
}

}  // namespace

void VRKPrintHPGL2Generator::freePenTable() {
    delete[] tableRed;
    delete[] tableGreen;
    delete[] tableBlue;
    delete[] tableThickness;
    delete[] tableEnabled;
    tableRed = tableGreen = tableBlue = tableThickness = nullptr;
    tableEnabled = nullptr;
}

bool VRKPrintHPGL2Generator::allocatePenTable(int count) {
    freePenTable();
    // Room for every slot the settings can hold, whatever the count says.
    const std::size_t slots = static_cast<std::size_t>(std::max(count, 32));
    tableRed = new (std::nothrow) float[slots]();
    tableGreen = new (std::nothrow) float[slots]();
    tableBlue = new (std::nothrow) float[slots]();
    tableThickness = new (std::nothrow) float[slots]();
    tableEnabled = new (std::nothrow) int[slots]();
    if (tableRed == nullptr || tableGreen == nullptr || tableBlue == nullptr ||
        tableThickness == nullptr || tableEnabled == nullptr) {
        freePenTable();
        return false;
    }
    return true;
}

void VRKPrintHPGL2Generator::buildPenTable() {
    if (!VRKEnvironment::IsDefined("HPGL2_PEN_TABLE")) {
        penCount = hpglSettings->GetPenCount();
        if (allocatePenTable(penCount)) {
            hpglSettings->GetPenColors(tableRed, tableGreen, tableBlue);
            hpglSettings->GetPenWidths(tableThickness);
            hpglSettings->GetPenEnables(tableEnabled);
        }
        return;
    }
    const std::string path = tableFilePath("PenTable");
    std::ifstream file(path);
    if (!file.is_open()) {
        return;
    }
    file.imbue(std::locale::classic());
    std::cout << "PenTable file for HPGL generation = " << path << std::endl;
    penCount = 32;
    if (!allocatePenTable(penCount)) {
        return;
    }
    for (int i = 0; i < penCount; ++i) {
        tableThickness[i] = 0.35f;
        tableEnabled[i] = 1;
    }
    // One record per line: pen number, red, green, blue (0-255) and thickness in millimetres.
    // The stream is tested after the record is stored, so the read that fails at the end of the
    // file stores the values it left behind once more (the last record again, as extraction
    // leaves a variable alone when there is nothing to read).
    int pen = 0, red = 0, green = 0, blue = 0;
    float thickness = 0.0f;
    while (file.good()) {
        file >> pen >> red >> green >> blue >> thickness;
        std::cout << "numpen = " << pen << '\n'
                  << "  red   = " << red << '\n'
                  << "  green = " << green << '\n'
                  << "  blue  = " << blue << '\n'
                  << "  thickness = " << thickness << std::endl;
        // A record for a pen the table has no slot for is ignored.
        if (pen >= 0 && pen < penCount) {
            tableRed[pen] = static_cast<float>(red);
            tableGreen[pen] = static_cast<float>(green);
            tableBlue[pen] = static_cast<float>(blue);
            // A thickness beyond the plotter's range is not taken: the pen keeps the one it had.
            if (VRKPlotterRange::FitsMillimetres(thickness)) {
                tableThickness[pen] = thickness;
            }
        }
    }
}

void VRKPrintHPGL2Generator::openColorTable() {
    colorTableRecords.clear();
    if (!VRKEnvironment::IsDefined("HPGL2_COLOR_TABLE")) {
        return;
    }
    const std::string path = tableFilePath("ColorTable");
    tableReader.open(path);
    if (tableReader.is_open()) {
        tableReader.imbue(std::locale::classic());
        std::cout << "ColorTable file for HPGL generation = " << path << std::endl;
        loadColorTable();
    }
}

namespace {

constexpr int kPenBits = 5;

bool isComponent(int value) {
    return value >= 0 && value <= 255;
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
void readColorRecords(std::ifstream& in, Take take) {
    int r, g, b, pen;
    char separator;
    while (in >> r >> g >> b && in.get(separator) && in >> pen) {
        take(r, g, b, pen);
    }
}

}  // namespace

void VRKPrintHPGL2Generator::loadColorTable() {
    // The table is read once per job and then looked up for every colour a job selects: a job
    // changes colours far more often than anyone changes the file while it plots.
    readColorRecords(tableReader, [&](int r, int g, int b, int pen) {
        if (pen >= 1 && pen <= 31 && isComponent(r) && isComponent(g) && isComponent(b)) {
            colorTableRecords.push_back(packedColor(r, g, b) << kPenBits |
                                        static_cast<std::uint32_t>(pen));
        }
    });
    std::stable_sort(colorTableRecords.begin(), colorTableRecords.end(), colorBefore);
}

void VRKPrintHPGL2Generator::readColorTable(int red, int green, int blue, std::vector<int>& pens) {
    if (isComponent(red) && isComponent(green) && isComponent(blue)) {
        const std::uint32_t key = packedColor(red, green, blue);
        const auto [first, last] = std::equal_range(
            colorTableRecords.begin(), colorTableRecords.end(), key << kPenBits, colorBefore);
        for (auto record = first; record != last; ++record) {
            pens.push_back(static_cast<int>(*record & ((1u << kPenBits) - 1)));
        }
        return;
    }
    // A colour outside the range of a defined colour: the file is read again for the records
    // the table above does not keep.
    tableReader.clear();
    tableReader.seekg(0);
    readColorRecords(tableReader, [&](int r, int g, int b, int pen) {
        if (pen >= 1 && pen <= 31 && r == red && g == green && b == blue) {
            pens.push_back(pen);
        }
    });
}
