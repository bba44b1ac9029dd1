// Pen and colour tables of the HP-GL dialect: the pen table from the settings or from a "PenTable"
// file, and the optional "ColorTable" file that maps colours to pens.

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
    if (!VRKEnvironment::IsDefined("HPGL2_COLOR_TABLE")) {
        return;
    }
    const std::string path = tableFilePath("ColorTable");
    tableReader.open(path);
    if (tableReader.is_open()) {
        tableReader.imbue(std::locale::classic());
        std::cout << "ColorTable file for HPGL generation = " << path << std::endl;
    }
}

void VRKPrintHPGL2Generator::readColorTable(int red, int green, int blue, std::vector<int>& pens) {
    tableReader.clear();
    tableReader.seekg(0);
    // One record per line: red, green and blue (0-255), one separator character read as it is,
    // then the pen. The separator is the character right after the blue value, so "255 0 0:3" and
    // "255 0 0 3" both name pen 3, while in "255 0 0 : 3" the blank is the separator and the colon
    // ends the reading.
    int r, g, b, pen;
    char separator;
    while (tableReader >> r >> g >> b && tableReader.get(separator) && tableReader >> pen) {
        if (pen >= 1 && pen <= 31 && r == red && g == green && b == blue) {
            pens.push_back(pen);
        }
    }
}
