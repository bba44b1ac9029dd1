#pragma once

#include <optional>
#include <string>

// `vrkplot printers`: lists the printer list, adds or removes a printer, or edits its settings.
struct PrintersCommand {
    // The printer to add, with its language (empty: taken from the settings file), destination,
    // description and settings file (empty: the language's defaults).
    std::optional<std::string> add;
    std::string language;
    std::string destination;
    std::string description;
    std::string settingsPath;
    // The printer to remove.
    std::optional<std::string> remove;
    // The printer whose settings to edit in its language's dialog.
    std::optional<std::string> edit;
    bool quiet = false;

    // Runs the command; the exit status.
    int Run() const;

  private:
    int List() const;
    int Add() const;
    int Remove() const;
    int Edit() const;
};
