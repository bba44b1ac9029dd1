#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

class VRKBaseUnknown;

// The state behind one marshal buffer identifier, shared by the buffer functions and the object
// protocol of VRKMarshal.h; not for use outside the host's marshalling code.
struct VRKMarshalBufferState {
    VRKMarshalBufferState() = default;
    VRKMarshalBufferState(const VRKMarshalBufferState&) = delete;
    VRKMarshalBufferState& operator=(const VRKMarshalBufferState&) = delete;
    ~VRKMarshalBufferState();

    void WriteInt32(std::int32_t value);
    // A length (int32) and that many bytes, with no terminator.
    void WriteString(const std::string& text);
    // False, with the read position unchanged, when the bytes are not all there.
    bool ReadInt32(std::int32_t* value);
    bool PeekInt32(std::int32_t* value) const;
    bool ReadString(std::string* text);

    // Forgets the objects written so far (new idents start at 1 again) or rebuilt so far.
    void ForgetWritten();
    void ForgetRebuilt();

    std::vector<unsigned char> bytes;
    std::size_t readPosition = 0;
    // Idents handed out by VRKMakeMarshalIdent.
    std::int32_t nextIdent = 1;
    // Objects written whole to this buffer with their idents; each holds a reference, so that an
    // address cannot be reused by another object while the buffer refers to it.
    std::vector<std::pair<VRKBaseUnknown*, std::int32_t>> written;
    // Objects rebuilt from this buffer by their idents in the stream, each with a reference.
    std::map<std::int32_t, VRKBaseUnknown*> rebuilt;
    // Idents given out by VRKCreateBegin and not yet announced with CreateUnmarshalIdent: the
    // handle to the ident in the stream.
    std::map<int, std::int32_t> pending;
};

// The state of a buffer, or null for an unknown identifier.
VRKMarshalBufferState* VRKFindMarshalBufferState(int bufferId);
// The buffer that has handed out the given VRKCreateBegin handle, or null.
VRKMarshalBufferState* VRKFindMarshalBufferStateByHandle(int handle);
