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

    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>& element) override {
        return impl_ ? impl_->ReadFromDOM(element) : E_FAIL;
    }
    VRKResult ReadFromXml(VRKLightXmlElement& element) override {
        return impl_ ? impl_->ReadFromXml(element) : E_FAIL;
    }
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>& element) override {
        return impl_ ? impl_->WriteToDOM(element) : E_FAIL;
    }
    VRKResult WriteToXml(VRKLightXmlElement& element) override {
        return impl_ ? impl_->WriteToXml(element) : E_FAIL;
    }

    Impl* GetImplementation() const { return impl_.get(); }

  private:
    VRKSmartRef<Impl> impl_;
};
