#pragma once

#include <cstddef>
#include <string_view>

#include "host/core/VRKPrintParameters.h"

class VRKJobArgumentReader;

// The key=value arguments of Begin and StartNewPage: the form's size and orientation, the page
// rotation, the colour mode, the margins and the text-as-geometry flag.
class VRKJobPageKeys {
  public:
    // Applies the keys from argument `first` to the end of the line to `page`; `given` says
    // whether there were any. False with the reader's error set.
    static bool Read(VRKJobArgumentReader& reader, std::size_t first, VRKPrintParameters& page,
                     bool& given);

  private:
    static bool Apply(VRKJobArgumentReader& reader, std::string_view key, std::string_view value,
                      VRKPrintParameters& page);
    static bool Margins(VRKJobArgumentReader& reader, std::string_view value,
                        VRKPrintParameters& page);
};
