#pragma once

#include <string>

// A font as the host knows it. The driver asks only for the default font, the one the host uses
// for text drawn as geometry: a TrueType file, DejaVu Sans unless the environment variable
// VRK_DEFAULT_FONT names another file.
class VRKFont {
  public:
    explicit VRKFont(std::string path) : path_(std::move(path)) {}

    // Full path of the font file.
    const std::string& GetPath() const { return path_; }
    // File name without its folder, for example "DejaVuSans.ttf".
    std::string GetFileName() const;

    // The host's default font.
    static VRKFont GetDefaultFont();
    // File name of the default font.
    static std::string GetDefaultFontFileName() { return GetDefaultFont().GetFileName(); }

  private:
    std::string path_;
};
