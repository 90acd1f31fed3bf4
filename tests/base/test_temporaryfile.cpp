#include "base/paths.h"
#include "base/processmark.h"
#include "base/temporaryfile.h"
#include "support/childprocess.h"
#include "support/tempfolder.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace fs = std::filesystem;

/// A process that has made a temporary file beside `target` and waits.
static bool makeandwait(const std::string& target, const Milestone& made)
{
    const TemporaryFile file(target, 0600);
    if (file.good() && made.reach())
        ::pause();
    return false;
}

static bool keepwriting(const std::string& target)
{
    for (;;)
        for (const char letter : {'a', 'b'})
            writefile(target, std::string(20000, letter));
}

TEST(ProcessMark, OfALivingProcessIsNotDead)
{
    EXPECT_FALSE(markofdead(processmark()));
    EXPECT_NE(processmark(), processmark());
}

TEST(ProcessMark, IsDeadOnceItsProcessHasEnded)
{
    const TempFolder disk;
    ChildProcess child([&] { return writefile(disk.path("mark"), processmark()); });
    child.wait();
    EXPECT_TRUE(markofdead(disk.content("mark"))) << disk.content("mark");
}

TEST(ProcessMark, OfAnEarlierStartOfTheMachineIsDead)
{
    std::string mark = processmark();
    mark.replace(9, 8, "00000000");
    EXPECT_TRUE(markofdead(mark));
}

TEST(ProcessMark, OfTheSameNumberButAnotherStartIsDead)
{
    std::string mark = processmark();
    mark.insert(mark.find('.') + 1, "9");
    EXPECT_TRUE(markofdead(mark));
}

TEST(ProcessMark, OfAnotherMachineAndOtherTextsAreLeftAlone)
{
    std::string mark = processmark();
    mark.replace(0, 8, "00000000");
    EXPECT_FALSE(markofdead(mark));
    const std::string machine = processmark().substr(0, 9);
    for (const std::string& text :
         {std::string(), machine, machine + "00000000", machine + "00000000-1-1",
          machine + "00000000-x.1-1", machine + "00000000-1.1-x", machine + "00000000-1.1"})
        EXPECT_FALSE(markofdead(text)) << text;
}

TEST(TemporaryFiles, OfAKilledProcessAreRemovedByTheNextWriterBeside)
{
    const TempFolder disk;
    const Milestone made;
    ChildProcess child([&] { return makeandwait(disk.path("a.map"), made); });
    ASSERT_TRUE(made.await());
    child.kill(SIGKILL);
    EXPECT_EQ(disk.count(), 1U) << "it could do nothing about it";
    disk.makefile(".velmora-notes.tmp");
    EXPECT_TRUE(writefile(disk.path("b.map"), "new"));
    EXPECT_EQ(disk.count(), 2U);
    EXPECT_TRUE(fs::exists(disk.path(".velmora-notes.tmp")));
}

TEST(TemporaryFiles, OfALivingProcessStay)
{
    const TempFolder disk;
    const Milestone made;
    ChildProcess child([&] { return makeandwait(disk.path("a.map"), made); });
    ASSERT_TRUE(made.await());
    EXPECT_TRUE(writefile(disk.path("b.map"), "new"));
    EXPECT_EQ(disk.count(), 2U);
}

TEST(TemporaryFiles, AreRemovedByAnInterruption)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const TempFolder disk;
        const Milestone made;
        ChildProcess child([&] {
            std::signal(signal, SIG_DFL);
            cleanuponsignals();
            return makeandwait(disk.path("a.map"), made);
        });
        ASSERT_TRUE(made.await());
        EXPECT_EQ(disk.count(), 1U);
        const int status = child.kill(signal);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
        EXPECT_EQ(disk.count(), 0U);
    }
}

TEST(TemporaryFiles, ASignalThatTheCallerIgnoresStaysIgnored)
{
    EXPECT_TRUE(asnobody([] {
        std::signal(SIGHUP, SIG_IGN);
        cleanuponsignals();
        std::raise(SIGHUP);
        return true;
    }));
}

TEST(TemporaryFiles, AnInterruptionWaitsForAFileThatIsWrittenInPlace)
{
    const TempFolder disk;
    ChildProcess child([&] {
        std::signal(SIGTERM, SIG_DFL);
        cleanuponsignals();
        {
            const HoldSignals hold;
            std::raise(SIGTERM);
            disk.makefile("whole");
        }
        disk.makefile("too late");
        return true;
    });
    const int status = child.wait();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    EXPECT_TRUE(fs::exists(disk.path("whole")));
    EXPECT_FALSE(fs::exists(disk.path("too late")));
}

TEST(TemporaryFiles, KillsAtAnyMomentLeaveAWholeFileAndNothingAfterTheNextWrite)
{
    std::mt19937 random(11);
    std::uniform_int_distribution<int> wait_us(500, 6000);
    for (int round = 0; round < 25; ++round) {
        const TempFolder disk;
        const std::string path = disk.makefile("a.map", std::string(20000, 'a'));
        ChildProcess child([&] { return keepwriting(path); });
        std::this_thread::sleep_for(std::chrono::microseconds(wait_us(random)));
        child.kill(SIGKILL);
        const std::string content = disk.content("a.map");
        EXPECT_EQ(content, std::string(20000, content[0]));
        EXPECT_TRUE(writefile(path, "new"));
        EXPECT_EQ(disk.count(), 1U);
    }
}
