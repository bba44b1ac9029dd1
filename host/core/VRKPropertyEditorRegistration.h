#pragma once

#include "host/core/VRKDictionaryRegistration.h"
#include "host/core/VRKPropertyEditorEntry.h"

// A static object of this type in the library of dialogs registers a generator class's property
// editor while the library is loaded.
using VRKPropertyEditorRegistration = VRKDictionaryRegistration<VRKPropertyEditorEntry>;
