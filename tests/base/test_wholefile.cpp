#include "base/paths.h"
#include "support/tempfolder.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

TEST(ReadFile, GivesAllBytesUpToTheLimit)
{
    const TempFolder disk;
    const std::string path = disk.makefile("a", std::string("a\0b", 3));
    EXPECT_EQ(readfile(path), std::string("a\0b", 3));
    EXPECT_EQ(readfile(path, 2), std::string("a\0", 2));
    EXPECT_EQ(readfile(disk.makefile("empty", "")), "");
}

TEST(ReadFile, GivesNothingForWhatIsNoFile)
{
    const TempFolder disk;
    EXPECT_EQ(readfile(disk.path("missing")), std::nullopt);
    EXPECT_EQ(readfile(disk.path()), std::nullopt);
    EXPECT_EQ(readfile("/dev/zero"), std::nullopt);
    ASSERT_EQ(::mkfifo(disk.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(readfile(disk.path("pipe")), std::nullopt); // and does not wait for a writer
}

TEST(WriteFile, WritesPartsOneAfterTheOtherAndLeavesNothingElse)
{
    const TempFolder disk;
    const std::string_view parts[] = {"head ", "", "tail"};
    EXPECT_TRUE(writefile(disk.path("a.net"), parts));
    EXPECT_EQ(disk.content("a.net"), "head tail");
    EXPECT_TRUE(writefile(disk.path("a.net"), "short"));
    EXPECT_EQ(disk.content("a.net"), "short");
    EXPECT_EQ(disk.count(), 1U);
}

TEST(WriteFile, KeepsThePermissionsOfTheFileItReplaces)
{
    const TempFolder disk;
    const std::string path = disk.makefile("a.net");
    fs::permissions(path, fs::perms(0640));
    EXPECT_TRUE(writefile(path, "new"));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST(WriteFile, ANewFileHasTheUsualPermissions)
{
    const TempFolder disk;
    const mode_t mask = ::umask(0027);
    EXPECT_TRUE(writefile(disk.path("a.net"), "new"));
    ::umask(mask);
    EXPECT_EQ(fs::status(disk.path("a.net")).permissions(), fs::perms(0640));
}

TEST(WriteFile, ASymbolicLinkStaysAndItsTargetIsReplaced)
{
    const TempFolder disk;
    disk.makefolder("real");
    disk.makefile("real/a.net", "old");
    fs::create_symlink("real/a.net", disk.path("link.net"));
    fs::create_symlink("real/b.net", disk.path("dangling.net"));
    EXPECT_TRUE(writefile(disk.path("link.net"), "new"));
    EXPECT_TRUE(writefile(disk.path("dangling.net"), "made"));
    EXPECT_TRUE(fs::is_symlink(disk.path("link.net")));
    EXPECT_TRUE(fs::is_symlink(disk.path("dangling.net")));
    EXPECT_EQ(disk.content("real/a.net"), "new");
    EXPECT_EQ(disk.content("real/b.net"), "made");
}

TEST(WriteFile, TellsWhyItFails)
{
    const TempFolder disk;
    std::string why;
    EXPECT_FALSE(writefile(disk.path("missing/a.net"), "new", &why));
    EXPECT_EQ(why, "No such file or directory");
    EXPECT_FALSE(writefile(disk.path(), "new", &why));
    EXPECT_EQ(why, "Is a directory");
    EXPECT_FALSE(writefile("", "new", &why));
    EXPECT_FALSE(writefile(disk.makefile("file") + "/a.net", "new", &why));
    EXPECT_EQ(why, "Not a directory");
}

TEST(WriteFile, AFullDiskLeavesTheOldFileWholeAndNothingBeside)
{
    const TempFolder disk;
    const std::string path = disk.makefile("a.net", "old and whole");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{4096, before.rlim_max};
    const auto oldhandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    std::string why;
    const bool written = writefile(path, std::string(10000, 'n'), &why);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, oldhandler);
    EXPECT_FALSE(written);
    EXPECT_EQ(why, "File too large");
    EXPECT_EQ(disk.content("a.net"), "old and whole");
    EXPECT_EQ(disk.count(), 1U);
}

TEST(WriteFile, ADeviceIsWrittenToAndStays)
{
    EXPECT_TRUE(writefile("/dev/null", "gone"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}
