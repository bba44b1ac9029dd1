#pragma once

#include <string>

#include "host/core/VRKPrintFileGenerator.h"
#include "host/core/VRKPrintMemoryStream.h"

// A generator from its factory, attached to a memory stream that carries a path (the job name).
template <class Generator>
struct GeneratorRun {
    GeneratorRun(VRKBaseUnknown* (*factory)(), const char* path = "J") {
        object = factory();
        generator = dynamic_cast<Generator*>(object);
        stream.SetPath(path);
        if (generator != nullptr) {
            generator->Attach(&stream);
        }
    }
    ~GeneratorRun() {
        if (generator != nullptr) {
            generator->Attach(nullptr);
        }
        if (object != nullptr) {
            object->Release();
        }
    }
    GeneratorRun(const GeneratorRun&) = delete;
    GeneratorRun& operator=(const GeneratorRun&) = delete;

    Generator* operator->() const { return generator; }
    const std::string& Bytes() { return stream.Data(); }

    VRKBaseUnknown* object = nullptr;
    Generator* generator = nullptr;
    VRKPrintMemoryStream stream;
};
