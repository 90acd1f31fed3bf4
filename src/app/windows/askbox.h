#pragma once

#include "base/hooks.h"

/// Asks the user in a modal box under the program's title, and waits. The one place that opens a
/// box; all else asks through `hooks.askuser`.
Answer askbox(const Question& question);
