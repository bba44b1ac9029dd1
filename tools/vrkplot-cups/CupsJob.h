#pragma once

#include <string>

#include "host/input/VRKDocumentOptions.h"
#include "host/xml/VRKLightXmlElement.h"

// How the filter plots one job: the settings element read into the generator (after the
// queue's settings file), how drawings are laid out, how many times the plot is written, and
// the job's name.
struct CupsJob {
    VRKLightXmlElement settings;
    VRKDocumentOptions document;
    int copies = 1;
    std::string jobName;
};
