#pragma once

#include <cstddef>
#include <vector>

// Marshal buffers: flat byte buffers, each named by an integer identifier, into which objects are
// copied to be rebuilt elsewhere. Values are appended in call order, every scalar as 4 bytes,
// little-endian, whatever the machine; reading goes forward from the start with a read position
// of its own, so a buffer can be written and then read back. The byte layout of objects is given
// in VRKMarshal.h. The buffers live in one table for the process, on the caller's thread; nothing
// here locks.
//
// Every function that returns int returns 0 on success and non-zero on failure (an unknown
// identifier, a bad argument, a value past the end of the buffer, a file that cannot be read or
// written). No exception leaves any of them.

// Makes a new, empty buffer and returns its identifier (never 0), or 0 when it cannot.
int VRKCreateMarshalBuffer();
// Frees the buffer and gives back the references it held on the objects written to or rebuilt
// from it.
int VRKFreeMarshalBuffer(int bufferId);

// Writes the buffer's bytes, and nothing else, to a file.
int VRKSaveMarshalBuffer(int bufferId, const char* path);
// Replaces the buffer's bytes by the content of a file and starts reading from its beginning. On
// failure the buffer is left as it was.
int VRKLoadMarshalBuffer(int bufferId, const char* path);

// A copy of the buffer's bytes; empty for an unknown identifier.
std::vector<unsigned char> VRKGetMarshalBufferBytes(int bufferId);
// Replaces the buffer's bytes (a stream received from elsewhere) and starts reading from its
// beginning.
int VRKSetMarshalBufferBytes(int bufferId, const unsigned char* data, std::size_t size);
// Starts reading again from the beginning; objects rebuilt so far are forgotten.
int VRKRewindMarshalBuffer(int bufferId);

// Appends one value. `length` is the size of the value in bytes and must be 4.
int ExportMarshalBuffer(int bufferId, int value, int length);
int ExportMarshalBuffer(int bufferId, float value, int length);
// Reads the next value. Past the end of the buffer (or with a length other than 4) nothing is read
// and *value keeps what it held.
int ImportMarshalBuffer(int bufferId, int* value, int length);
int ImportMarshalBuffer(int bufferId, float* value, int length);
