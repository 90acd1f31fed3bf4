#include "base/numbers.h"
#include "base/paths.h"
#include "network/netfile.h"
#include "network/recovery.h"
#include "support/tempfolder.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{

/// Runs the program that edits, copies and saves, and kills it after a while. What it told.
std::string runandkill(const std::string& folder, std::chrono::microseconds life)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return {};
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execl(RECOVERY_VICTIM, RECOVERY_VICTIM, folder.c_str(), nullptr);
        ::_exit(127);
    }
    ::close(ends[1]);
    std::string told;
    char part[4096];
    ssize_t got = ::read(ends[0], part, sizeof part); // it is at work
    std::this_thread::sleep_for(life);
    ::kill(child, SIGKILL);
    for (; got > 0; got = ::read(ends[0], part, sizeof part))
        told.append(part, static_cast<std::size_t>(got));
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return told;
}

/// The last number that a line of this kind told; 0: none.
int lasttold(const std::string& told, const std::string& what)
{
    int last = 0;
    std::istringstream lines(told);
    std::string word;
    int number = 0;
    while (lines >> word >> number)
        if (word == what)
            last = number;
    return last;
}

/// The number of the edit that a network holds in each station; 0 where they differ.
int editin(const std::string& bytes)
{
    auto tables = std::make_unique<NetworkTables>(defaulttables());
    NetFile file;
    if (parsenet(asbytes(bytes), *tables, file) != NetStatus::ok)
        return 0;
    const std::string first = tables->units[1].name.text();
    for (std::size_t i = 2; i <= MAXUNIT; ++i)
        if (tables->units[i].name.text() != first)
            return 0;
    return std::atoi(first.c_str());
}

} // namespace

TEST(RecoveryKills, FileAndCopyTogetherHoldAllThatWasDone)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> microseconds(0, 25000);
    int recovered = 0;
    for (int round = 0; round < 200; ++round) {
        const TempFolder disk;
        const std::string told =
            runandkill(disk.path(), std::chrono::microseconds(microseconds(random)));
        ASSERT_FALSE(told.empty());
        int infile = 0;
        if (const auto content = readfile(disk.path("work.net"))) {
            infile = editin(*content);
            ASSERT_GT(infile, 0) << "the file is a mixture";
            ASSERT_EQ(infile % 7, 0);
        }
        ASSERT_GE(infile, lasttold(told, "saved"));
        const auto copies = leftcopies(disk.path("recovery/"));
        ASSERT_LE(copies.size(), 1U);
        int incopy = 0;
        if (!copies.empty()) {
            ++recovered;
            incopy = editin(copies.front().net.bytes);
            ASSERT_GT(incopy, 0) << "the copy is a mixture";
            // A path is kept in lower case, which reaches the same file.
            ASSERT_EQ(lowercase(copies.front().net.netfile), lowercase(disk.path("work.net")));
            ASSERT_EQ(copies.front().net.stations, MAXUNIT);
        }
        ASSERT_GE(std::max(infile, incopy), lasttold(told, "copied"));
    }
    EXPECT_GT(recovered, 100) << "the kills came too early to say anything";
}
