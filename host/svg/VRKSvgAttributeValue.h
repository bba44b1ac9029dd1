#pragma once

#include <string>
#include <string_view>

// An attribute's value as the XML parser hands it over when entities are not substituted: the
// parser has already replaced character references and the predefined entities, except that an
// ampersand stays written "&#38;". Decode gives the value itself; a reference to an entity that
// is not declared is left out.
class VRKSvgAttributeValue {
  public:
    static std::string Decode(std::string_view raw);
};
