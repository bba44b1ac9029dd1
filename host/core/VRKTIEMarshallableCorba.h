#pragma once

#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKSmartRef.h"

// The TIE object of VRKMarshallableCorba over an implementation extension with the same Marshal
// and Unmarshal operations; SetData binds the implementation with SetImpl. The TIE holds a
// reference to the implementation. Without one, Marshal returns 0 and Unmarshal null; so do they
// when the implementation throws (memory running out), for no exception crosses an interface.
template <typename Impl>
class VRKTIEMarshallableCorba final : public VRKMarshallableCorba {
  public:
    explicit VRKTIEMarshallableCorba(Impl* implementation) : impl_(implementation) {}

    int Marshal(int bufferId, int creationFlag) noexcept override {
        try {
            return impl_ ? impl_->Marshal(bufferId, creationFlag) : 0;
        } catch (...) {
            return 0;
        }
    }
    VRKBaseUnknown* Unmarshal(int bufferId, VRKBaseUnknown* record,
                              int creationFlag) noexcept override {
        try {
            return impl_ ? impl_->Unmarshal(bufferId, record, creationFlag) : nullptr;
        } catch (...) {
            return nullptr;
        }
    }
    void SetData(VRKBaseUnknown* record) override {
        if (impl_) {
            impl_->SetImpl(record);
        }
    }

    Impl* GetImplementation() const { return impl_.get(); }

  private:
    VRKSmartRef<Impl> impl_;
};
