#pragma once

#include <vector>

#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKUnmarshalErrorLog.h"

// A marshal buffer for one test, freed at its end; the unmarshal error log starts empty.
class ScopedMarshalBuffer {
  public:
    ScopedMarshalBuffer() : id_(VRKCreateMarshalBuffer()) { VRKClearUnmarshalErrors(); }
    ~ScopedMarshalBuffer() { VRKFreeMarshalBuffer(id_); }
    ScopedMarshalBuffer(const ScopedMarshalBuffer&) = delete;
    ScopedMarshalBuffer& operator=(const ScopedMarshalBuffer&) = delete;

    int Id() const { return id_; }
    std::vector<unsigned char> Bytes() const { return VRKGetMarshalBufferBytes(id_); }
    void Set(const std::vector<unsigned char>& bytes) const {
        VRKSetMarshalBufferBytes(id_, bytes.data(), bytes.size());
    }

  private:
    int id_;
};
