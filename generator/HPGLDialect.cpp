// The HP-GL dialect for pen plotters: job start and end, pen-down lines.

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"

void VRKPrintHPGL2Generator::hpglJobStart(const VRKPrintParameters& /*params*/) {
    // Completed with the pen tables.
}

void VRKPrintHPGL2Generator::hpglJobEnd() {
    out().Write("PU;PA;SP0;PG;");
}

void VRKPrintHPGL2Generator::hpglLineTo(float /*x*/, float /*y*/) {
    // Completed with the pen tables.
}
