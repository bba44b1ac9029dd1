#pragma once

#include "host/core/VRKInterfaceEntry.h"

// A static object of this type in a library enters an interface implementation in the class
// dictionary when the library is loaded and takes it out again when it is unloaded.
class VRKInterfaceRegistration {
  public:
    explicit VRKInterfaceRegistration(const VRKInterfaceEntry& entry);
    ~VRKInterfaceRegistration();
    VRKInterfaceRegistration(const VRKInterfaceRegistration&) = delete;
    VRKInterfaceRegistration& operator=(const VRKInterfaceRegistration&) = delete;

  private:
    std::string interfaceName_;
    std::string className_;
    std::string framework_;
};
