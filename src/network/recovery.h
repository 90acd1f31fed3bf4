#pragma once

#include "network/netfile.h"
#include "network/tables.h"

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <future>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// The bytes of a recovery copy: a .net file that any reader of networks takes, and behind it the
/// path of the network's own file.
std::string recoverybytes(const NetworkTables& tables, const std::string& map,
                          const std::vector<std::string>& pictures, const std::string& netfile);

/// What a recovery copy holds.
struct RecoveredNet {
    std::string netfile; ///< path of the network's own file, UTF-8; it may not exist
    std::string bytes;   ///< of the .net file
    int stations = 0;    ///< that have a place
};
/// Reads the bytes of a recovery copy; empty where they are none, or not a whole one.
std::optional<RecoveredNet> parserecovery(std::span<const std::byte> bytes);

/// Name of a copy that this process makes, without folder. It carries the machine and the process.
std::string recoveryname();
/// True for the name of a copy whose process has ended; false for any other name, and while it is
/// not certain.
bool isleftcopy(std::string_view name);

/// The copies that processes of this machine left behind when they were stopped.
struct LeftCopy {
    std::string file;      ///< path of the copy
    std::time_t saved = 0; ///< when it was written
    RecoveredNet net;
};
/// Those in a folder, the latest first. A copy that says no more than the network's own file is
/// removed on the way.
std::vector<LeftCopy> leftcopies(const std::string& folder);

/// Keeps a copy of the network of this run in a folder while it has changes that are in no file.
/// The bytes are built by whoever calls, in well under a millisecond; another thread writes them.
class RecoveryKeeper
{
public:
    /// Seconds between a change and its copy: in a quiet moment, and at most.
    static constexpr double quietdelay_s = 5;
    static constexpr double longestdelay_s = 25;

    /// folder: with its trailing separator; made when first written to
    explicit RecoveryKeeper(std::string folder);
    RecoveryKeeper(const RecoveryKeeper&) = delete;
    RecoveryKeeper& operator=(const RecoveryKeeper&) = delete;
    /// Leaves the copy where it is.
    ~RecoveryKeeper();

    /// Looks whether the copy must be written or removed; called a few times a second.
    ///   now_s  a clock that only goes forward
    ///   quiet  the user is in the middle of nothing
    /// True when it begins to write.
    bool step(double now_s, bool quiet);
    /// Brings the copy up to date and waits until it is on the disk. False where that failed.
    bool writenow();
    /// Removes the copy.
    void drop();
    /// The last writing failed, and none since then succeeded.
    bool failed() const { return lastfailed; }

    const std::string& path() const { return file; }

private:
    bool busy();
    void finish();
    bool start();

    std::string file;
    std::string content; ///< what the copy holds, or will hold once the writing has ended
    std::future<bool> writing;
    std::optional<double> looked_s; ///< when the tables were last compared with it
    bool lastfailed = false;
};
