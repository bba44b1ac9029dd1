#pragma once

#include <optional>
#include <string>

#include "host/xml/VRKLightXmlElement.h"

// The queue's own settings file: <folder>/<queue>.xml, a settings file as `vrkplot settings`
// writes it (a full pen table, say), read into the generator before the PPD's choices. The
// folder is the one installed under the system configuration folder, or $VRK_CUPS_SETTINGS_DIR
// when set.
namespace QueueSettings {

// The folder the files are looked for in.
std::string Folder();

// The path of queue `queue`'s file; empty when the queue name cannot name a file ("", ".",
// "..", or a name with '/').
std::string PathOf(const std::string& queue);

// Reads queue `queue`'s file into `element`. True with `element` empty when there is no file
// (no queue name, or no file of its name); false with `error` set when a file is there and
// cannot be read.
bool Read(const std::string& queue, std::optional<VRKLightXmlElement>& element, std::string& error);

}  // namespace QueueSettings
