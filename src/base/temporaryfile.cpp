#include "base/temporaryfile.h"

#include "base/processmark.h"

#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <set>
#include <sys/file.h>
#include <system_error>

namespace fs = std::filesystem;

namespace
{
constexpr std::string_view prefix = ".velmora-";
constexpr std::string_view suffix = ".tmp";

/// What a signal removes. The handler may run at any moment, so each name has its own place that is
/// never freed, and a state that says whether the name is whole.
struct Slot {
    std::atomic<int> state{0}; ///< 0 free, 1 being filled, 2 to be removed
    std::array<char, PATH_MAX> path{};
};
std::array<Slot, 32> slots;
std::atomic<int> held{0};
std::atomic<int> waitingsignal{0};

int enter(const std::string& path)
{
    for (std::size_t i = 0; i < slots.size(); ++i) {
        int expected = 0;
        if (path.size() >= slots[i].path.size() ||
            !slots[i].state.compare_exchange_strong(expected, 1))
            continue;
        std::memcpy(slots[i].path.data(), path.c_str(), path.size() + 1);
        slots[i].state = 2;
        return static_cast<int>(i);
    }
    return -1; // the next run removes it
}

void leave(int slot)
{
    if (slot >= 0)
        slots[static_cast<std::size_t>(slot)].state = 0;
}

extern "C" void interrupted(int signal)
{
    if (held > 0) {
        waitingsignal = signal;
        return;
    }
    for (const Slot& slot : slots)
        if (slot.state == 2)
            ::unlink(slot.path.data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

std::string folderof(const std::string& target)
{
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    return folder.empty() ? "./" : folder;
}

/// Name of a new file in the target's folder, from the root: a signal may come after the current
/// folder has changed.
std::string newname(const std::string& target)
{
    std::error_code error;
    const fs::path folder = fs::absolute(folderof(target), error);
    const std::string start = error ? folderof(target) : folder.string();
    return start + std::string(prefix) + processmark() + std::string(suffix);
}

/// Removes a leftover unless its maker, in whatever room of this machine, still holds it.
void removeleftover(const std::string& path)
{
    const OpenFile file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    if (file.good() && ::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return;
    ::unlink(path.c_str());
}

void removeleftovers(const std::string& folder)
{
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(prefix) || !name.ends_with(suffix))
            continue;
        std::string_view mark = name;
        mark.remove_prefix(prefix.size());
        mark.remove_suffix(suffix.size());
        if (markofdead(mark))
            removeleftover(entry->path().string());
    }
}

/// Looks through each folder once in a run.
void cleanfolder(const std::string& path)
{
    static std::mutex lock;
    static std::set<std::string> clean;
    const std::string folder = folderof(path);
    const std::scoped_lock guard(lock);
    if (clean.insert(folder).second)
        removeleftovers(folder);
}
} // namespace

TemporaryFile::TemporaryFile(const std::string& target, mode_t mode)
    : path(newname(target)), slot(enter(path)), file(path, O_WRONLY | O_CREAT | O_EXCL, mode),
      reason(file.good() ? 0 : errno)
{
    if (!file.good())
        return;
    ::flock(file.get(), LOCK_EX | LOCK_NB); // a file system without locks goes by the mark alone
    cleanfolder(path);
}

TemporaryFile::~TemporaryFile()
{
    if (file.good())
        ::unlink(path.c_str());
    leave(slot);
}

int TemporaryFile::replace(const std::string& target)
{
    if (::fsync(file.get()) != 0 || ::rename(path.c_str(), target.c_str()) != 0)
        return errno;
    leave(slot);
    slot = -1;
    file.close();
    flushfolder(target);
    return 0;
}

void cleanuponsignals()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        // What the caller ignores (nohup does so with SIGHUP) stays ignored.
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = interrupted;
        ::sigfillset(&action.sa_mask);
        ::sigaction(signal, &action, nullptr);
    }
}

HoldSignals::HoldSignals()
{
    ++held;
}

HoldSignals::~HoldSignals()
{
    if (--held == 0)
        if (const int signal = waitingsignal.exchange(0); signal != 0)
            std::raise(signal);
}
