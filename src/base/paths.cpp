#include "base/paths.h"

#include "base/numbers.h"
#include "base/programpath.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

/// Splits a trimmed path behind its last separator.
static std::size_t splitpoint(std::string_view path)
{
    const std::size_t last = path.find_last_of("\\/:");
    return last == std::string_view::npos ? 0 : last + 1;
}

std::string pathof(std::string_view path)
{
    const std::string whole = trimmed(path);
    return whole.substr(0, splitpoint(whole));
}

std::string nameof(std::string_view path)
{
    const std::string whole = trimmed(path);
    return whole.substr(splitpoint(whole));
}

static std::string asfolder(std::string folder)
{
    if (!folder.empty() && folder.back() != '/')
        folder += '/';
    return folder;
}

std::string tempdir()
{
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    return error ? std::string() : asfolder(folder.string());
}

std::string unquoted(std::string_view path)
{
    if (path.ends_with('"'))
        path.remove_suffix(1);
    if (path.starts_with('"'))
        path.remove_prefix(1);
    return trimmed(path);
}

static bool isfile(const std::string& path)
{
    std::error_code error;
    return fs::exists(path, error) && !fs::is_directory(path, error);
}

static bool isfolder(const std::string& path)
{
    std::error_code error;
    return fs::is_directory(path, error);
}

static std::string withslashes(std::string_view path)
{
    std::string slashed(path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return slashed;
}

/// Entries of a folder whose names differ from this one only in the case of letters, sorted.
static std::vector<std::string> likenames(const std::string& folder, std::string_view name)
{
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::string found = entry->path().filename().string();
        if (found != name && sametext(found, name))
            names.push_back(std::move(found));
    }
    std::sort(names.begin(), names.end());
    return names;
}

using PathTest = bool (*)(const std::string&);

/// Continues `start` (empty or ending in a separator) by `rest`, one name at a time without regard
/// to case, the exact name first, to a path that passes the test.
static std::optional<std::string> walk(const std::string& start, std::string_view rest,
                                       PathTest wanted)
{
    rest.remove_prefix(std::min(rest.find_first_not_of('/'), rest.size()));
    if (rest.empty())
        return wanted(start) ? std::optional(start) : std::nullopt;
    const std::string name(rest.substr(0, rest.find('/')));
    rest.remove_prefix(name.size());
    const auto follow = [&](const std::string& step) -> std::optional<std::string> {
        const std::string path = start + step;
        if (rest.find_first_not_of('/') == std::string_view::npos)
            return wanted(path) ? std::optional(path) : std::nullopt;
        return isfolder(path) ? walk(path + '/', rest, wanted) : std::nullopt;
    };
    if (auto found = follow(name))
        return found;
    if (name == "." || name == "..")
        return std::nullopt;
    for (const std::string& like : likenames(start, name))
        if (auto found = follow(like))
            return found;
    return std::nullopt;
}

static std::optional<std::string> findpath(std::string_view path, PathTest wanted)
{
    const std::string given(path);
    if (given.empty() || given.find('\0') != std::string::npos)
        return std::nullopt;
    if (wanted(given))
        return given;
    const std::string slashed = withslashes(given);
    for (const std::string& form : {slashed, lowercase(slashed)})
        if (wanted(form))
            return form;
    return walk(slashed.starts_with('/') ? "/" : "", slashed, wanted);
}

std::optional<std::string> findfile(std::string_view path)
{
    return findpath(path, isfile);
}

std::string keptname(std::string_view path)
{
    const std::string given = trimmed(path);
    std::string lower = lowercase(given);
    const auto meant = findfile(given);
    const auto reached = findfile(lower);
    std::error_code error;
    const bool other = meant && (!reached || !fs::equivalent(*meant, *reached, error));
    return other ? given : lower;
}

bool isfullpath(std::string_view path)
{
    return path.starts_with('/') || path.starts_with('\\') ||
           path.substr(std::min<std::size_t>(path.size(), 1)).starts_with(':');
}

std::string fullpath(std::string_view path)
{
    std::error_code error;
    const fs::path here = fs::current_path(error);
    if (path.empty() || isfullpath(path) || error)
        return std::string(path);
    return asfolder(here.string()) + std::string(path);
}

std::string targetpath(std::string_view path)
{
    if (auto existing = findfile(path))
        return *existing;
    std::string slashed = withslashes(path);
    const std::size_t split = slashed.rfind('/');
    if (split == std::string::npos || split == 0)
        return slashed;
    const auto folder = findpath(slashed.substr(0, split), isfolder);
    return folder ? asfolder(*folder) + slashed.substr(split + 1) : std::string(path);
}

static std::string programfolder;
static std::string shipped = besideprogram(VELMORA_DATA_FOLDER);

static std::string environment(const char* name)
{
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nothing sets it
    return value == nullptr ? std::string() : value;
}

static std::string userfolderpath()
{
    if (!programfolder.empty())
        return programfolder;
    if (const std::string home = environment("VELMORA_HOME"); !home.empty())
        return asfolder(home);
    if (const std::string data = environment("XDG_DATA_HOME"); !data.empty())
        return asfolder(data) + "velmora/";
    if (const std::string home = environment("HOME"); !home.empty())
        return asfolder(home) + ".local/share/velmora/";
    return tempdir() + "velmora/";
}

std::string userfolder()
{
    std::string folder = userfolderpath();
    std::error_code error; // a folder that cannot be made shows when it is written to
    fs::create_directories(folder, error);
    return folder;
}

std::string shippedfolder()
{
    return programfolder.empty() ? shipped : programfolder;
}

void setshippedfolder(std::string_view folder)
{
    shipped = asfolder(std::string(folder));
}

void setprogramfolder(std::string_view folder)
{
    programfolder = asfolder(std::string(folder));
}

std::optional<std::string> findprogramfile(std::string_view name)
{
    if (name.empty())
        return std::nullopt;
    if (auto own = findfile(userfolderpath() + std::string(name)))
        return own;
    return findfile(shippedfolder() + std::string(name));
}
