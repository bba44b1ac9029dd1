#include "host/core/VRKDataExtension.h"

VRK_DEFINE_CLASS(VRKDataExtension, VRKBaseUnknown, "VRKNull", "System")

VRKDataExtension::~VRKDataExtension() {
    SetImpl(nullptr);
}

VRKBaseUnknown* VRKDataExtension::GetImpl(int level) const {
    return level == 0 ? extended_ : nullptr;
}

void VRKDataExtension::SetImpl(VRKBaseUnknown* object) {
    if (object != nullptr) {
        object->AddRef();
    }
    if (extended_ != nullptr) {
        extended_->Release();
    }
    extended_ = object;
}
