#include "tools/vrkplot-cups/QueueSettings.h"

#include <sys/stat.h>

#include "host/core/VRKEnvironment.h"
#include "host/xml/VRKLightXmlFile.h"

namespace QueueSettings {

std::string Folder() {
    return VRKEnvironment::Get("VRK_CUPS_SETTINGS_DIR").value_or(VRK_CUPS_SETTINGS_FOLDER);
}

std::string PathOf(const std::string& queue) {
    if (queue.empty() || queue == "." || queue == ".." || queue.find('/') != std::string::npos) {
        return {};
    }
    return Folder() + "/" + queue + ".xml";
}

bool Read(const std::string& queue, std::optional<VRKLightXmlElement>& element,
          std::string& error) {
    element.reset();
    const std::string path = PathOf(queue);
    struct stat info {};
    if (path.empty() || ::stat(path.c_str(), &info) != 0) {
        return true;
    }
    VRKLightXmlElement root;
    if (!VRKLightXmlFile::Read(path, root, error)) {
        return false;
    }
    element = std::move(root);
    return true;
}

}  // namespace QueueSettings
