#pragma once

#include "host/core/VRKCreateCorba.h"
#include "host/core/VRKSmartRef.h"

// The TIE object of VRKCreateCorba over an implementation extension with the same Create
// operation; SetData binds the implementation with SetImpl. The TIE holds a reference to the
// implementation. Without one, Create returns null.
template <typename Impl>
class VRKTIECreateCorba final : public VRKCreateCorba {
  public:
    explicit VRKTIECreateCorba(Impl* implementation) : impl_(implementation) {}

    VRKBaseUnknown* Create(int bufferId, VRKBaseUnknown* record, int creationFlag,
                           int* state) override {
        return impl_ ? impl_->Create(bufferId, record, creationFlag, state) : nullptr;
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
