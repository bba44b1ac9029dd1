#pragma once

#include <map>
#include <optional>
#include <string>

#include "host/xml/VRKLightXmlElement.h"
#include "tools/vrkplot-cups/CupsPageSize.h"

// What the spooler asks of one job, gathered from the filter's arguments and the printer's PPD
// file: the printer language, the marked choices of the PPD's options, the job's own options
// (those that are not PPD options: orientation, scaling), the page size, the copies and the
// title.
struct CupsJobRequest {
    // The printer language, the PPD's *VRKLanguage ("HPGL2", "HPGL", "HP1000GL2", "HP4000GL2").
    std::string language;
    // Option keyword -> marked choice ("MediaType" -> "Vellum").
    std::map<std::string, std::string> choices;
    // Job option name -> value, as the spooler passes them ("orientation-requested" -> "4").
    std::map<std::string, std::string> options;
    std::optional<CupsPageSize> pageSize;
    int copies = 1;
    std::string title;
    // The pens a fresh generator of the language has (its `pens` element): the pen plotter's
    // standard pen table. Needed only for VRKPenTable=Standard.
    std::optional<VRKLightXmlElement> standardPens;
};
