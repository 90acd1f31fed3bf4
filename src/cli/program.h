#pragma once

/// Reads the command line and runs its command. Returns the exit status: 0 done, 1 the work failed,
/// 2 the command line is wrong.
int runprogram(int argc, const char* const* argv);
