#pragma once

#include <string>

// The universal exit language sequence that opens and closes every PJL job.
inline const std::string kUel = "\x1b%-12345X";

// The PJL header the HP1000GL2 language writes with the PPD's defaults but for the roll: the job
// named after `title`, printed from `mediaSource` ("ROLL1"), up to the line that enters HP-GL/2.
inline std::string DesignJet1000Header(const std::string& title, const std::string& mediaSource) {
    return kUel + "@PJL JOB NAME=\"VORAN:" + title +
           "\"\n"
           "@PJL COMMENT VORAN HP-GL/2 Driver for HPDesignet 1000 Series\n"
           "@PJL SET MIRROR=OFF\n"
           "@PJL SET RESOLUTION=600\n"
           "@PJL SET RENDERMODE=COLOR\n"
           "@PJL SET PALETTESOURCE=SOFTWARE\n"
           "@PJL SET RET=ON\n"
           "@PJL SET PRINTAREA=INKEDAREA\n"
           "@PJL SET MEDIASOURCE=" +
           mediaSource +
           "\n"
           "@PJL ENTER LANGUAGE=HPGL2\n";
}
