#pragma once

#include "host/core/VRKClassEntry.h"
#include "host/core/VRKDictionaryRegistration.h"

// Enters a class in the class dictionary and takes it out again.
void VRKEnterInDictionary(const VRKClassEntry& entry);
void VRKRemoveFromDictionary(const VRKClassEntry& entry);

// A static object of this type in a library registers a class while the library is loaded.
using VRKClassRegistration = VRKDictionaryRegistration<VRKClassEntry>;
