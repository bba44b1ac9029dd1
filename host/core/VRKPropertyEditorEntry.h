#pragma once

#include <string>

class VRKDlgDialog;
class VRKPrintGenerator;

// Makes the property dialog of a generator: parented to `parent` (may be null) and editing the
// generator's record. Null when it cannot.
using VRKPropertyEditorFactory = VRKDlgDialog* (*)(VRKDlgDialog* parent,
                                                   VRKPrintGenerator& generator);

// The property editor of one generator class, as the library of dialogs enters it in the class
// dictionary while it is loaded.
struct VRKPropertyEditorEntry {
    std::string className;
    VRKPropertyEditorFactory factory = nullptr;
};

// Enters a property editor and takes it out again; the editor for a class, or null.
void VRKEnterInDictionary(const VRKPropertyEditorEntry& entry);
void VRKRemoveFromDictionary(const VRKPropertyEditorEntry& entry);
VRKPropertyEditorFactory VRKFindPropertyEditor(const std::string& className);
