#include "host/dialogs/VRKDlgResources.h"

#include <unistd.h>

#include <sys/stat.h>
#include <climits>
#include <fstream>

#include "host/core/VRKEnvironment.h"

namespace {

std::string Trim(const std::string& text) {
    const char* blanks = " \t\r";
    size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) {
        return {};
    }
    size_t last = text.find_last_not_of(blanks);
    return text.substr(first, last - first + 1);
}

// "\n" becomes a line break, "\\" a backslash; any other backslash stays as written.
std::string Unescape(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == 'n' || text[i + 1] == '\\')) {
            out += text[i + 1] == 'n' ? '\n' : '\\';
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

std::string ProgramFolder() {
    char buffer[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    if (length <= 0) {
        return ".";
    }
    std::string path(buffer, static_cast<size_t>(length));
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string(".") : path.substr(0, slash);
}

bool IsFolder(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

VRKDlgResources::VRKDlgResources(const std::string& name) {
    Load(Folder() + "/" + name + ".resources");
}

VRKDlgResources VRKDlgResources::FromFile(const std::string& path) {
    VRKDlgResources resources;
    resources.Load(path);
    return resources;
}

void VRKDlgResources::Load(const std::string& path) {
    m_path = path;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        m_errors.push_back(path + ": cannot be read");
        return;
    }
    m_loaded = true;
    std::map<std::string, int> firstLines;
    std::string line;
    int lineNumber = 0;
    while (std::getline(file, line)) {
        ++lineNumber;
        if (lineNumber == 1 && line.compare(0, 3, "\xEF\xBB\xBF") == 0) {
            line.erase(0, 3);
        }
        ReadLine(line, lineNumber, firstLines);
    }
}

void VRKDlgResources::ReadLine(const std::string& line, int lineNumber,
                               std::map<std::string, int>& firstLines) {
    std::string trimmed = Trim(line);
    if (trimmed.empty() || trimmed[0] == '#') {
        return;
    }
    std::string where = m_path + ":" + std::to_string(lineNumber) + ": ";
    size_t equals = trimmed.find('=');
    if (equals == std::string::npos) {
        m_errors.push_back(where + "no '=' in the line");
        return;
    }
    std::string key = Trim(trimmed.substr(0, equals));
    if (key.empty()) {
        m_errors.push_back(where + "no key before '='");
        return;
    }
    std::string text = Trim(trimmed.substr(equals + 1));
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        text = text.substr(1, text.size() - 2);
    }
    auto [first, inserted] = firstLines.emplace(key, lineNumber);
    if (!inserted) {
        m_errors.push_back(where + "key '" + key + "' given again (first on line " +
                           std::to_string(first->second) + ")");
        return;
    }
    m_texts[key] = Unescape(text);
}

std::string VRKDlgResources::GetResourceValueFromKey(const std::string& key,
                                                     const std::string& fallback) const {
    auto found = m_texts.find(key);
    return found == m_texts.end() ? fallback : found->second;
}

bool VRKDlgResources::HasKey(const std::string& key) const {
    return m_texts.count(key) != 0;
}

std::string VRKDlgResources::Folder() {
    std::optional<std::string> configured = VRKEnvironment::Get("VRK_RESOURCES_DIR");
    if (configured && !configured->empty()) {
        return *configured;
    }
    std::string program = ProgramFolder();
    if (IsFolder(program + "/resources")) {
        return program + "/resources";
    }
    return program + "/../share/vrkprtdriverhpgl2/resources";
}

std::string VRKDlgResources::PicturePath(const std::string& name) {
    return Folder() + "/" + name + ".png";
}
