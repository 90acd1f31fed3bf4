#pragma once

#include <functional>
#include <string>
#include <vector>

/// One of several kinds of files that a name may be asked for.
struct FileFilter {
    std::string filter;
    std::string patterns;
    std::string extension;
};

/// What the user is asked for when a file is opened or saved. All texts UTF-8.
struct FileQuestion {
    std::string title;
    std::string filter;         ///< as "Fichier carte (MAP)"
    std::string patterns;       ///< as "*.map", or several separated by blanks
    std::string offered = {};   ///< name that the dialog opens with
    bool saving = false;        ///< ask for a name to write, which need not exist
    std::string extension = {}; ///< appended to a name without one, when saving
    /// Kinds to choose from, in place of the one above. Who asks so minds the name's ending, and
    /// asks before a file is replaced.
    std::vector<FileFilter> kinds = {};
    std::string* chosen = nullptr; ///< receives the extension of the chosen kind
};

/// Asks for a file name; empty when the user gives up. Tests put their own answer here.
extern std::function<std::string(const FileQuestion&)> askfilename;

/// The dialog of the desktop behind `askfilename`.
std::string filedialog(const FileQuestion& question);
