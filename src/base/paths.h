#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Folder part of a path: the trimmed path up to and including its last "\", "/" or ":". A path
/// without any of these gives an empty text.
std::string pathof(std::string_view path);

/// File part of a path: what stands behind its last "\", "/" or ":".
std::string nameof(std::string_view path);

/// The system's temporary folder with its trailing separator; empty if the system has none.
std::string tempdir();

/// The path of a name as users write it: one double quote at either end dropped, then trimmed.
std::string unquoted(std::string_view path);

/// An existing file for a name whose case, and whose separators, may differ from the disk's: the
/// name as given, then in lower case, then folder by folder without regard to case. Empty when
/// there is none. A folder is not a file.
std::optional<std::string> findfile(std::string_view path);

/// The name under which a path stays in memory, trimmed: in lower case, as the formats say; as it
/// is given where lower case names another file ("Nord.net" beside "nord.net").
std::string keptname(std::string_view path);

/// The path of a file from the root; one that begins with a drive letter or a separator stays.
std::string fullpath(std::string_view path);

/// True for a path that begins at a root, of this system or of one with drives.
bool isfullpath(std::string_view path);

/// The path to write a file to: an existing file by the rule of `findfile`; else the file part of
/// the name, as given, in its folder found by the same rule; else the name as it stands.
std::string targetpath(std::string_view path);

/// The user's data folder, with its trailing separator, where the program writes its own files:
/// VELMORA_HOME, or $XDG_DATA_HOME/velmora, or ~/.local/share/velmora. Created when first asked
/// for.
std::string userfolder();

/// The folder of the data files that come with the program, with its trailing separator.
std::string shippedfolder();
/// Sets the shipped folder (the programs do so at their start, tests to a folder of their own).
void setshippedfolder(std::string_view folder);
/// Uses this folder for the program's own files, for reading and writing, in place of both folders
/// above (velmora-cli --data).
void setprogramfolder(std::string_view folder);

/// A data file of the program by its name: the user's folder first, then the shipped one.
std::optional<std::string> findprogramfile(std::string_view name);

/// All bytes of a file; empty when it cannot be read.
///   limit: at most so many bytes are read
std::optional<std::string> readfile(const std::string& path, std::size_t limit = SIZE_MAX);

/// Views text bytes as the readers take them.
inline std::span<const std::byte> asbytes(std::string_view text)
{
    return std::as_bytes(std::span(text.data(), text.size()));
}

/// Writes a file as a whole: into a temporary file beside it, flushed to the disk, then renamed
/// over it, so that a crash or a full disk leaves the old file whole. Several parts are written one
/// after the other. False, with nothing left behind, when any step fails; `why` then tells the
/// system's reason. An existing file keeps its owner, group, permissions, access list and extended
/// attributes, a symbolic link its target. A file that would lose one of these, that has several
/// names, or whose folder takes no new file is written in place, with a copy of its old bytes in
/// the user's data folder until that is done.
bool writefile(const std::string& path, std::span<const std::string_view> parts,
               std::string* why = nullptr);
bool writefile(const std::string& path, std::string_view content, std::string* why = nullptr);

/// True when this thread's last `writefile` has written the file, but could keep neither what
/// belongs to it nor a copy that would have let it be written in place.
bool attributeslost();
/// The same in words for the status line, to stand behind "a été enregistré"; empty when nothing
/// was lost.
std::string lostnote();
