#include "base/numbers.h"
#include "base/paths.h"
#include "support/tempfolder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

TEST(PathParts, SplitAtTheLastSeparatorOfAnyKind)
{
    EXPECT_EQ(pathof("c:\\plans\\Nord.net"), "c:\\plans\\");
    EXPECT_EQ(nameof("c:\\plans\\Nord.net"), "Nord.net");
    EXPECT_EQ(pathof("/home/anne/nord.net"), "/home/anne/");
    EXPECT_EQ(nameof("a/b\\c:d.net"), "d.net");
    EXPECT_EQ(pathof("c:nord.net"), "c:");
    EXPECT_EQ(nameof("/home/anne/"), "");
}

TEST(PathParts, ANameAloneHasNoFolderAndBlanksAroundItDontCount)
{
    EXPECT_EQ(pathof("  nord.net "), "");
    EXPECT_EQ(nameof("  nord.net "), "nord.net");
    EXPECT_EQ(nameof(""), "");
}

TEST(PathParts, OneQuoteAtEachEndIsDropped)
{
    EXPECT_EQ(unquoted("\"a b.net\""), "a b.net");
    EXPECT_EQ(unquoted("\"a.net"), "a.net");
    EXPECT_EQ(unquoted("a.net\""), "a.net");
    EXPECT_EQ(unquoted("\"\"a.net\"\""), "\"a.net\"");
    EXPECT_EQ(unquoted("\" a.net \""), "a.net");
    EXPECT_EQ(unquoted("\""), "");
    EXPECT_EQ(unquoted(""), "");
}

TEST(TempDir, IsAFolderWithItsSeparator)
{
    const std::string folder = tempdir();
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(folder.back(), '/');
    EXPECT_TRUE(std::filesystem::is_directory(folder));
}

class FindFileTest : public testing::Test
{
protected:
    void SetUp() override { disk.makefolder("Plans/Été"); }
    TempFolder disk;
};

TEST_F(FindFileTest, TheExactNameWins)
{
    const std::string upper = disk.makefile("Plans/NORD.net");
    const std::string lower = disk.makefile("Plans/nord.net");
    EXPECT_EQ(findfile(upper), upper);
    EXPECT_EQ(findfile(lower), lower);
    EXPECT_EQ(findfile(disk.path("Plans/Nord.Net")), upper); // the first in the order of names
}

TEST_F(FindFileTest, FoldersAndNameAreFoundWithoutRegardToCase)
{
    const std::string file = disk.makefile("Plans/Été/Carte.MAP");
    EXPECT_EQ(findfile(disk.path("plans/été/carte.map")), file);
    EXPECT_EQ(findfile(disk.path("PLANS/ÉTÉ/CARTE.MAP")), file);
}

TEST_F(FindFileTest, ABackslashSeparatesToo)
{
    const std::string file = disk.makefile("Plans/Carte.map");
    EXPECT_EQ(findfile(disk.path("plans\\carte.map")), file);
    EXPECT_EQ(findfile(disk.path("Plans\\Carte.map")), file);
}

TEST_F(FindFileTest, AFolderOfAnotherCaseIsTriedWhereTheExactOneLacksTheFile)
{
    disk.makefolder("plans");
    const std::string file = disk.makefile("Plans/nord.net");
    EXPECT_EQ(findfile(disk.path("plans/nord.net")), file);
}

TEST_F(FindFileTest, FoldersAndMissingNamesAreNoFiles)
{
    EXPECT_EQ(findfile(disk.path("Plans")), std::nullopt);
    EXPECT_EQ(findfile(disk.path("plans")), std::nullopt);
    EXPECT_EQ(findfile(disk.path("Plans/")), std::nullopt);
    EXPECT_EQ(findfile(disk.path("nowhere/x.net")), std::nullopt);
    EXPECT_EQ(findfile(""), std::nullopt);
    EXPECT_EQ(findfile("/"), std::nullopt);
    EXPECT_EQ(findfile(std::string_view("a\0b", 3)), std::nullopt);
    EXPECT_EQ(findfile(std::string(5000, 'x')), std::nullopt);
    const std::string file = disk.makefile("a.net");
    EXPECT_EQ(findfile(file + "/b.net"), std::nullopt);
}

TEST_F(FindFileTest, DotsLeadUpAndStay)
{
    const std::string file = disk.makefile("Nord.net");
    const auto found = findfile(disk.path("PLANS/../nord.net"));
    ASSERT_TRUE(found);
    EXPECT_TRUE(std::filesystem::equivalent(*found, file));
}

TEST_F(FindFileTest, ARelativeNameIsSoughtFromTheCurrentFolder)
{
    disk.makefile("Nord.net");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(disk.path());
    EXPECT_EQ(findfile("nord.NET"), "Nord.net");
    std::filesystem::current_path(before);
}

TEST_F(FindFileTest, ATargetIsTheExistingFileOrANewOneInTheFoundFolder)
{
    const std::string file = disk.makefile("Plans/Nord.net");
    EXPECT_EQ(targetpath(disk.path("plans/nord.net")), file);
    EXPECT_EQ(targetpath(disk.path("plans\\Sud.net")), disk.path("Plans/Sud.net"));
    EXPECT_EQ(targetpath(disk.path("nowhere/Sud.net")), disk.path("nowhere/Sud.net"));
    EXPECT_EQ(targetpath("Sud.net"), "Sud.net");
}

class ProgramFolderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ::setenv("VELMORA_HOME", disk.path("own").c_str(), 1);
        setshippedfolder(disk.makefolder("shipped"));
    }
    void TearDown() override
    {
        ::unsetenv("VELMORA_HOME");
        ::unsetenv("XDG_DATA_HOME");
        setprogramfolder("");
    }
    TempFolder disk;
};

TEST_F(ProgramFolderTest, TheUsersFolderIsMadeWhenFirstAskedFor)
{
    EXPECT_EQ(userfolder(), disk.path("own/"));
    EXPECT_TRUE(std::filesystem::is_directory(disk.path("own")));
    ::unsetenv("VELMORA_HOME");
    ::setenv("XDG_DATA_HOME", disk.path("data").c_str(), 1);
    EXPECT_EQ(userfolder(), disk.path("data/velmora/"));
    EXPECT_TRUE(std::filesystem::is_directory(disk.path("data/velmora")));
}

TEST_F(ProgramFolderTest, TheUsersFileHidesTheShippedOne)
{
    const std::string shipped = disk.makefile("shipped/cities.dat");
    EXPECT_EQ(findprogramfile("Cities.dat"), shipped);
    const std::string own = userfolder() + "cities.dat";
    disk.makefile("own/cities.dat");
    EXPECT_EQ(findprogramfile("cities.dat"), own);
    EXPECT_EQ(findprogramfile("radiosys.dat"), std::nullopt);
    EXPECT_EQ(findprogramfile(""), std::nullopt);
}

TEST_F(ProgramFolderTest, ANamedProgramFolderReplacesBoth)
{
    disk.makefile("shipped/cities.dat");
    setprogramfolder(disk.makefolder("named"));
    EXPECT_EQ(findprogramfile("cities.dat"), std::nullopt);
    EXPECT_EQ(userfolder(), disk.path("named/"));
    EXPECT_EQ(shippedfolder(), disk.path("named/"));
    setprogramfolder(disk.path("named")); // the separator is not needed
    EXPECT_EQ(findprogramfile("a.ant"), std::nullopt);
    const std::string file = disk.makefile("named/a.ant");
    EXPECT_EQ(findprogramfile("A.ANT"), file);
}

TEST(KeptName, IsInLowerCaseWhereThatReachesTheSameFile)
{
    const TempFolder disk;
    EXPECT_EQ(keptname(" C:\\Plans\\Nord.NET "), "c:\\plans\\nord.net");
    const std::string path = disk.makefile("Nord.net");
    EXPECT_EQ(keptname(path), lowercase(path));
    EXPECT_EQ(keptname(""), "");
}

TEST(KeptName, StaysAsGivenWhereLowerCaseIsAnotherFile)
{
    const TempFolder disk;
    const std::string capital = disk.makefile("Nord.net");
    const std::string small = disk.makefile("nord.net");
    const std::string all = disk.makefile("NORD.NET");
    EXPECT_EQ(keptname(capital), capital);
    EXPECT_EQ(keptname(all), all);
    EXPECT_EQ(findfile(keptname(small)), small);
}

TEST(FullPath, BeginsAtTheRootOrADrive)
{
    for (const char* path : {"/a/b.map", "\\\\server\\b.map", "C:\\b.map", "c:b.map"}) {
        EXPECT_TRUE(isfullpath(path)) << path;
        EXPECT_EQ(fullpath(path), path);
    }
    for (const char* path : {"b.map", "a/b.map", "../b.map", ""})
        EXPECT_FALSE(isfullpath(path)) << path;
    EXPECT_EQ(fullpath("b.map"), std::filesystem::current_path().string() + "/b.map");
    EXPECT_EQ(fullpath(""), "");
}
