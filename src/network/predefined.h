#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// A radio system as radiosys.dat offers it: the texts of its six lines without the blanks around
/// them, in UTF-8. The numbers are taken as if the user had typed them.
struct PredefinedSystem {
    std::string name;
    std::string power;     ///< W
    std::string threshold; ///< receiver threshold, microvolts
    std::string lineloss;  ///< dB
    std::string gain;      ///< dBi
    std::string height;    ///< m

    bool operator==(const PredefinedSystem&) const = default;
};

/// Names of the systems in the bytes of such a file, in Windows-1252, in its order. The file's end
/// ends the list: lines that make no whole entry are left out, and so is an entry without a name.
std::vector<std::string> predefinednames(std::span<const std::byte> bytes);

/// The first entry of this name; nothing when the file has none.
std::optional<PredefinedSystem> findpredefined(std::span<const std::byte> bytes,
                                               const std::string& name);

/// The same from the program's radiosys.dat, read anew each time; it may be missing.
std::vector<std::string> predefinednames();
std::optional<PredefinedSystem> findpredefined(const std::string& name);
