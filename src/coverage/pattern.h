#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// Gain of an antenna in dB relative to its main direction, for 0, 1, ... 359 degrees clockwise
/// from the direction it points to.
using AntennaPattern = std::array<float, 360>;

/// The pattern that heads every list: the same gain all round.
inline constexpr const char* omnipattern = "omni.ant";

/// Pattern from the text of a pattern file: 360 numbers, each held within -100 to 100. Where the
/// text ends early, or holds something that is no number, the rest stays 0.
AntennaPattern parsepattern(std::string_view text);

/// Pattern of a file of the program's folder; a missing one gives an omnidirectional antenna.
AntennaPattern readpattern(const std::string& filename);

/// Gain towards an azimuth in degrees of an antenna that points to `antaz`.
float patterngain(const AntennaPattern& pattern, double azimuth_deg, double antaz_deg);

/// Names of the program's files that end in an extension (".ant"), in lower case, each once and in
/// order: those of the user's folder and those that come with the program.
std::vector<std::string> programfiles(std::string_view extension);

/// Entries of the pattern list: "omni.ant" first, then the other pattern files.
std::vector<std::string> patternfiles();
