// The host's marshal buffers and the object protocol over them.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "support/MarshalBytes.h"
#include "support/ScopedMarshalBuffer.h"
#include "support/TempFolder.h"

namespace {

class Thing : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(Thing)
};
VRK_DEFINE_CLASS(Thing, VRKBaseUnknown, "VRKNull", "Test")

using Bytes = std::vector<unsigned char>;

TEST(MarshalBuffer, ValuesAreFourBytesLittleEndianInCallOrder) {
    ScopedMarshalBuffer buffer;
    EXPECT_EQ(ExportMarshalBuffer(buffer.Id(), 0x01020304, 4), 0);
    EXPECT_EQ(ExportMarshalBuffer(buffer.Id(), -2, 4), 0);
    EXPECT_EQ(ExportMarshalBuffer(buffer.Id(), 1.0f, 4), 0);
    EXPECT_EQ(buffer.Bytes(),
              (Bytes{0x04, 0x03, 0x02, 0x01, 0xFE, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x80, 0x3F}));

    int i = 0;
    float f = 0;
    EXPECT_EQ(ImportMarshalBuffer(buffer.Id(), &i, 4), 0);
    EXPECT_EQ(i, 0x01020304);
    EXPECT_EQ(ImportMarshalBuffer(buffer.Id(), &i, 4), 0);
    EXPECT_EQ(i, -2);
    EXPECT_EQ(ImportMarshalBuffer(buffer.Id(), &f, 4), 0);
    EXPECT_EQ(f, 1.0f);
}

TEST(MarshalBuffer, ImportPastTheEndFailsAndKeepsTheValue) {
    ScopedMarshalBuffer buffer;
    buffer.Set({1, 0, 0});
    int i = 77;
    float f = 2.5f;
    EXPECT_NE(ImportMarshalBuffer(buffer.Id(), &i, 4), 0);
    EXPECT_NE(ImportMarshalBuffer(buffer.Id(), &f, 4), 0);
    EXPECT_EQ(i, 77);
    EXPECT_EQ(f, 2.5f);
}

TEST(MarshalBuffer, LengthOtherThanFourAndUnknownBuffersFail) {
    ScopedMarshalBuffer buffer;
    EXPECT_NE(ExportMarshalBuffer(buffer.Id(), 1, 2), 0);
    EXPECT_NE(ExportMarshalBuffer(buffer.Id(), 1.0f, 8), 0);
    EXPECT_TRUE(buffer.Bytes().empty());
    ExportMarshalBuffer(buffer.Id(), 9, 4);
    int i = 5;
    EXPECT_NE(ImportMarshalBuffer(buffer.Id(), &i, 1), 0);
    EXPECT_EQ(i, 5);
    EXPECT_NE(ImportMarshalBuffer(buffer.Id(), static_cast<int*>(nullptr), 4), 0);

    const int unknown = -12345;
    EXPECT_NE(ExportMarshalBuffer(unknown, 1, 4), 0);
    EXPECT_NE(ImportMarshalBuffer(unknown, &i, 4), 0);
    EXPECT_NE(VRKFreeMarshalBuffer(unknown), 0);
    EXPECT_TRUE(VRKGetMarshalBufferBytes(unknown).empty());
}

TEST(MarshalBuffer, EachIdentifierHasItsOwnBuffer) {
    ScopedMarshalBuffer a;
    ScopedMarshalBuffer b;
    EXPECT_NE(a.Id(), 0);
    EXPECT_NE(a.Id(), b.Id());
    ExportMarshalBuffer(a.Id(), 1, 4);
    ExportMarshalBuffer(b.Id(), 2, 4);
    ExportMarshalBuffer(a.Id(), 3, 4);
    EXPECT_EQ(MarshalBytes::Words(a.Bytes()), (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(MarshalBytes::Words(b.Bytes()), (std::vector<std::int32_t>{2}));
}

TEST(MarshalBuffer, SavedToAFileAndLoadedBack) {
    TempFolder folder("marshal");
    ScopedMarshalBuffer written;
    ExportMarshalBuffer(written.Id(), 42, 4);
    ExportMarshalBuffer(written.Id(), 0.5f, 4);
    const std::string path = folder.File("buffer.bin");
    ASSERT_EQ(VRKSaveMarshalBuffer(written.Id(), path.c_str()), 0);
    EXPECT_EQ(ReadFileBytes(path), std::string("\x2A\0\0\0\0\0\0\x3F", 8));

    ScopedMarshalBuffer loaded;
    ASSERT_EQ(VRKLoadMarshalBuffer(loaded.Id(), path.c_str()), 0);
    EXPECT_EQ(loaded.Bytes(), written.Bytes());
    int i = 0;
    float f = 0;
    ImportMarshalBuffer(loaded.Id(), &i, 4);
    ImportMarshalBuffer(loaded.Id(), &f, 4);
    EXPECT_EQ(i, 42);
    EXPECT_EQ(f, 0.5f);
}

TEST(MarshalBuffer, FailedFileOperationsLeaveTheBuffer) {
    TempFolder folder("marshal");
    ScopedMarshalBuffer buffer;
    ExportMarshalBuffer(buffer.Id(), 7, 4);
    EXPECT_NE(VRKLoadMarshalBuffer(buffer.Id(), folder.File("missing.bin").c_str()), 0);
    EXPECT_NE(VRKSaveMarshalBuffer(buffer.Id(), folder.File("no/such/dir.bin").c_str()), 0);
    EXPECT_NE(VRKSaveMarshalBuffer(buffer.Id(), nullptr), 0);
    EXPECT_EQ(MarshalBytes::Words(buffer.Bytes()), (std::vector<std::int32_t>{7}));
}

TEST(MarshalIdent, AggregatesAndBaseClassesWriteNothing) {
    ScopedMarshalBuffer buffer;
    Thing* thing = new Thing;
    const int a = VRKMakeMarshalIdent(buffer.Id(), kVRKCreateAggregate, "Thing", thing);
    const int b = VRKMakeMarshalIdent(buffer.Id(), kVRKCreateBaseClass, "Thing", thing);
    EXPECT_NE(a, 0);
    EXPECT_NE(b, 0);
    EXPECT_NE(a, b);
    EXPECT_TRUE(buffer.Bytes().empty());
    EXPECT_EQ(thing->GetRefCount(), 1u);
    thing->Release();
}

TEST(MarshalIdent, AnObjectIsWrittenOnceThenReferenced) {
    ScopedMarshalBuffer buffer;
    Thing* thing = new Thing;
    const int ident = VRKMakeMarshalIdent(buffer.Id(), kVRKCreateObject, "Thing", thing);
    EXPECT_NE(ident, 0);
    EXPECT_EQ(VRKMakeMarshalEnd("Thing", thing, buffer.Id()), 0);
    EXPECT_EQ(VRKMakeMarshalIdent(buffer.Id(), kVRKCreateObject, "Thing", thing), 0);
    EXPECT_EQ(buffer.Bytes(), MarshalBytes()
                                  .Object("Thing", ident)
                                  .End()
                                  .Int(kVRKMarshalReferenceTag)
                                  .Int(ident)
                                  .Bytes());
    // The buffer holds the object while it refers to it.
    EXPECT_EQ(thing->GetRefCount(), 2u);
    thing->Release();
}

TEST(MarshalIdent, UnknownBufferGivesZero) {
    EXPECT_EQ(VRKMakeMarshalIdent(-7, kVRKCreateAggregate, "Thing", nullptr), 0);
    EXPECT_EQ(VRKMakeMarshalIdent(-7, kVRKCreateObject, "Thing", nullptr), 0);
    EXPECT_NE(VRKMakeMarshalEnd("Thing", nullptr, -7), 0);
}

TEST(MarshalAggregate, WritesTheClassNameOrAnEmptyOne) {
    ScopedMarshalBuffer buffer;
    Thing* thing = new Thing;
    EXPECT_EQ(VRKMarshalAggregate(buffer.Id(), thing, nullptr), 0);
    EXPECT_EQ(VRKMarshalAggregate(buffer.Id(), nullptr, nullptr), 0);
    EXPECT_EQ(VRKMarshalBaseClass(buffer.Id(), "Base"), 0);
    EXPECT_EQ(buffer.Bytes(), MarshalBytes().Name("Thing").Name("").Name("Base").Bytes());
    // SetData knows only the three marshalling interfaces.
    EXPECT_NE(SetData(thing, thing), 0);
    thing->Release();
}

TEST(UnmarshalClassName, NewArrayForTheCallerEmptyNameIsNull) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes().Name("VRKPrintHPGLProperties").Name("").Int(30).Bytes());
    char* name = nullptr;
    int length = -1;
    ASSERT_EQ(VRKUnmarshalGetClassName(buffer.Id(), &name, &length), 0);
    ASSERT_NE(name, nullptr);
    EXPECT_STREQ(name, "VRKPrintHPGLProperties");
    EXPECT_EQ(length, 22);
    delete[] name;

    ASSERT_EQ(VRKUnmarshalGetClassName(buffer.Id(), &name, &length), 0);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(length, 0);

    // A length of 30 with nothing after it: truncated, and nothing is consumed.
    EXPECT_NE(VRKUnmarshalGetClassName(buffer.Id(), &name, &length), 0);
    EXPECT_EQ(name, nullptr);
    int value = 0;
    EXPECT_EQ(ImportMarshalBuffer(buffer.Id(), &value, 4), 0);
    EXPECT_EQ(value, 30);
    EXPECT_NE(VRKUnmarshalGetClassName(buffer.Id(), &name, &length), 0);
}

TEST(UnmarshalEnd, MissingMarkerFailsAndIsLogged) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes().Int(5).End().Bytes());
    EXPECT_NE(VRKMakeUnmarshalEnd(buffer.Id()), 0);
    int value = 0;
    ImportMarshalBuffer(buffer.Id(), &value, 4);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(VRKMakeUnmarshalEnd(buffer.Id()), 0);
    EXPECT_NE(VRKMakeUnmarshalEnd(buffer.Id()), 0);
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[0].context, "end");
    EXPECT_EQ(errors[0].message, "End marker missing");
    EXPECT_EQ(errors[0].bufferId, buffer.Id());
}

TEST(CreateBegin, ReadsTheHeaderOfAnObjectOnly) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes().Object("Thing", 9).Bytes());
    int handle = 0;
    EXPECT_EQ(VRKCreateBegin(buffer.Id(), kVRKCreateAggregate, nullptr, "Thing", &handle), nullptr);
    EXPECT_NE(handle, 0);
    EXPECT_NE(CreateUnmarshalIdent(handle, nullptr), 0);
    EXPECT_EQ(VRKCreateBegin(buffer.Id(), kVRKCreateObject, nullptr, "Thing", &handle), nullptr);
    EXPECT_NE(handle, 0);
    Thing* thing = new Thing;
    EXPECT_EQ(CreateUnmarshalIdent(handle, thing), 0);
    EXPECT_TRUE(VRKGetUnmarshalErrors().empty());

    // A back reference to ident 9 now gives the same object, with a reference for the caller.
    buffer.Set(MarshalBytes().Object("Thing", 9).Int(kVRKMarshalReferenceTag).Int(9).Bytes());
    ASSERT_EQ(VRKCreateBegin(buffer.Id(), kVRKCreateObject, nullptr, "Thing", &handle), nullptr);
    ASSERT_EQ(CreateUnmarshalIdent(handle, thing), 0);
    EXPECT_EQ(VRKCreateBegin(buffer.Id(), kVRKCreateObject, nullptr, "Thing", &handle), thing);
    EXPECT_EQ(thing->GetRefCount(), 3u);  // ours, the buffer's, the back reference's
    thing->Release();
    thing->Release();
}

TEST(CreateBegin, MissingHeaderAndUnknownReferenceAreLogged) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes().Int(kVRKMarshalReferenceTag).Int(4).Int(1).Bytes());
    int handle = 5;
    EXPECT_EQ(VRKCreateBegin(buffer.Id(), kVRKCreateObject, nullptr, "Thing", &handle), nullptr);
    EXPECT_EQ(handle, 0);
    EXPECT_EQ(VRKCreateBegin(buffer.Id(), kVRKCreateObject, nullptr, "Thing", &handle), nullptr);
    EXPECT_EQ(VRKCreateBegin(buffer.Id(), kVRKCreateObject, nullptr, "Thing", &handle), nullptr);
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 3u);
    EXPECT_EQ(errors[0].message, "Back reference to an unknown object");
    EXPECT_EQ(errors[1].message, "Object header missing");
    EXPECT_EQ(errors[2].message, "Object header missing");
    EXPECT_EQ(errors[2].context, "object");
    EXPECT_EQ(errors[2].className, "Thing");
}

TEST(UnmarshalErrorLog, KeepsEntriesUntilCleared) {
    VRKClearUnmarshalErrors();
    VRKSysMshLogUnmarshalError("aggregate", "Owner", 3, nullptr, nullptr);
    VRKSysMshLogUnmarshalError("base_class", "Derived", 4, "text", "Base");
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[0].context, "aggregate");
    EXPECT_EQ(errors[0].className, "Owner");
    EXPECT_EQ(errors[0].bufferId, 3);
    EXPECT_EQ(errors[0].message, "");
    EXPECT_EQ(errors[0].name, "");
    EXPECT_EQ(errors[1].message, "text");
    EXPECT_EQ(errors[1].name, "Base");
    VRKClearUnmarshalErrors();
    EXPECT_TRUE(VRKGetUnmarshalErrors().empty());
}

TEST(UnmarshalObject, UnknownClassIsLoggedAndGivesNull) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes().Object("Thing", 1).End().Bytes());
    EXPECT_EQ(VRKUnmarshalObject(buffer.Id()), nullptr);
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].context, "object");
    EXPECT_EQ(errors[0].message, "Unmarshalling interface not found");
    EXPECT_EQ(errors[0].name, "Thing");

    Thing* thing = new Thing;
    EXPECT_NE(VRKMarshalObject(buffer.Id(), thing), 0);
    EXPECT_NE(VRKMarshalObject(buffer.Id(), nullptr), 0);
    thing->Release();
}

}  // namespace
