#include "host/core/VRKPropertyEditorEntry.h"

#include <map>

namespace {

// Generator class name to its property editor; filled by the static registrations of a library
// of dialogs as it loads.
std::map<std::string, VRKPropertyEditorFactory>& editors() {
    static std::map<std::string, VRKPropertyEditorFactory> table;
    return table;
}

}  // namespace

void VRKEnterInDictionary(const VRKPropertyEditorEntry& entry) {
    editors()[entry.className] = entry.factory;
}

void VRKRemoveFromDictionary(const VRKPropertyEditorEntry& entry) {
    const auto found = editors().find(entry.className);
    if (found != editors().end() && found->second == entry.factory) {
        editors().erase(found);
    }
}

VRKPropertyEditorFactory VRKFindPropertyEditor(const std::string& className) {
    const auto found = editors().find(className);
    return found != editors().end() ? found->second : nullptr;
}
