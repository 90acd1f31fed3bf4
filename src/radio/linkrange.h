#pragma once

#include "radio/link.h"

#include <optional>

/// Level below the threshold, dB, at which the range of a link ends.
inline constexpr double rangelevel_db = -1;

/// Where a link begins to fail: the first sample whose reception is not above -1 dB, its last
/// sample when there is none. Nothing when no losses were computed or the link has no profile.
std::optional<int> rangesample(const Link& link);
