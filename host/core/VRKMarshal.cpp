#include "host/core/VRKMarshal.h"

#include <cstring>
#include <string>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKCreateCorba.h"
#include "host/core/VRKMarshalBufferState.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKSerialize.h"
#include "host/core/VRKUnmarshalErrorLog.h"

namespace {

// Handles of VRKCreateBegin, unique in the process so that CreateUnmarshalIdent, which is given
// no buffer, finds the buffer that handed one out.
int nextHandle = 1;

int freshHandle() {
    const int handle = nextHandle++;
    if (nextHandle <= 0) {
        nextHandle = 1;
    }
    return handle;
}

const char* orEmpty(const char* text) {
    return text != nullptr ? text : "";
}

}  // namespace

int SetData(VRKBaseUnknown* iface, VRKBaseUnknown* record) {
    if (auto* marshallable = dynamic_cast<VRKMarshallableCorba*>(iface)) {
        marshallable->SetData(record);
    } else if (auto* serialize = dynamic_cast<VRKSerialize*>(iface)) {
        serialize->SetData(record);
    } else if (auto* creator = dynamic_cast<VRKCreateCorba*>(iface)) {
        creator->SetData(record);
    } else {
        return 1;
    }
    return 0;
}

int VRKMakeMarshalIdent(int bufferId, int creationFlag, const char* className,
                        VRKBaseUnknown* object) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr) {
        return 0;
    }
    try {
        const std::int32_t ident = state->nextIdent;
        if (creationFlag != kVRKCreateObject) {
            ++state->nextIdent;
            return ident;
        }
        if (object != nullptr) {
            for (const auto& [writtenObject, writtenIdent] : state->written) {
                if (writtenObject == object) {
                    state->WriteInt32(kVRKMarshalReferenceTag);
                    state->WriteInt32(writtenIdent);
                    return 0;
                }
            }
        }
        state->WriteInt32(kVRKMarshalObjectTag);
        state->WriteString(orEmpty(className));
        state->WriteInt32(ident);
        ++state->nextIdent;
        if (object != nullptr) {
            state->written.emplace_back(object, ident);
            object->AddRef();
        }
        return ident;
    } catch (...) {
        return 0;
    }
}

int VRKMakeMarshalEnd(const char* /*className*/, VRKBaseUnknown* /*object*/, int bufferId) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr) {
        return 1;
    }
    try {
        state->WriteInt32(kVRKMarshalEndTag);
        return 0;
    } catch (...) {
        return 1;
    }
}

int VRKMarshalBaseClass(int bufferId, const char* className) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr) {
        return 1;
    }
    try {
        state->WriteString(orEmpty(className));
        return 0;
    } catch (...) {
        return 1;
    }
}

int VRKMarshalAggregate(int bufferId, VRKBaseUnknown* aggregate, VRKBaseUnknown* iface) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr) {
        return 1;
    }
    try {
        state->WriteString(aggregate != nullptr ? aggregate->IsA() : "");
    } catch (...) {
        return 1;
    }
    if (iface != nullptr) {
        return SetData(iface, aggregate);
    }
    return 0;
}

VRKBaseUnknown* VRKCreateBegin(int bufferId, int creationFlag, VRKBaseUnknown* /*record*/,
                               const char* className, int* newIdent) {
    int ignored = 0;
    int& handle = newIdent != nullptr ? *newIdent : ignored;
    handle = 0;
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr) {
        VRKSysMshLogUnmarshalError("object", className, bufferId, "Unknown marshal buffer",
                                   nullptr);
        return nullptr;
    }
    if (creationFlag != kVRKCreateObject) {
        handle = freshHandle();
        return nullptr;
    }
    try {
        const std::size_t start = state->readPosition;
        std::int32_t tag = 0;
        std::int32_t ident = 0;
        if (!state->ReadInt32(&tag)) {
            VRKSysMshLogUnmarshalError("object", className, bufferId, "Object header missing",
                                       nullptr);
            return nullptr;
        }
        if (tag == kVRKMarshalReferenceTag) {
            if (!state->ReadInt32(&ident)) {
                state->readPosition = start;
                VRKSysMshLogUnmarshalError("object", className, bufferId,
                                           "Back reference truncated", nullptr);
                return nullptr;
            }
            auto found = state->rebuilt.find(ident);
            if (found == state->rebuilt.end() || found->second == nullptr) {
                VRKSysMshLogUnmarshalError("object", className, bufferId,
                                           "Back reference to an unknown object", nullptr);
                return nullptr;
            }
            found->second->AddRef();
            return found->second;
        }
        std::string streamClass;
        if (tag != kVRKMarshalObjectTag || !state->ReadString(&streamClass) ||
            !state->ReadInt32(&ident)) {
            state->readPosition = start;
            VRKSysMshLogUnmarshalError("object", className, bufferId, "Object header missing",
                                       nullptr);
            return nullptr;
        }
        if (className != nullptr && streamClass != className) {
            VRKSysMshLogUnmarshalError("object", className, bufferId, "Object of another class",
                                       streamClass.c_str());
        }
        handle = freshHandle();
        state->pending[handle] = ident;
        return nullptr;
    } catch (...) {
        handle = 0;
        return nullptr;
    }
}

int CreateUnmarshalIdent(int newIdent, VRKBaseUnknown* record) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferStateByHandle(newIdent);
    if (state == nullptr) {
        return 1;
    }
    const std::int32_t ident = state->pending[newIdent];
    state->pending.erase(newIdent);
    if (record == nullptr) {
        return 1;
    }
    try {
        VRKBaseUnknown*& slot = state->rebuilt[ident];
        record->AddRef();
        if (slot != nullptr) {
            slot->Release();
        }
        slot = record;
        return 0;
    } catch (...) {
        return 1;
    }
}

int VRKMakeUnmarshalEnd(int bufferId) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    std::int32_t tag = 0;
    if (state == nullptr || !state->PeekInt32(&tag) || tag != kVRKMarshalEndTag) {
        VRKSysMshLogUnmarshalError("end", nullptr, bufferId, "End marker missing", nullptr);
        return 1;
    }
    state->readPosition += 4;
    return 0;
}

int VRKUnmarshalGetClassName(int bufferId, char** name, int* length) {
    if (name != nullptr) {
        *name = nullptr;
    }
    if (length != nullptr) {
        *length = 0;
    }
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr || name == nullptr) {
        return 1;
    }
    try {
        const std::size_t start = state->readPosition;
        std::string text;
        if (!state->ReadString(&text)) {
            return 1;
        }
        if (text.empty()) {
            return 0;
        }
        char* copy = nullptr;
        try {
            copy = new char[text.size() + 1];
        } catch (...) {
            state->readPosition = start;
            return 1;
        }
        std::memcpy(copy, text.c_str(), text.size() + 1);
        *name = copy;
        if (length != nullptr) {
            *length = static_cast<int>(text.size());
        }
        return 0;
    } catch (...) {
        return 1;
    }
}

VRKBaseUnknown* VRKUnmarshalCallAg(int bufferId, VRKBaseUnknown* iface, VRKBaseUnknown* target) {
    if (auto* marshallable = dynamic_cast<VRKMarshallableCorba*>(iface)) {
        return marshallable->Unmarshal(bufferId, target, kVRKCreateAggregate);
    }
    if (auto* serialize = dynamic_cast<VRKSerialize*>(iface)) {
        return serialize->Unmarshal(bufferId, target, kVRKCreateAggregate);
    }
    if (iface == nullptr) {
        return nullptr;
    }
    // A data object in place of an interface: its class's own marshaller reads it.
    try {
        if (auto marshallable = VRKQueryInterface<VRKMarshallableCorba>(iface)) {
            return marshallable->Unmarshal(bufferId, target, kVRKCreateAggregate);
        }
        if (auto serialize = VRKQueryInterface<VRKSerialize>(iface)) {
            return serialize->Unmarshal(bufferId, target, kVRKCreateAggregate);
        }
    } catch (...) {
        return nullptr;
    }
    return nullptr;
}

VRKBaseUnknown* VRKUnmarshalCreateAg(int bufferId, VRKBaseUnknown* creator, VRKBaseUnknown* target,
                                     int state) {
    auto* create = dynamic_cast<VRKCreateCorba*>(creator);
    if (create == nullptr) {
        return nullptr;
    }
    return create->Create(bufferId, target, kVRKCreateAggregate, &state);
}

int VRKMarshalObject(int bufferId, VRKBaseUnknown* object) {
    if (object == nullptr || VRKFindMarshalBufferState(bufferId) == nullptr) {
        return 1;
    }
    try {
        auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>(object->IsA());
        if (!marshaller) {
            return 1;
        }
        marshaller->SetData(object);
        marshaller->Marshal(bufferId, kVRKCreateObject);
        marshaller->SetData(nullptr);
        return 0;
    } catch (...) {
        return 1;
    }
}

VRKBaseUnknown* VRKUnmarshalObject(int bufferId) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr) {
        VRKSysMshLogUnmarshalError("object", nullptr, bufferId, "Unknown marshal buffer", nullptr);
        return nullptr;
    }
    try {
        std::int32_t tag = 0;
        if (state->PeekInt32(&tag) && tag == kVRKMarshalReferenceTag) {
            int handle = 0;
            return VRKCreateBegin(bufferId, kVRKCreateObject, nullptr, nullptr, &handle);
        }
        // Peek the class name that follows the tag, to find the marshaller that reads the rest.
        const std::size_t start = state->readPosition;
        std::string className;
        const bool named =
            tag == kVRKMarshalObjectTag && state->ReadInt32(&tag) && state->ReadString(&className);
        state->readPosition = start;
        if (!named) {
            VRKSysMshLogUnmarshalError("object", nullptr, bufferId, "Object header missing",
                                       nullptr);
            return nullptr;
        }
        auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>(className);
        if (!marshaller) {
            VRKSysMshLogUnmarshalError("object", className.c_str(), bufferId,
                                       "Unmarshalling interface not found", className.c_str());
            return nullptr;
        }
        return marshaller->Unmarshal(bufferId, nullptr, kVRKCreateObject);
    } catch (...) {
        return nullptr;
    }
}
