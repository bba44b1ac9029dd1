#include "host/core/VRKMetaClass.h"

#include <cstring>

VRKMetaClass::VRKMetaClass(const char* className, const VRKMetaClass* base, const char* extension,
                           const char* framework)
    : className_(className), base_(base), extension_(extension), framework_(framework) {}

bool VRKMetaClass::IsAKindOf(const char* className) const {
    if (className == nullptr) {
        return false;
    }
    for (const VRKMetaClass* meta = this; meta != nullptr; meta = meta->base_) {
        if (std::strcmp(meta->className_.c_str(), className) == 0) {
            return true;
        }
    }
    return false;
}
