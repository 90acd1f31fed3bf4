#include "base/inplace.h"
#include "base/paths.h"
#include "base/processmark.h"
#include "support/childprocess.h"
#include "support/tempfolder.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>

namespace fs = std::filesystem;

namespace
{
struct stat statusof(const std::string& path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status;
}

std::string attribute(const std::string& path, const char* name)
{
    char value[256];
    const ssize_t size = ::getxattr(path.c_str(), name, value, sizeof value);
    return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
}

/// The test's own user folder, which everybody may write to.
class FileAttributes : public testing::Test
{
protected:
    void SetUp() override
    {
        ::chmod(disk.path().c_str(), 0755);
        ::chmod(disk.makefolder("user").c_str(), 0777);
        setprogramfolder(disk.path("user"));
    }
    void TearDown() override { setprogramfolder(""); }

    /// A file of root's in a folder of its own that everybody may write to.
    std::string foreignfile(mode_t foldermode) const
    {
        const std::string folder = disk.makefolder("shared");
        const std::string path = disk.makefile("shared/a.net", "old and long");
        ::chmod(path.c_str(), 0666);
        ::chmod(folder.c_str(), foldermode);
        return path;
    }
    std::size_t copies() const
    {
        const auto folder = disk.path("user/copies");
        if (!fs::exists(folder))
            return 0;
        const fs::directory_iterator entries(folder);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

    TempFolder disk;
};
} // namespace

TEST_F(FileAttributes, OwnerAndGroupStay)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "only root gives files away";
    const std::string path = disk.makefile("a.net", "old");
    ASSERT_EQ(::chown(path.c_str(), 12345, 54321), 0);
    ::chmod(path.c_str(), 0664);
    EXPECT_TRUE(writefile(path, "new"));
    EXPECT_EQ(statusof(path).st_uid, 12345U);
    EXPECT_EQ(statusof(path).st_gid, 54321U);
    EXPECT_EQ(statusof(path).st_mode & 07777, 0664U);
    EXPECT_FALSE(attributeslost());
}

TEST_F(FileAttributes, ExtendedAttributesStay)
{
    const std::string path = disk.makefile("a.net", "old");
    if (::setxattr(path.c_str(), "user.note", "seen", 4, 0) != 0)
        GTEST_SKIP() << "this file system has no extended attributes";
    EXPECT_TRUE(writefile(path, "new"));
    EXPECT_EQ(attribute(path, "user.note"), "seen");
    EXPECT_EQ(disk.content("a.net"), "new");
}

TEST_F(FileAttributes, TheAccessListStays)
{
    const std::string path = disk.makefile("a.net", "old");
    // Version 2, then tag, permissions and number: owner, user 12345, group, mask, others.
    const unsigned char list[] = {2,  0, 0, 0,                         //
                                  1,  0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF, //
                                  2,  0, 4, 0, 0x39, 0x30, 0,    0,    //
                                  4,  0, 4, 0, 0xFF, 0xFF, 0xFF, 0xFF, //
                                  16, 0, 4, 0, 0xFF, 0xFF, 0xFF, 0xFF, //
                                  32, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF};
    if (::setxattr(path.c_str(), "system.posix_acl_access", list, sizeof list, 0) != 0)
        GTEST_SKIP() << "this file system has no access lists";
    const std::string before = attribute(path, "system.posix_acl_access");
    EXPECT_TRUE(writefile(path, "new"));
    EXPECT_EQ(attribute(path, "system.posix_acl_access"), before);
    EXPECT_EQ(statusof(path).st_mode & 07777, 0640U);
}

TEST_F(FileAttributes, AForeignFileThatMayBeWrittenKeepsItsOwner)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "needs two users";
    const std::string path = foreignfile(0777);
    const auto before = statusof(path);
    EXPECT_TRUE(asnobody([&] { return writefile(path, "new") && !attributeslost(); }));
    EXPECT_EQ(disk.content("shared/a.net"), "new");
    EXPECT_EQ(statusof(path).st_uid, before.st_uid);
    EXPECT_EQ(statusof(path).st_ino, before.st_ino) << "it was written in place";
    EXPECT_EQ(copies(), 0U) << "the copy goes once it is done";
}

TEST_F(FileAttributes, WithoutRoomForACopyAForeignFileIsStillSavedAndThatIsSaid)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "needs two users";
    const std::string path = foreignfile(0777);
    ::chmod(disk.path("user").c_str(), 0755);
    EXPECT_TRUE(asnobody([&] {
        return writefile(path, "new") && attributeslost() && !lostnote().empty() &&
               writefile(path, "newer") && !attributeslost() && lostnote().empty();
    }));
    EXPECT_EQ(disk.content("shared/a.net"), "newer");
}

TEST_F(FileAttributes, AFolderThatTakesNoNewFileIsNoReasonToFail)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "needs two users";
    const std::string path = foreignfile(0755);
    EXPECT_TRUE(asnobody([&] { return writefile(path, "new") && !attributeslost(); }));
    EXPECT_EQ(disk.content("shared/a.net"), "new");
    EXPECT_EQ(copies(), 0U);
}

TEST_F(FileAttributes, WithoutRoomForACopyNothingIsWrittenInPlace)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "needs two users";
    const std::string path = foreignfile(0755);
    ::chmod(disk.path("user").c_str(), 0755);
    EXPECT_TRUE(asnobody([&] {
        std::string why;
        return !writefile(path, "new", &why) && why == "Permission denied";
    }));
    EXPECT_EQ(disk.content("shared/a.net"), "old and long");
}

TEST_F(FileAttributes, AllNamesOfAFileSeeTheNewBytes)
{
    const std::string path = disk.makefile("a.net", "old and long");
    fs::create_hard_link(path, disk.path("b.net"));
    EXPECT_TRUE(writefile(path, "new"));
    EXPECT_EQ(disk.content("a.net"), "new");
    EXPECT_EQ(disk.content("b.net"), "new");
    EXPECT_EQ(statusof(path).st_nlink, 2U);
    EXPECT_EQ(copies(), 0U);
}

TEST_F(FileAttributes, AFullDiskLeavesTheOldBytesInPlace)
{
    const std::string path = disk.makefile("a.net", "old and whole");
    fs::create_hard_link(path, disk.path("b.net"));
    ChildProcess child([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &small);
        std::string why;
        return !writefile(path, std::string(10000, 'n'), &why) && why == "File too large";
    });
    EXPECT_EQ(child.wait(), 0);
    EXPECT_EQ(disk.content("a.net"), "old and whole");
    EXPECT_EQ(copies(), 0U);
}

TEST_F(FileAttributes, AKillInTheMiddleLeavesAWholeFileOrACopyOfIt)
{
    const std::string path = disk.path("a.map");
    std::mt19937 random(5);
    std::uniform_int_distribution<int> wait_us(300, 5000);
    const auto whole = [](const std::string& content) {
        return content.size() == 100000 &&
               content.find_first_not_of(content[0]) == std::string::npos;
    };
    for (int round = 0; round < 25; ++round) {
        disk.makefile("a.map", std::string(100000, 'a'));
        if (round == 0)
            fs::create_hard_link(path, disk.path("b.map"));
        ChildProcess child([&] {
            for (;;)
                for (const char letter : {'b', 'a'})
                    writefile(path, std::string(100000, letter));
            return false;
        });
        std::this_thread::sleep_for(std::chrono::microseconds(wait_us(random)));
        child.kill(SIGKILL);
        bool kept = whole(disk.content("a.map"));
        for (const std::string& copy : interruptedcopies()) {
            EXPECT_THAT(nameof(copy), testing::StartsWith("a.map."));
            kept = kept || whole(readfile(copy).value_or(""));
            fs::remove(copy);
        }
        EXPECT_TRUE(kept);
    }
}

TEST_F(FileAttributes, OnlyCopiesOfEndedProcessesAreListed)
{
    std::string dead = processmark();
    dead.replace(9, 8, "00000000");
    disk.makefolder("user/copies");
    disk.makefile("user/copies/nord.net." + dead + ".copie");
    disk.makefile("user/copies/sud.net." + processmark() + ".copie");
    disk.makefile("user/copies/notes.txt");
    EXPECT_THAT(interruptedcopies(),
                testing::ElementsAre(disk.path("user/copies/nord.net." + dead + ".copie")));
}
