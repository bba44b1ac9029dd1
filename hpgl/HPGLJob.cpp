// Job start and end of the HP-GL dialect, where the pen table and the colour table are set up.

#include <iostream>
#include <locale>
#include <string>

#include "generator/HPGL2Writer.h"
#include "host/core/VRKEnvironment.h"
#include "host/core/VRKPlotterRange.h"
#include "host/core/VRKPrintParameters.h"
#include "host/core/VRKSaturatingTrunc.h"
#include "hpgl/HPGLDialect.h"
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

void HPGLDialect::JobStart(VRKPrintStream& s, const VRKPrintParameters& params,
                           const VRKPrintHPGLProperties& settings) {
    const VRKPrintForm& form = params.GetForm();
    const int w = VRKSaturatingTrunc<int>(form.GetWidth() * 40.0);
    const int h = VRKSaturatingTrunc<int>(form.GetHeight() * 40.0);

    // The plotter's origin sits at the lower left corner of the hard-clip area; the setting puts
    // the drawing's origin at a corner or the centre of the form instead.
    originX = 0;
    originY = 0;
    const bool landscape = form.GetOrientation() == 0;
    const bool portrait = form.GetOrientation() == 1;
    if (landscape || portrait) {
        // In orientation 0 the form lies turned: its height runs along the plotter's x axis.
        const int along = landscape ? h : w;
        const int across = landscape ? w : h;
        // The negation of the int's smallest is held at its largest.
        const auto negated = [](int v) { return VRKSaturatingTrunc<int>(-static_cast<double>(v)); };
        switch (settings.GetOrigin()) {
            case 0:
                originX = -(along / 2);
                originY = -(across / 2);
                break;
            case 2:
                originY = negated(across);
                break;
            case 3:
                originX = negated(along);
                break;
            case 4:
                originX = negated(along);
                originY = negated(across);
                break;
            default:
                break;
        }
    }
    HPGL2Writer::PenUp(s, originX, originY);

    relativeMoves = settings.GetRelativeMovePen();
    if (relativeMoves != 0) {
        HPGL2Writer::PlotRelative(s);
    } else {
        HPGL2Writer::PlotAbsolute(s);
    }
    HPGL2Writer::End(s);
    printThickness = settings.GetPrintThickness();
    HPGL2Writer::SelectPen(s, VRKEnvironment::IsDefined("HPGL_WITH_SP0") ? 0 : 1);
    HPGL2Writer::End(s);

    buildPenTable(settings);
    strokeCount = 1;
    strokeSpacing = 0.0f;
    currentPen = 0;
    openColorTable();
}

void HPGLDialect::JobEnd(VRKPrintStream& s) {
    HPGL2Writer::PenUp(s);
    HPGL2Writer::End(s);
    HPGL2Writer::PlotAbsolute(s);
    HPGL2Writer::End(s);
    HPGL2Writer::SelectPen(s, 0);
    HPGL2Writer::End(s);
    HPGL2Writer::AdvancePage(s);
    HPGL2Writer::End(s);
    hasPens = false;
    colorTable.Close();
}

void HPGLDialect::buildPenTable(const VRKPrintHPGLProperties& settings) {
    hasPens = false;
    if (!VRKEnvironment::IsDefined("HPGL2_PEN_TABLE")) {
        // The settings' pens; the slots past their count are cleared, as a colour table may
        // still name those pens.
        pens = settings.GetPenTable();
        for (int slot = pens.UsedSlots(); slot < VRKPenTable::kSlots; ++slot) {
            *pens.At(slot) = VRKPen();
        }
        hasPens = true;
        return;
    }
    const std::string path = tableFilePath("PenTable");
    std::ifstream file(path);
    if (!file.is_open()) {
        return;
    }
    file.imbue(std::locale::classic());
    std::cout << "PenTable file for HPGL generation = " << path << std::endl;
    // Every pen 0.35 mm and enabled, black until the file says otherwise.
    pens = VRKPenTable();
    for (VRKPen& pen : pens.Slots()) {
        pen.width = 0.35f;
        pen.enable = 1;
    }
    hasPens = true;
    // One record per line: pen number, red, green, blue (0-255) and thickness in millimetres.
    // The stream is tested after the record is stored, so the read that fails at the end of the
    // file stores the values it left behind once more (the last record again, as extraction
    // leaves a variable alone when there is nothing to read).
    int number = 0, red = 0, green = 0, blue = 0;
    float thickness = 0.0f;
    while (file.good()) {
        file >> number >> red >> green >> blue >> thickness;
        std::cout << "numpen = " << number << '\n'
                  << "  red   = " << red << '\n'
                  << "  green = " << green << '\n'
                  << "  blue  = " << blue << '\n'
                  << "  thickness = " << thickness << std::endl;
        // A record for a pen the table has no slot for is ignored.
        if (VRKPen* pen = pens.At(number)) {
            pen->red = static_cast<float>(red);
            pen->green = static_cast<float>(green);
            pen->blue = static_cast<float>(blue);
            // A thickness beyond the plotter's range is not taken: the pen keeps the one it had.
            if (VRKPlotterRange::FitsMillimetres(thickness)) {
                pen->width = thickness;
            }
        }
    }
}

void HPGLDialect::openColorTable() {
    colorTable.Close();
    if (!VRKEnvironment::IsDefined("HPGL2_COLOR_TABLE")) {
        return;
    }
    const std::string path = tableFilePath("ColorTable");
    if (colorTable.Open(path)) {
        std::cout << "ColorTable file for HPGL generation = " << path << std::endl;
    }
}
