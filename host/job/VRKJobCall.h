#pragma once

#include <string>

#include "host/job/VRKJobArguments.h"

class VRKPrintGenerator;
struct VRKJobVerb;

// What the call of a line is given: its verb, the generator, the line's arguments and the folder
// bitmap paths are taken from. A call that fails before it reaches the generator (a bitmap that
// cannot be read) sets `error`, which the player reports at the line.
struct VRKJobCall {
    const VRKJobVerb& verb;
    VRKPrintGenerator& generator;
    const VRKJobArguments& arguments;
    const std::string& baseFolder;
    std::string& error;
};
