#pragma once

#include "host/core/VRKMetaClass.h"

// Declares the meta-class operations of a class derived from VRKBaseUnknown.
#define VRK_DECLARE_CLASS(ClassName)                    \
  public:                                               \
    static const VRKMetaClass* MetaObject();            \
    const VRKMetaClass* GetMetaObject() const override; \
                                                        \
  private:

// Defines them; the meta class is built on first use, with its base's meta class as parent.
#define VRK_DEFINE_CLASS(ClassName, BaseName, Extension, Framework)                               \
    const VRKMetaClass* ClassName::MetaObject() {                                                 \
        static const VRKMetaClass meta(#ClassName, BaseName::MetaObject(), Extension, Framework); \
        return &meta;                                                                             \
    }                                                                                             \
    const VRKMetaClass* ClassName::GetMetaObject() const {                                        \
        return ClassName::MetaObject();                                                           \
    }

// Root of the host's object model: an intrusively reference-counted object with run-time class
// information. A new object starts with one reference, owned by whoever created it; Release()
// deletes the object when the last reference goes.
class VRKBaseUnknown {
  public:
    VRKBaseUnknown() = default;
    VRKBaseUnknown(const VRKBaseUnknown&) = delete;
    VRKBaseUnknown& operator=(const VRKBaseUnknown&) = delete;
    virtual ~VRKBaseUnknown();

    unsigned long AddRef();
    unsigned long Release();
    unsigned long GetRefCount() const { return refCount_; }

    static const VRKMetaClass* MetaObject();
    virtual const VRKMetaClass* GetMetaObject() const;

    // The class name of the object's most derived class.
    const char* IsA() const;
    // True when the object's class is, or derives from, the named class.
    bool IsAKindOf(const char* className) const;

  private:
    unsigned long refCount_ = 1;
};
