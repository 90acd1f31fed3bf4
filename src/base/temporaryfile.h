#pragma once

#include "base/openfile.h"

#include <string>
#include <sys/types.h>

/// A new file beside a target, to be renamed over it once it is whole. It is removed when it is not
/// renamed. Those that ended processes of this machine have left in the target's folder are removed
/// by the first one that is made there.
class TemporaryFile
{
public:
    TemporaryFile(const std::string& target, mode_t mode);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    /// False when it could not be made; `error` then has the system's number.
    bool good() const { return file.good(); }
    int error() const { return reason; }
    int get() const { return file.get(); }
    /// Flushes it to the disk and renames it. 0, or the system's error number.
    int replace(const std::string& target);

private:
    std::string path;
    int slot; ///< in the list of what a signal removes
    OpenFile file;
    int reason;
};

/// Lets an interruption of the program (SIGINT, SIGTERM, SIGHUP) remove its temporary files before
/// it ends the program as it would have.
void cleanuponsignals();

/// Puts an interruption off while it lives: a file that is written in place is written to its end.
class HoldSignals
{
public:
    HoldSignals();
    HoldSignals(const HoldSignals&) = delete;
    HoldSignals& operator=(const HoldSignals&) = delete;
    ~HoldSignals();
};
