// Writes the seed corpus of the marshal fuzz target: marshal buffers of the three records as the
// driver writes them, each behind the byte that tells the target how to read it. Run by
// fuzz/seed-corpus.sh with the folder to write to.

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKSmartRef.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

// The target's first byte: below 128 whole objects; 128 + class + 3 * flag + 9 * over-existing
// reads with one record's marshaller (classes in the order HP-GL, HP-GL/2, DesignJet 1000).
constexpr unsigned char kWholeObjects = 0;
unsigned char Direct(int recordClass, int creationFlag, bool overExisting = false) {
    return static_cast<unsigned char>(128 + recordClass + 3 * creationFlag +
                                      (overExisting ? 9 : 0));
}

bool Save(const std::string& path, unsigned char mode, int buffer) {
    std::vector<unsigned char> bytes = VRKGetMarshalBufferBytes(buffer);
    bytes.insert(bytes.begin(), mode);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out);
}

// Marshals the objects into a new buffer and saves it under each mode given.
bool Write(const std::string& folder, const std::string& name,
           const std::vector<VRKBaseUnknown*>& objects, const std::vector<unsigned char>& modes) {
    const int buffer = VRKCreateMarshalBuffer();
    bool ok = buffer != 0;
    for (VRKBaseUnknown* object : objects) {
        ok = ok && VRKMarshalObject(buffer, object) == 0;
    }
    for (std::size_t i = 0; i < modes.size(); ++i) {
        ok = ok && Save(folder + "/" + name + "-" + std::to_string(i), modes[i], buffer);
    }
    VRKFreeMarshalBuffer(buffer);
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    auto hpgl = VRKSmartRef<VRKPrintHPGLProperties>::Adopt(new VRKPrintHPGLProperties);
    auto hpgl2 = VRKSmartRef<VRKPrintHPGL2Properties>::Adopt(new VRKPrintHPGL2Properties);
    auto designJet = VRKSmartRef<VRKPrintHP1055CProperties>::Adopt(new VRKPrintHP1055CProperties);
    auto changed = VRKSmartRef<VRKPrintHP1055CProperties>::Adopt(new VRKPrintHP1055CProperties);
    changed->SetQuality(10);
    changed->SetMultiRollFeeder(1);
    changed->SetScale(0.25f);
    changed->GetHPGLProperties()->SetOrigin(4);
    const float red[3] = {0, 255, 10}, green[3] = {0, 0, 20}, blue[3] = {0, 0, 30};
    const float width[3] = {0.35f, 0.7f, 0.1f};
    const int enable[3] = {1, 1, 0};
    hpgl->SetPens(3, red, green, blue, width, enable);

    bool ok = Write(folder, "hpgl", {hpgl.get()}, {kWholeObjects, Direct(0, 2)});
    ok = Write(folder, "hpgl2", {hpgl2.get()}, {kWholeObjects, Direct(1, 2)}) && ok;
    ok = Write(folder, "designjet", {designJet.get()}, {kWholeObjects, Direct(2, 2)}) && ok;
    ok = Write(folder, "designjet-changed", {changed.get()}, {kWholeObjects, Direct(2, 2, true)}) &&
         ok;
    // The same record twice: the second copy is a back reference.
    ok = Write(folder, "twice", {hpgl2.get(), hpgl2.get(), hpgl.get()}, {kWholeObjects}) && ok;
    if (!ok) {
        std::fprintf(stderr, "seed_marshal: cannot write the seeds to %s\n", folder.c_str());
        return 1;
    }
    return 0;
}
