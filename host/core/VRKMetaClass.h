#pragma once

#include <string>

// Run-time description of a class of the object model: its name, its base class and the two
// registration strings (extension kind and framework) it was declared with. A meta class is a
// function-local static of its class, so it comes into being on first use.
class VRKMetaClass {
  public:
    VRKMetaClass(const char* className, const VRKMetaClass* base, const char* extension = "VRKNull",
                 const char* framework = "Print");

    const char* GetClassName() const { return className_.c_str(); }
    const VRKMetaClass* GetBase() const { return base_; }
    const char* GetExtension() const { return extension_.c_str(); }
    const char* GetFramework() const { return framework_.c_str(); }

    // True when this class or one of its bases carries the given name.
    bool IsAKindOf(const char* className) const;

  private:
    std::string className_;
    const VRKMetaClass* base_;
    std::string extension_;
    std::string framework_;
};
