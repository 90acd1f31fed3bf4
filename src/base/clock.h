#pragma once

#include <ctime>
#include <string>

/// The present moment; replaced by tests.
extern std::time_t (*presenttime)();

/// Local date and time of day as reports show them: 2024-05-31 and 17:05:09.
std::string datetext();
std::string timetext();
