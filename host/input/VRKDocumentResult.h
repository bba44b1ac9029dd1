#pragma once

#include <optional>
#include <string>
#include <vector>

// What playing a document said: the error that stopped it (empty after a success), what could
// not be drawn as the document asks (one line each, "plan.svg:12: ..."), and the pen's travel
// when it was measured.
struct VRKDocumentResult {
    std::string error;
    std::vector<std::string> warnings;

    struct Travel {
        double penDown = 0.0;  // millimetres
        double penUp = 0.0;    // millimetres
        int penChanges = 0;
    };
    // As the document draws it, and as it is plotted (the same without ordering).
    std::optional<Travel> before;
    std::optional<Travel> after;
};
