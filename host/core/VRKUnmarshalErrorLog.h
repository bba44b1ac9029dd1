#pragma once

#include <vector>

#include "host/core/VRKUnmarshalError.h"

// The process-wide log of unmarshalling failures: marshallers report what they could not read,
// and a host (or a test) reads the entries after the fact and clears them.

// Appends an entry. Any text may be null.
void VRKSysMshLogUnmarshalError(const char* context, const char* className, int bufferId,
                                const char* message, const char* name);
// The entries so far, oldest first.
std::vector<VRKUnmarshalError> VRKGetUnmarshalErrors();
void VRKClearUnmarshalErrors();
