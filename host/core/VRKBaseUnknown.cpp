#include "host/core/VRKBaseUnknown.h"

VRKBaseUnknown::~VRKBaseUnknown() = default;

unsigned long VRKBaseUnknown::AddRef() {
    return ++refCount_;
}

unsigned long VRKBaseUnknown::Release() {
    const unsigned long left = --refCount_;
    if (left == 0) {
        delete this;
    }
    return left;
}

const VRKMetaClass* VRKBaseUnknown::MetaObject() {
    static const VRKMetaClass meta("VRKBaseUnknown", nullptr, "VRKNull", "System");
    return &meta;
}

const VRKMetaClass* VRKBaseUnknown::GetMetaObject() const {
    return VRKBaseUnknown::MetaObject();
}

const char* VRKBaseUnknown::IsA() const {
    return GetMetaObject()->GetClassName();
}

bool VRKBaseUnknown::IsAKindOf(const char* className) const {
    return GetMetaObject()->IsAKindOf(className);
}
