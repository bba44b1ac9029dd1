#pragma once

#include <map>
#include <string>
#include <vector>

// The texts of one dialog, read from the resource file named after the dialog's class:
// "VRKPrintHPGLDialog" reads VRKPrintHPGLDialog.resources from the resource folder.
//
// The file is UTF-8 text (a byte order mark at its start is skipped) of lines `key = text`:
// - blank lines and lines whose first non-blank character is '#' are ignored;
// - the key is what comes before the first '=', without the blanks around it;
// - the text is the rest of the line without the blanks around it, and may be empty;
// - a text written between double quotes ("  Pen  ") keeps its blanks, the quotes removed;
// - in a text, "\n" is a line break and "\\" a backslash.
// A line without '=' or with an empty key, and a key given a second time, are reported in
// GetErrors() and change nothing: the first text of a key stays.
//
// The resource folder is $VRK_RESOURCES_DIR when set and not empty, else `resources/` beside the
// running program when that folder exists, else `../share/vrkprtdriverhpgl2/resources` from the
// program's folder. Pictures of the dialogs (NAME.png) are read from the same folder.
class VRKDlgResources {
  public:
    // Reads NAME.resources from the resource folder. A missing file leaves the set empty (every
    // lookup gives its fallback) and says so in GetErrors().
    explicit VRKDlgResources(const std::string& name);
    // Reads a given file (tests, tools).
    static VRKDlgResources FromFile(const std::string& path);

    std::string GetResourceValueFromKey(const std::string& key, const std::string& fallback) const;
    bool HasKey(const std::string& key) const;
    bool IsLoaded() const { return m_loaded; }
    const std::string& GetPath() const { return m_path; }
    // One message per fault, naming the file and the line: "X.resources:4: no '=' in the line".
    const std::vector<std::string>& GetErrors() const { return m_errors; }

    static std::string Folder();
    // Folder()/NAME.png.
    static std::string PicturePath(const std::string& name);

  private:
    VRKDlgResources() = default;
    void Load(const std::string& path);
    void ReadLine(const std::string& line, int lineNumber, std::map<std::string, int>& firstLines);

    std::map<std::string, std::string> m_texts;
    std::vector<std::string> m_errors;
    std::string m_path;
    bool m_loaded = false;
};
