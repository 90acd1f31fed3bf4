#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

/// A folder of a test's own, removed with all it holds when the test ends.
class TempFolder
{
public:
    TempFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "velmora-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        folder = name + "/";
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(folder, error);
    }

    /// The folder, or something in it, with the trailing separator of the folder.
    std::string path(std::string_view name = {}) const { return folder + std::string(name); }

    std::string makefolder(std::string_view name) const
    {
        std::filesystem::create_directories(path(name));
        return path(name) + "/";
    }
    std::string makefile(std::string_view name, std::string_view content = "x") const
    {
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    }
    std::string content(std::string_view name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    /// Number of entries, hidden ones included.
    std::size_t count() const
    {
        const std::filesystem::directory_iterator entries(folder);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

private:
    std::string folder;
};
