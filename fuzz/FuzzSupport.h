#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKEnvironment.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKSmartRef.h"

// What the fuzz targets share.
namespace vrkfuzz {

// A folder of the process's own in the system's temporary directory, made on first use and
// removed with everything in it when the process ends normally. The targets write their inputs
// there when the code under test reads files.
inline const std::string& ScratchFolder() {
    static const std::string folder = [] {
        std::string pattern = VRKEnvironment::TemporaryDirectory() + "vrk-fuzz.XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            std::perror("mkdtemp");
            std::abort();
        }
        return pattern;
    }();
    static const struct Remover {
        ~Remover() {
            std::error_code ignored;
            std::filesystem::remove_all(folder, ignored);
        }
    } remover;
    return folder;
}

// Writes the bytes to `path`, replacing what was there.
inline void WriteFile(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    if (!out) {
        std::perror(path.c_str());
        std::abort();
    }
}

// The readers of table files print what they read on standard output; the fuzzer's own messages
// go to standard error, so standard output is dropped.
inline void DropStandardOutput() {
    std::cout.rdbuf(nullptr);
    std::fflush(stdout);
    if (std::freopen("/dev/null", "w", stdout) == nullptr) {
        std::abort();
    }
}

// A generator of a printer language, made through the class dictionary as a host makes it; an
// empty reference when the language is not registered.
inline VRKSmartRef<VRKPrintGenerator> MakeGenerator(std::string_view language) {
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage(language);
    if (entry == nullptr || entry->factory == nullptr) {
        return {};
    }
    VRKBaseUnknown* object = entry->factory();
    auto* generator = dynamic_cast<VRKPrintGenerator*>(object);
    if (generator == nullptr) {
        if (object != nullptr) {
            object->Release();
        }
        return {};
    }
    return VRKSmartRef<VRKPrintGenerator>::Adopt(generator);
}

// The four printer languages of the driver, in a fixed order that the first byte of an input
// chooses from.
inline constexpr const char* kLanguages[] = {"HPGL2", "HPGL", "HP1000GL2", "HP4000GL2"};
inline constexpr std::size_t kLanguageCount = sizeof(kLanguages) / sizeof(kLanguages[0]);

// Stops the run with a message when a property the target checks does not hold: libFuzzer then
// saves the input as a crash.
[[noreturn]] inline void Broken(const std::string& what) {
    std::fprintf(stderr, "fuzz check failed: %s\n", what.c_str());
    std::abort();
}

}  // namespace vrkfuzz
