#pragma once

#include <functional>
#include <string>

/// What the user is asked for when a file is opened or saved. All texts UTF-8.
struct FileQuestion {
    std::string title;
    std::string filter;         ///< as "Fichier carte (MAP)"
    std::string patterns;       ///< as "*.map", or several separated by blanks
    std::string offered = {};   ///< name that the dialog opens with
    bool saving = false;        ///< ask for a name to write, which need not exist
    std::string extension = {}; ///< appended to a name without one, when saving
};

/// Asks for a file name; empty when the user gives up. Tests put their own answer here.
extern std::function<std::string(const FileQuestion&)> askfilename;

/// The dialog of the desktop behind `askfilename`.
std::string filedialog(const FileQuestion& question);
