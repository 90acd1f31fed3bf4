#include "base/programpath.h"
#include "support/places.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(ProgramPath, CountsFromTheProgramsFolder)
{
    EXPECT_EQ(besideprogram("a/b"), buildfolder() + "/bin/a/b");
    EXPECT_EQ(besideprogram("../share/velmora/"), buildfolder() + "/share/velmora/");
}

TEST(ProgramPath, DoesNotDependOnTheCurrentFolder)
{
    const fs::path before = fs::current_path();
    fs::current_path("/");
    EXPECT_EQ(besideprogram("a"), buildfolder() + "/bin/a");
    fs::current_path(before);
}

TEST(ProgramPath, LeadsToTheShippedDataInTheBuildTree)
{
    EXPECT_TRUE(fs::exists(besideprogram("../share/velmora/cities.dat")));
}
