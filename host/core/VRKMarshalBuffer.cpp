#include "host/core/VRKMarshalBuffer.h"

#include <cstdio>
#include <cstring>
#include <map>
#include <memory>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKMarshalBufferState.h"

namespace {

std::map<int, std::unique_ptr<VRKMarshalBufferState>>& bufferTable() {
    static std::map<int, std::unique_ptr<VRKMarshalBufferState>> table;
    return table;
}

int nextBufferId = 1;

std::uint32_t decodeLittleEndian(const unsigned char* p) {
    return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
           static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

void appendLittleEndian(std::vector<unsigned char>& bytes, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<unsigned char>(value >> shift));
    }
}

// Reads a whole file; false when it cannot be opened or read.
bool readFile(const char* path, std::vector<unsigned char>* content) {
    std::FILE* file = std::fopen(path, "rb");
    if (file == nullptr) {
        return false;
    }
    std::vector<unsigned char> bytes;
    unsigned char chunk[4096];
    std::size_t got = 0;
    while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) {
        bytes.insert(bytes.end(), chunk, chunk + got);
    }
    const bool ok = std::ferror(file) == 0;
    std::fclose(file);
    if (ok) {
        content->swap(bytes);
    }
    return ok;
}

}  // namespace

// Buffer state.

VRKMarshalBufferState::~VRKMarshalBufferState() {
    ForgetWritten();
    ForgetRebuilt();
}

void VRKMarshalBufferState::WriteInt32(std::int32_t value) {
    appendLittleEndian(bytes, static_cast<std::uint32_t>(value));
}

void VRKMarshalBufferState::WriteString(const std::string& text) {
    WriteInt32(static_cast<std::int32_t>(text.size()));
    bytes.insert(bytes.end(), text.begin(), text.end());
}

bool VRKMarshalBufferState::PeekInt32(std::int32_t* value) const {
    if (bytes.size() - readPosition < 4) {
        return false;
    }
    *value = static_cast<std::int32_t>(decodeLittleEndian(bytes.data() + readPosition));
    return true;
}

bool VRKMarshalBufferState::ReadInt32(std::int32_t* value) {
    if (!PeekInt32(value)) {
        return false;
    }
    readPosition += 4;
    return true;
}

bool VRKMarshalBufferState::ReadString(std::string* text) {
    std::int32_t length = 0;
    if (!PeekInt32(&length) || length < 0 ||
        static_cast<std::size_t>(length) > bytes.size() - readPosition - 4) {
        return false;
    }
    const auto* first = reinterpret_cast<const char*>(bytes.data() + readPosition + 4);
    text->assign(first, static_cast<std::size_t>(length));
    readPosition += 4 + static_cast<std::size_t>(length);
    return true;
}

void VRKMarshalBufferState::ForgetWritten() {
    for (auto& [object, ident] : written) {
        if (object != nullptr) {
            object->Release();
        }
    }
    written.clear();
    nextIdent = 1;
}

void VRKMarshalBufferState::ForgetRebuilt() {
    for (auto& [ident, object] : rebuilt) {
        if (object != nullptr) {
            object->Release();
        }
    }
    rebuilt.clear();
    pending.clear();
}

VRKMarshalBufferState* VRKFindMarshalBufferState(int bufferId) {
    auto& table = bufferTable();
    auto found = table.find(bufferId);
    return found != table.end() ? found->second.get() : nullptr;
}

VRKMarshalBufferState* VRKFindMarshalBufferStateByHandle(int handle) {
    for (auto& [id, state] : bufferTable()) {
        if (state->pending.contains(handle)) {
            return state.get();
        }
    }
    return nullptr;
}

// Buffers.

int VRKCreateMarshalBuffer() {
    try {
        const int id = nextBufferId++;
        bufferTable()[id] = std::make_unique<VRKMarshalBufferState>();
        return id;
    } catch (...) {
        return 0;
    }
}

int VRKFreeMarshalBuffer(int bufferId) {
    auto& table = bufferTable();
    auto found = table.find(bufferId);
    if (found == table.end()) {
        return 1;
    }
    // Out of the table first: releasing an object may run code that looks buffers up.
    std::unique_ptr<VRKMarshalBufferState> state = std::move(found->second);
    table.erase(found);
    state.reset();
    return 0;
}

int VRKSaveMarshalBuffer(int bufferId, const char* path) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr || path == nullptr) {
        return 1;
    }
    std::FILE* file = std::fopen(path, "wb");
    if (file == nullptr) {
        return 1;
    }
    const std::size_t size = state->bytes.size();
    const bool written = size == 0 || std::fwrite(state->bytes.data(), 1, size, file) == size;
    const bool closed = std::fclose(file) == 0;
    return written && closed ? 0 : 1;
}

int VRKLoadMarshalBuffer(int bufferId, const char* path) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr || path == nullptr) {
        return 1;
    }
    try {
        std::vector<unsigned char> content;
        if (!readFile(path, &content)) {
            return 1;
        }
        state->bytes.swap(content);
        state->readPosition = 0;
        state->ForgetWritten();
        state->ForgetRebuilt();
        return 0;
    } catch (...) {
        return 1;
    }
}

std::vector<unsigned char> VRKGetMarshalBufferBytes(int bufferId) {
    try {
        const VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
        return state != nullptr ? state->bytes : std::vector<unsigned char>();
    } catch (...) {
        return {};
    }
}

int VRKSetMarshalBufferBytes(int bufferId, const unsigned char* data, std::size_t size) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr || (data == nullptr && size != 0)) {
        return 1;
    }
    try {
        std::vector<unsigned char> content(data, data + size);
        state->bytes.swap(content);
        state->readPosition = 0;
        state->ForgetWritten();
        state->ForgetRebuilt();
        return 0;
    } catch (...) {
        return 1;
    }
}

int VRKRewindMarshalBuffer(int bufferId) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr) {
        return 1;
    }
    state->readPosition = 0;
    state->ForgetRebuilt();
    return 0;
}

// Values.

int ExportMarshalBuffer(int bufferId, int value, int length) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    if (state == nullptr || length != 4) {
        return 1;
    }
    try {
        state->WriteInt32(value);
        return 0;
    } catch (...) {
        return 1;
    }
}

int ExportMarshalBuffer(int bufferId, float value, int length) {
    static_assert(sizeof(float) == 4);
    std::int32_t bits = 0;
    std::memcpy(&bits, &value, 4);
    return ExportMarshalBuffer(bufferId, static_cast<int>(bits), length);
}

int ImportMarshalBuffer(int bufferId, int* value, int length) {
    VRKMarshalBufferState* state = VRKFindMarshalBufferState(bufferId);
    std::int32_t read = 0;
    if (state == nullptr || value == nullptr || length != 4 || !state->ReadInt32(&read)) {
        return 1;
    }
    *value = read;
    return 0;
}

int ImportMarshalBuffer(int bufferId, float* value, int length) {
    if (value == nullptr) {
        return 1;
    }
    int bits = 0;
    if (ImportMarshalBuffer(bufferId, &bits, length) != 0) {
        return 1;
    }
    std::memcpy(value, &bits, 4);
    return 0;
}
