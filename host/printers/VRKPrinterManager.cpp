#include "host/printers/VRKPrinterManager.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

#include "host/core/VRKEnvironment.h"
#include "host/core/VRKRawCollPV.h"
#include "host/printers/VRKPrinter.h"
#include "host/printers/VRKPrinterNames.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"

namespace {

constexpr const char* kRoot = "Printers";
constexpr const char* kPrinter = "Printer";
// The attributes of <Printer>, in the order they are written.
constexpr const char* kAttributes[] = {"name", "language", "description", "destination"};

bool isKnownAttribute(const VRKString& name) {
    return std::any_of(std::begin(kAttributes), std::end(kAttributes),
                       [&](const char* known) { return name.str() == known; });
}

// A folder and a path below it, with one separator between them.
std::string joined(const std::string& folder, const char* below) {
    return folder + (folder.back() == '/' ? "" : "/") + below;
}

// The user's home folder in the password database, or empty.
std::string passwordHome() {
    long size = ::sysconf(_SC_GETPW_R_SIZE_MAX);
    std::string buffer(size > 0 ? static_cast<size_t>(size) : 16384, '\0');
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 ||
        found == nullptr || found->pw_dir == nullptr) {
        return {};
    }
    return found->pw_dir;
}

// Creates the folders of a path's parent that do not exist yet, as mkdir -p does.
bool makeParentFolders(const std::string& path, std::string& error) {
    const size_t last = path.rfind('/');
    if (last == std::string::npos || last == 0) {
        return true;
    }
    struct stat info {};
    if (::stat(path.substr(0, last).c_str(), &info) == 0 && S_ISDIR(info.st_mode)) {
        return true;
    }
    for (size_t end = path.find('/', 1); end != std::string::npos && end <= last;
         end = path.find('/', end + 1)) {
        const std::string folder = path.substr(0, end);
        if (::mkdir(folder.c_str(), 0755) == 0) {
            continue;
        }
        const int reason = errno;
        if (reason == EEXIST && ::stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) {
            continue;
        }
        error = path + ": cannot create the folder " + folder + ": " +
                std::strerror(reason == EEXIST ? ENOTDIR : reason);
        return false;
    }
    return true;
}

}  // namespace

VRKPrinterManager::VRKPrinterManager() : path_(DefaultPath()) {}

VRKPrinterManager::VRKPrinterManager(std::string path) : path_(std::move(path)) {}

VRKPrinterManager::~VRKPrinterManager() {
    End();
}

std::string VRKPrinterManager::DefaultPath() {
    try {
        const std::string own = VRKEnvironment::Get("VRK_PRINTERS").value_or("");
        if (!own.empty()) {
            return own;
        }
        // A relative XDG_CONFIG_HOME is not valid and is passed over, as XDG_CONFIG_HOME unset.
        const std::string config = VRKEnvironment::Get("XDG_CONFIG_HOME").value_or("");
        if (!config.empty() && config.front() == '/') {
            return joined(config, "vrkplot/printers.xml");
        }
        std::string home = VRKEnvironment::Get("HOME").value_or("");
        if (home.empty()) {
            home = passwordHome();
        }
        return home.empty() ? std::string() : joined(home, ".config/vrkplot/printers.xml");
    } catch (const std::bad_alloc&) {
        return {};
    }
}

bool VRKPrinterManager::Begin() {
    End();
    error_.clear();
    bool read = false;
    try {
        read = Read();
    } catch (const std::bad_alloc&) {
        error_ = path_ + ": out of memory";
    }
    if (!read) {
        End();
        return false;
    }
    begun_ = true;
    return true;
}

bool VRKPrinterManager::Read() {
    if (path_.empty()) {
        error_ = "the printer list has no file name: neither VRK_PRINTERS nor HOME gives one";
        return false;
    }
    struct stat info {};
    if (::stat(path_.c_str(), &info) != 0) {
        if (errno == ENOENT) {
            return true;
        }
        error_ = path_ + ": cannot read: " + std::strerror(errno);
        return false;
    }
    if (S_ISDIR(info.st_mode)) {
        error_ = path_ + ": cannot read: " + std::strerror(EISDIR);
        return false;
    }
    VRKLightXmlElement root;
    if (!VRKLightXmlFile::Read(path_, root, error_)) {
        return false;
    }
    if (root.GetName().str() != kRoot) {
        error_ =
            At(root) + "the root element is <" + root.GetName().str() + ">, not <" + kRoot + ">";
        return false;
    }
    if (root.GetAttributeCount() > 0) {
        error_ = At(root) + "<" + kRoot + ">: unknown attribute '" +
                 root.GetAttributes()[0].first.str() + "'";
        return false;
    }
    printers_.reserve(static_cast<size_t>(root.GetChildCount()));
    for (int i = 0; i < root.GetChildCount(); ++i) {
        if (!ReadPrinter(*root.GetChild(i))) {
            return false;
        }
    }
    return true;
}

bool VRKPrinterManager::ReadPrinter(const VRKLightXmlElement& element) {
    if (element.GetName().str() != kPrinter) {
        error_ = At(element) + "<" + element.GetName().str() + "> inside <" + kRoot + ">: only <" +
                 kPrinter + "> elements belong there";
        return false;
    }
    // A mistyped attribute is refused rather than passed over: `destinaton` would otherwise
    // leave the printer without a destination, or a setting silently unset.
    const std::string name = element.GetAttribute("name").str();
    const std::string printer = VRKPrinterNames::NameFault(name).empty()
                                    ? VRKPrinterNames::Label(name)
                                    : std::string("<") + kPrinter + ">";
    for (const auto& [attribute, value] : element.GetAttributes()) {
        if (!isKnownAttribute(attribute)) {
            error_ = At(element) + printer + ": unknown attribute '" + attribute.str() + "'";
            return false;
        }
    }
    if (!element.HasAttribute("name")) {
        error_ = At(element) + "a printer without a name";
        return false;
    }
    std::string fault = VRKPrinterNames::NameFault(name);
    if (!fault.empty()) {
        error_ = At(element) + fault;
        return false;
    }
    if (const VRKPrinter* first = Find(name)) {
        error_ = At(element) + printer + " is listed twice: first on line " +
                 std::to_string(first->GetSourceLine());
        return false;
    }
    for (const char* field : {"language", "destination"}) {
        fault = element.HasAttribute(field)
                    ? VRKPrinterNames::FieldFault(name, field, element.GetAttribute(field).str())
                    : printer + " has no " + field;
        if (!fault.empty()) {
            error_ = At(element) + fault;
            return false;
        }
    }
    if (element.GetChildCount() > 1) {
        const VRKLightXmlElement& second = *element.GetChild(1);
        error_ = At(second) + printer + ": a second settings element <" + second.GetName().str() +
                 ">; a printer has one at most";
        return false;
    }
    // Room for the pointer was reserved: nothing can throw between the new and the list.
    printers_.push_back(new VRKPrinter(name, element.GetAttribute("language").str(),
                                       element.GetAttribute("description").str(),
                                       element.GetAttribute("destination").str(),
                                       element.GetFirstChild(), path_, element.GetSourceLine()));
    return true;
}

std::string VRKPrinterManager::At(const VRKLightXmlElement& element) const {
    // Lines are unknown (0) only in a file that is not UTF-8.
    const int line = element.GetSourceLine();
    return path_ + (line > 0 ? ":" + std::to_string(line) : std::string()) + ": ";
}

bool VRKPrinterManager::GetPrinterList(VRKRawCollPV& printers) const {
    try {
        for (VRKPrinter* printer : printers_) {
            printers.Append(printer);
        }
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void VRKPrinterManager::End() {
    for (VRKPrinter* printer : printers_) {
        printer->Release();
    }
    for (VRKPrinter* printer : removed_) {
        printer->Release();
    }
    printers_.clear();
    removed_.clear();
    begun_ = false;
}

VRKPrinter* VRKPrinterManager::Find(const VRKUnicodeString& name) const {
    for (VRKPrinter* printer : printers_) {
        if (printer->GetName() == name) {
            return printer;
        }
    }
    return nullptr;
}

bool VRKPrinterManager::Check(std::string& error) const {
    if (!begun_) {
        error = path_ + ": the printer list has not been read";
        return false;
    }
    return true;
}

bool VRKPrinterManager::Add(const VRKUnicodeString& name, const VRKUnicodeString& language,
                            const VRKUnicodeString& description,
                            const VRKUnicodeString& destination, const VRKLightXmlElement* settings,
                            std::string& error) {
    try {
        if (!Check(error)) {
            return false;
        }
        std::string fault = VRKPrinterNames::NameFault(name.ToUtf8());
        if (fault.empty() && Find(name) != nullptr) {
            fault = VRKPrinterNames::Label(name.ToUtf8()) + " is already in the list";
        }
        if (fault.empty()) {
            fault = VRKPrinterNames::FieldFault(name.ToUtf8(), "language", language.ToUtf8());
        }
        if (fault.empty()) {
            fault = VRKPrinterNames::FieldFault(name.ToUtf8(), "destination", destination.ToUtf8());
        }
        if (!fault.empty()) {
            error = path_ + ": " + fault;
            return false;
        }
        printers_.reserve(printers_.size() + 1);
        printers_.push_back(
            new VRKPrinter(name, language, description, destination, settings, path_, 0));
        return true;
    } catch (const std::bad_alloc&) {
        error = path_ + ": out of memory";
        return false;
    }
}

std::vector<VRKPrinter*>::iterator VRKPrinterManager::Listed(const VRKUnicodeString& name,
                                                             std::string& error) {
    const auto found = std::find_if(printers_.begin(), printers_.end(),
                                    [&](VRKPrinter* p) { return p->GetName() == name; });
    if (found == printers_.end()) {
        error = path_ + ": no " + VRKPrinterNames::Label(name.ToUtf8()) + " in the list";
    }
    return found;
}

bool VRKPrinterManager::Remove(const VRKUnicodeString& name, std::string& error) {
    try {
        if (!Check(error)) {
            return false;
        }
        const auto found = Listed(name, error);
        if (found == printers_.end()) {
            return false;
        }
        removed_.reserve(removed_.size() + 1);
        removed_.push_back(*found);
        printers_.erase(found);
        return true;
    } catch (const std::bad_alloc&) {
        error = path_ + ": out of memory";
        return false;
    }
}

bool VRKPrinterManager::ReplaceSettings(const VRKUnicodeString& name,
                                        const VRKLightXmlElement& settings, std::string& error) {
    try {
        if (!Check(error)) {
            return false;
        }
        const auto found = Listed(name, error);
        if (found == printers_.end()) {
            return false;
        }
        VRKPrinter* old = *found;
        removed_.reserve(removed_.size() + 1);
        auto* replacement =
            new VRKPrinter(old->GetName(), old->GetLanguage(), old->GetDescription(),
                           old->GetDestination(), &settings, old->GetFile(), old->GetSourceLine());
        removed_.push_back(old);
        *found = replacement;
        return true;
    } catch (const std::bad_alloc&) {
        error = path_ + ": out of memory";
        return false;
    }
}

bool VRKPrinterManager::Save(std::string& error) {
    try {
        return Check(error) && makeParentFolders(path_, error) && Write(error);
    } catch (const std::bad_alloc&) {
        error = path_ + ": out of memory";
        return false;
    }
}

bool VRKPrinterManager::Write(std::string& error) const {
    VRKLightXmlElement root(kRoot);
    for (const VRKPrinter* printer : printers_) {
        VRKLightXmlElement& element = root.AddChild(VRKLightXmlElement(kPrinter));
        element.SetAttribute(kAttributes[0], printer->GetName().ToUtf8());
        element.SetAttribute(kAttributes[1], printer->GetLanguage().ToUtf8());
        element.SetAttribute(kAttributes[2], printer->GetDescription().ToUtf8());
        element.SetAttribute(kAttributes[3], printer->GetDestination().ToUtf8());
        if (printer->GetSettings() != nullptr) {
            element.AddChild(*printer->GetSettings());
        }
    }
    return VRKLightXmlFile::Write(path_, root, error);
}
