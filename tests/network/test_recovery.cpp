#include "base/hooks.h"
#include "base/paths.h"
#include "base/session.h"
#include "network/recovery.h"
#include "network/unsaved.h"
#include "support/tempfolder.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

/// The name of a copy that a process has made which has ended.
std::string deadname()
{
    int ends[2] = {};
    EXPECT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string name = recoveryname();
        ::_exit(::write(ends[1], name.data(), name.size()) < 0);
    }
    ::close(ends[1]);
    char name[256] = {};
    const ssize_t length = ::read(ends[0], name, sizeof name);
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return {name, static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

class Recovery : public testing::Test
{
protected:
    void SetUp() override
    {
        resethooks();
        session = Session();
        session.netfile = disk.path("work.net");
        network = defaulttables();
        marksaved();
    }
    void TearDown() override
    {
        marksaved();
        network = defaulttables();
        session = Session();
    }
    static void edit(const char* name)
    {
        network.units[1].name.assign(name);
        network.units[1].lon = network.units[1].lat = 5;
        markedited();
    }
    std::string leave(const std::string& name) const
    {
        const std::string bytes = recoverybytes(network, "a.map", {"p.bmp"}, session.netfile);
        disk.makefolder("r");
        return disk.makefile("r/" + name, bytes);
    }
    static std::string nameheld(const std::string& path)
    {
        const auto net = parserecovery(asbytes(readfile(path).value_or("")));
        auto tables = defaulttables();
        NetFile file;
        if (!net || parsenet(asbytes(net->bytes), tables, file) != NetStatus::ok)
            return {};
        return tables.units[1].name.text();
    }

    TempFolder disk;
};

} // namespace

TEST_F(Recovery, ACopyHoldsTheNetworkAndItsPath)
{
    edit("Nord");
    const std::string bytes = recoverybytes(network, "a.map", {"p.bmp"}, "/où/ça.net");
    const auto net = parserecovery(asbytes(bytes));
    ASSERT_TRUE(net);
    EXPECT_EQ(net->netfile, "/où/ça.net");
    EXPECT_EQ(net->stations, 1);
    EXPECT_EQ(net->bytes, netbytes(network, "a.map", {"p.bmp"}));
}

TEST_F(Recovery, ACopyCanBeOpenedAsANetworkByHand)
{
    edit("Nord");
    auto tables = defaulttables();
    NetFile file;
    const std::string bytes = recoverybytes(network, "a.map", {}, "/a.net");
    EXPECT_EQ(parsenet(asbytes(bytes), tables, file), NetStatus::ok);
    EXPECT_TRUE(tables == network);
}

TEST_F(Recovery, WhatIsNoWholeCopyIsNone)
{
    const std::string bytes = recoverybytes(network, "a.map", {}, "/a.net");
    for (std::size_t cut = 0; cut < bytes.size(); cut += 97)
        EXPECT_FALSE(parserecovery(asbytes(bytes.substr(0, cut))));
    EXPECT_FALSE(parserecovery(asbytes(netbytes(network, "a.map", {}))));
    std::string longer = bytes;
    longer[longer.size() - 9] = '\x7f'; // the path's length
    EXPECT_FALSE(parserecovery(asbytes(longer)));
}

TEST_F(Recovery, ANameTellsWhetherItsProcessHasEnded)
{
    EXPECT_TRUE(isleftcopy(deadname()));
    EXPECT_FALSE(isleftcopy(recoveryname()));
    EXPECT_NE(deadname(), deadname());
    for (const char* name : {"", "net-.net", "net.net", "work.net", "net-a-b-1.2-3.net"})
        EXPECT_FALSE(isleftcopy(name)) << name;
}

TEST_F(Recovery, CopiesOfDeadProcessesAreFoundLatestFirst)
{
    edit("Vieux");
    const std::string older = leave(deadname());
    fs::last_write_time(older, fs::file_time_type::clock::now() - std::chrono::hours(1));
    edit("Neuf");
    const std::string later = leave(deadname());
    leave(recoveryname());
    disk.makefile("r/notes.txt", "?");
    const auto copies = leftcopies(disk.path("r/"));
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_EQ(copies[0].file, later);
    EXPECT_EQ(copies[1].file, older);
    EXPECT_NEAR(std::difftime(copies[0].saved, copies[1].saved), 3600, 2);
    EXPECT_TRUE(leftcopies(disk.path("none/")).empty());
}

TEST_F(Recovery, CopiesThatSayNothingAreRemoved)
{
    edit("Nord");
    const std::string saved = leave(deadname());
    disk.makefile("work.net", netbytes(network, "a.map", {"p.bmp"}) + "older bytes");
    disk.makefile("r/" + deadname(), "damaged");
    EXPECT_TRUE(leftcopies(disk.path("r/")).empty());
    EXPECT_FALSE(fs::exists(saved));
    EXPECT_TRUE(fs::is_empty(disk.path("r")));
}

TEST_F(Recovery, ACopyIsWrittenInAQuietMoment)
{
    RecoveryKeeper keeper(disk.path("r/"));
    EXPECT_FALSE(keeper.step(100, true));
    edit("Nord");
    EXPECT_FALSE(keeper.step(101, true));
    EXPECT_FALSE(keeper.step(105.9, true));
    EXPECT_TRUE(keeper.step(106, true));
    EXPECT_TRUE(keeper.writenow());
    EXPECT_EQ(nameheld(keeper.path()), "Nord");
    EXPECT_FALSE(keeper.step(200, true)) << "nothing has changed since";
}

TEST_F(Recovery, ACopyIsWrittenInTimeWhileTheUserIsBusy)
{
    RecoveryKeeper keeper(disk.path("r/"));
    edit("Nord");
    double began_s = 0;
    while (!keeper.step(began_s, false))
        began_s += 0.2; // as the main timer does
    EXPECT_GT(began_s, RecoveryKeeper::quietdelay_s);
    EXPECT_LT(began_s, 30);
    EXPECT_TRUE(keeper.writenow());
    EXPECT_EQ(nameheld(keeper.path()), "Nord");
}

TEST_F(Recovery, ASaveRemovesTheCopy)
{
    RecoveryKeeper keeper(disk.path("r/"));
    edit("Nord");
    EXPECT_TRUE(keeper.writenow());
    EXPECT_TRUE(fs::exists(keeper.path()));
    ASSERT_TRUE(savenet(session.netfile));
    keeper.step(1, true);
    EXPECT_FALSE(fs::exists(keeper.path()));
    edit("Sud"); // and the next change makes one again
    EXPECT_TRUE(keeper.writenow());
    EXPECT_EQ(nameheld(keeper.path()), "Sud");
}

TEST_F(Recovery, TheEndOfAKeeperLeavesTheCopy)
{
    std::string path;
    {
        RecoveryKeeper keeper(disk.path("r/"));
        edit("Nord");
        keeper.writenow();
        path = keeper.path();
    }
    EXPECT_EQ(nameheld(path), "Nord");
}

TEST_F(Recovery, AFolderThatCannotBeMadeIsToldAndTriedAgain)
{
    disk.makefile("r", "a file stands here");
    RecoveryKeeper keeper(disk.path("r/"));
    edit("Nord");
    EXPECT_FALSE(keeper.writenow());
    EXPECT_TRUE(keeper.failed());
    fs::remove(disk.path("r"));
    EXPECT_TRUE(keeper.writenow());
    EXPECT_FALSE(keeper.failed());
}
