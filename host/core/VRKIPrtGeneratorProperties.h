#pragma once

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKDataExtension.h"
#include "host/core/VRKResult.h"
#include "host/core/VRKSmartRef.h"

class VRKIDOMElement;
class VRKLightXmlElement;

// The print framework's access to a generator's settings, whatever the generator: its property
// record read from and written to an XML element, in the DOM or the light model. Every operation
// returns S_OK or E_FAIL. The slot order of the four operations is part of the interface.
class VRKIPrtGeneratorProperties : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKIPrtGeneratorProperties)

  public:
    static constexpr const char* kInterfaceName = "VRKIPrtGeneratorProperties";

    virtual VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) = 0;
    virtual VRKResult ReadFromXml(VRKLightXmlElement& element) = 0;
    virtual VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) = 0;
    virtual VRKResult WriteToXml(VRKLightXmlElement& element) = 0;
};

// The TIE object of the interface over an implementation class that has the same four operations:
// each call is handed to the implementation and its result returned unchanged. The TIE holds a
// reference to the implementation.
template <typename Impl>
class VRKTIEIPrtGeneratorProperties final : public VRKIPrtGeneratorProperties {
  public:
    explicit VRKTIEIPrtGeneratorProperties(Impl* implementation) : impl_(implementation) {}

    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) noexcept override {
        return forward([&] { return impl_->ReadFromDOM(element); });
    }
    VRKResult ReadFromXml(VRKLightXmlElement& element) noexcept override {
        return forward([&] { return impl_->ReadFromXml(element); });
    }
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) noexcept override {
        return forward([&] { return impl_->WriteToDOM(element); });
    }
    VRKResult WriteToXml(VRKLightXmlElement& element) noexcept override {
        return forward([&] { return impl_->WriteToXml(element); });
    }

    Impl* GetImplementation() const { return impl_.get(); }

  private:
    // The implementation's result; E_FAIL without an implementation or when it throws (memory
    // running out), for no exception crosses an interface.
    template <typename Call>
    VRKResult forward(Call call) noexcept {
        if (!impl_) {
            return E_FAIL;
        }
        try {
            return call();
        } catch (...) {
            return E_FAIL;
        }
    }

    VRKSmartRef<Impl> impl_;
};
