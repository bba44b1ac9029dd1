// Interfaces through the class dictionary: implementations registered for a class, found for an
// object of that class or of a derived one, wrapped in their TIE objects.

#include <gtest/gtest.h>

#include <new>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKDataExtension.h"
#include "host/core/VRKInterfaceRegistration.h"

namespace {

class Shape : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(Shape)
};
VRK_DEFINE_CLASS(Shape, VRKBaseUnknown, "VRKNull", "Test")

class Square : public Shape {
    VRK_DECLARE_CLASS(Square)
};
VRK_DEFINE_CLASS(Square, Shape, "VRKNull", "Test")

// A host interface of the tests.
class IArea : public VRKBaseUnknown {
  public:
    static constexpr const char* kInterfaceName = "IArea";
    virtual VRKBaseUnknown* Subject() = 0;
};

class ShapeArea : public VRKDataExtension {
    VRK_DECLARE_CLASS(ShapeArea)
};
VRK_DEFINE_CLASS(ShapeArea, VRKDataExtension, "Shape", "Test")

class TieArea final : public IArea {
  public:
    explicit TieArea(ShapeArea* impl) : impl_(impl) {}
    VRKBaseUnknown* Subject() override { return impl_->GetImpl(0); }

  private:
    VRKSmartRef<ShapeArea> impl_;
};

VRKBaseUnknown* createTie(VRKDataExtension* implementation) {
    auto* impl = dynamic_cast<ShapeArea*>(implementation);
    return impl != nullptr ? new (std::nothrow) TieArea(impl) : nullptr;
}

VRKInterfaceEntry areaOfShapes() {
    return {.interfaceName = "IArea",
            .className = "Shape",
            .implementationName = "ShapeArea",
            .framework = "Print",
            .createImplementation = []() -> VRKDataExtension* { return new ShapeArea; },
            .createTie = createTie};
}

TEST(InterfaceLookup, AnObjectOfTheClassOrADerivedClassHasTheInterface) {
    const VRKInterfaceRegistration registration(areaOfShapes());
    VRKSmartRef<Square> square = VRKSmartRef<Square>::Adopt(new Square);
    {
        VRKSmartRef<IArea> area = VRKQueryInterface<IArea>(square.get());
        ASSERT_TRUE(area);
        EXPECT_EQ(area->GetRefCount(), 1u);
        EXPECT_EQ(area->Subject(), square.get());
        // The interface holds the object.
        EXPECT_EQ(square->GetRefCount(), 2u);
    }
    EXPECT_EQ(square->GetRefCount(), 1u);

    const VRKInterfaceEntry* entry =
        VRKClassDictionary::Instance().FindInterface("Shape", "IArea", "Print");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->implementationName, "ShapeArea");
    // Only the class it was registered for is named: Square has it by inheritance.
    EXPECT_EQ(VRKClassDictionary::Instance().FindInterface("Square", "IArea", "Print"), nullptr);
}

TEST(InterfaceLookup, TheInterfaceOfAClassIsBoundToNothing) {
    const VRKInterfaceRegistration registration(areaOfShapes());
    VRKSmartRef<IArea> area = VRKGetClassInterface<IArea>("Shape");
    ASSERT_TRUE(area);
    EXPECT_EQ(area->Subject(), nullptr);
    EXPECT_FALSE(VRKGetClassInterface<IArea>("Square"));
}

TEST(InterfaceLookup, NoImplementationNoInterface) {
    VRKSmartRef<Square> square = VRKSmartRef<Square>::Adopt(new Square);
    EXPECT_FALSE(VRKQueryInterface<IArea>(square.get()));
    EXPECT_FALSE(VRKQueryInterface<IArea>(nullptr));
    {
        const VRKInterfaceRegistration registration(areaOfShapes());
        EXPECT_TRUE(VRKQueryInterface<IArea>(square.get()));
    }
    // Unloading the library that registered it takes the implementation away.
    EXPECT_FALSE(VRKQueryInterface<IArea>(square.get()));
    EXPECT_EQ(square->GetRefCount(), 1u);
}

TEST(InterfaceLookup, AFactoryThatFailsGivesNoInterface) {
    VRKInterfaceEntry entry = areaOfShapes();
    entry.createTie = [](VRKDataExtension*) -> VRKBaseUnknown* { return nullptr; };
    const VRKInterfaceRegistration registration(entry);
    VRKSmartRef<Square> square = VRKSmartRef<Square>::Adopt(new Square);
    EXPECT_FALSE(VRKQueryInterface<IArea>(square.get()));
    // The implementation made for the failed TIE is gone again, with its reference.
    EXPECT_EQ(square->GetRefCount(), 1u);
}

TEST(DataExtension, HoldsTheObjectItExtends) {
    VRKSmartRef<Square> square = VRKSmartRef<Square>::Adopt(new Square);
    auto* extension = new ShapeArea;
    EXPECT_EQ(extension->GetImpl(0), nullptr);
    extension->SetImpl(square.get());
    EXPECT_EQ(extension->GetImpl(0), square.get());
    EXPECT_EQ(extension->GetImpl(1), nullptr);
    EXPECT_EQ(square->GetRefCount(), 2u);
    EXPECT_STREQ(extension->GetMetaObject()->GetExtension(), "Shape");
    extension->Release();
    EXPECT_EQ(square->GetRefCount(), 1u);
}

}  // namespace
