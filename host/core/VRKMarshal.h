#pragma once

class VRKBaseUnknown;

// The object protocol over marshal buffers (VRKMarshalBuffer.h). A marshaller (an implementation
// of VRKMarshallableCorba or VRKSerialize) writes one object as
//
//   header  body  end
//
// where the header depends on how the object stands in the stream (the creation flag):
//
//   2 (an object of its own)   "{OBJ" tag, class name, ident: the first time the object is
//                              written to this buffer; "{REF" tag and the ident of the first
//                              copy afterwards, with no body and no end.
//   1 (the base-class part)    nothing: the derived object's marshaller has written the base
//                              class name with VRKMarshalBaseClass.
//   0 (an aggregate)           nothing: the owner has written the aggregate's class name with
//                              VRKMarshalAggregate.
//
// and the end is the "END}" tag. Tags are int32 values whose four little-endian bytes spell the
// text given; a class name is an int32 length followed by that many bytes, with no terminator
// (length 0 for "no object"); the body is whatever the marshaller exports, 4 bytes a value.
//
// Failures of reading are also entered in the unmarshal error log (VRKUnmarshalErrorLog.h) with
// the context "object" (header) or "end" (end tag). Nothing here throws.

inline constexpr int kVRKCreateAggregate = 0;
inline constexpr int kVRKCreateBaseClass = 1;
inline constexpr int kVRKCreateObject = 2;

inline constexpr int kVRKMarshalObjectTag = 0x4A424F7B;     // "{OBJ"
inline constexpr int kVRKMarshalReferenceTag = 0x4645527B;  // "{REF"
inline constexpr int kVRKMarshalEndTag = 0x7D444E45;        // "END}"

// Writing.

// Opens the marshalling of `object`, of class `className`. With creation flag 0 or 1 nothing is
// written and a fresh ident (non-zero) is returned. With flag 2: an object already written to this
// buffer is written as a back reference and 0 is returned, meaning that the caller writes nothing
// more; otherwise the object header is written and the object's new ident returned. 0 also for an
// unknown buffer.
int VRKMakeMarshalIdent(int bufferId, int creationFlag, const char* className,
                        VRKBaseUnknown* object);
// Closes the marshalling of an object: writes the end tag.
int VRKMakeMarshalEnd(const char* className, VRKBaseUnknown* object, int bufferId);
// Writes the name of the base class whose part follows.
int VRKMarshalBaseClass(int bufferId, const char* className);
// Writes the class name of an aggregate (an empty name for null) and, when an interface
// (VRKMarshallableCorba, VRKSerialize or VRKCreateCorba) is given, binds it to the aggregate with
// SetData so that its Marshal writes the aggregate next.
int VRKMarshalAggregate(int bufferId, VRKBaseUnknown* aggregate, VRKBaseUnknown* iface);
// Binds an interface (VRKMarshallableCorba, VRKSerialize or VRKCreateCorba) to a record; non-zero
// when `iface` is none of them.
int SetData(VRKBaseUnknown* iface, VRKBaseUnknown* record);

// Reading.

// Opens the unmarshalling of an object. With creation flag 0 or 1 nothing is read; null is
// returned and *newIdent set to a fresh handle. With flag 2 the header is read: for a back
// reference the object already rebuilt from this buffer is returned with a reference added for
// the caller; for an object header null is returned and *newIdent set to a handle which the
// caller, when it makes the object itself, passes to CreateUnmarshalIdent. A missing or truncated
// header is logged, and null returned with *newIdent set to 0. `record` is the caller's record (or
// null) and `className` the class it reads; a header naming another class is logged.
VRKBaseUnknown* VRKCreateBegin(int bufferId, int creationFlag, VRKBaseUnknown* record,
                               const char* className, int* newIdent);
// Announces the object made for a handle of VRKCreateBegin, so that later back references to it
// find it; the buffer keeps a reference to it. Non-zero for a handle that announces nothing (those
// of flags 0 and 1, and 0).
int CreateUnmarshalIdent(int newIdent, VRKBaseUnknown* record);
// Reads the end tag; non-zero, with nothing read and an entry in the log, when it is not there.
int VRKMakeUnmarshalEnd(int bufferId);
// Reads a class name (an aggregate's or a base class's). On success *name is a new[] array that
// the caller frees with delete[], NUL-terminated, and *length its length; an empty name gives
// *name null and *length 0. Non-zero, with nothing read and *name null, when the buffer ends first.
int VRKUnmarshalGetClassName(int bufferId, char** name, int* length);
// Reads an aggregate into `target` through `iface`: the Unmarshal of a VRKMarshallableCorba or
// VRKSerialize with creation flag 0. When `iface` is a data object rather than an interface, the
// VRKMarshallableCorba (failing that the VRKSerialize) of its class is used. Returns what Unmarshal
// returns (`target` itself when one is given), or null when there is no interface to call.
VRKBaseUnknown* VRKUnmarshalCallAg(int bufferId, VRKBaseUnknown* iface, VRKBaseUnknown* target);
// The creating half of a two-step aggregate: the Create of a VRKCreateCorba with (bufferId,
// target, 0, &state). Returns what Create returns, or null when `creator` is not a VRKCreateCorba.
VRKBaseUnknown* VRKUnmarshalCreateAg(int bufferId, VRKBaseUnknown* creator, VRKBaseUnknown* target,
                                     int state);

// Whole objects.

// Marshals an object of its own (flag 2) with the VRKMarshallableCorba registered for its class
// (exactly its class, not a base). Non-zero when the buffer is unknown or the class has no
// marshaller.
int VRKMarshalObject(int bufferId, VRKBaseUnknown* object);
// Rebuilds the next object of the buffer with the VRKMarshallableCorba of the class named in its
// header, or returns the object a back reference names. The result carries one reference for the
// caller; null when the header is missing or the class has no marshaller (logged) or its
// marshaller fails.
VRKBaseUnknown* VRKUnmarshalObject(int bufferId);
