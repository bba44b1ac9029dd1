// No exception crosses an interface: a TIE object turns an implementation's exception into the
// interface's failure result.

#include <gtest/gtest.h>

#include <new>

#include "host/core/VRKIPrtGeneratorProperties.h"
#include "host/core/VRKTIEMarshallableCorba.h"
#include "host/xml/VRKIDOMElement.h"
#include "host/xml/VRKLightXmlElement.h"

namespace {

class ThrowingImpl : public VRKDataExtension {
  public:
    VRKResult ReadFromDOM(const VRKSmartRef<VRKIDOMElement>&) { throw std::bad_alloc(); }
    VRKResult ReadFromXml(VRKLightXmlElement&) { throw std::bad_alloc(); }
    VRKResult WriteToDOM(const VRKSmartRef<VRKIDOMElement>&) { throw std::bad_alloc(); }
    VRKResult WriteToXml(VRKLightXmlElement&) { throw std::bad_alloc(); }
    int Marshal(int, int) { throw std::bad_alloc(); }
    VRKBaseUnknown* Unmarshal(int, VRKBaseUnknown*, int) { throw std::bad_alloc(); }
};

TEST(TieBoundary, SettingsOperationsFailInsteadOfThrowing) {
    auto* impl = new ThrowingImpl;
    auto tie = VRKSmartRef<VRKIPrtGeneratorProperties>::Adopt(
        new VRKTIEIPrtGeneratorProperties<ThrowingImpl>(impl));
    impl->Release();
    VRKLightXmlElement element("kept");
    EXPECT_EQ(tie->ReadFromXml(element), E_FAIL);
    EXPECT_EQ(tie->WriteToXml(element), E_FAIL);
    EXPECT_EQ(tie->ReadFromDOM({}), E_FAIL);
    EXPECT_EQ(tie->WriteToDOM({}), E_FAIL);
    EXPECT_EQ(element.GetName().str(), "kept");
}

TEST(TieBoundary, MarshalOperationsFailInsteadOfThrowing) {
    auto* impl = new ThrowingImpl;
    auto tie =
        VRKSmartRef<VRKMarshallableCorba>::Adopt(new VRKTIEMarshallableCorba<ThrowingImpl>(impl));
    impl->Release();
    EXPECT_EQ(tie->Marshal(1, 2), 0);
    EXPECT_EQ(tie->Unmarshal(1, nullptr, 2), nullptr);
}

TEST(TieBoundary, NoImplementationFails) {
    auto tie = VRKSmartRef<VRKIPrtGeneratorProperties>::Adopt(
        new VRKTIEIPrtGeneratorProperties<ThrowingImpl>(nullptr));
    VRKLightXmlElement element;
    EXPECT_EQ(tie->ReadFromXml(element), E_FAIL);
}

}  // namespace
