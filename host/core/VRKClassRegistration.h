#pragma once

#include "host/core/VRKClassEntry.h"

// A static object of this type in a library enters a class in the class dictionary when the
// library is loaded and takes it out again when the library is unloaded.
class VRKClassRegistration {
  public:
    explicit VRKClassRegistration(const VRKClassEntry& entry);
    ~VRKClassRegistration();
    VRKClassRegistration(const VRKClassRegistration&) = delete;
    VRKClassRegistration& operator=(const VRKClassRegistration&) = delete;

  private:
    std::string className_;
    std::string framework_;
};
