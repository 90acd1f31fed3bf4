#include "base/session.h"
#include "cli/handmade.h"
#include "cli/process.h"

#include <gtest/gtest.h>
#include <string>

class Program : public CliTest
{
};

TEST_F(Program, TellsItsVersion)
{
    EXPECT_EQ(success({"--version"}).out, "velmora-cli " + appversion() + "\n");
}

TEST_F(Program, HelpsWithEveryCommand)
{
    const std::string all = success({"--help"}).out;
    for (const char* command : {"info", "evaluate", "lines", "link", "losses", "export", "where",
                                "parse", "elevation", "render", "draw"}) {
        EXPECT_NE(all.find(std::string("\n  ") + command), std::string::npos) << command;
        const std::string help = success({command, "--help"}).out;
        EXPECT_NE(help.find(command), std::string::npos);
        EXPECT_NE(help.find("--threads"), std::string::npos);
    }
}

TEST_F(Program, RefusesAWrongCommandLine)
{
    failure(2, {});
    EXPECT_NE(failure(2, {"dance"}).find("dance"), std::string::npos);
    failure(2, {"evaluate"});
    failure(2, {"evaluate", "plan.net", "more.net"});
    failure(2, {"evaluate", "plan.net", "--fast"});
    failure(2, {"evaluate", "plan.net", "--map"});
    failure(2, {"evaluate", "plan.net", "--threads", "0"});
    failure(2, {"evaluate", "plan.net", "--threads", "many"});
    failure(2, {"link", "plan.net", "1", "2"});
    failure(2, {"info", "a.net", "lines", "b.net"});
}

TEST_F(Program, TakesAFileNamedLikeACommand)
{
    EXPECT_NE(failure(1, {"info", "lines"}).find("lines"), std::string::npos);
}

TEST_F(Program, PrintsThePointWhateverTheLocale)
{
    write("plan.net", handmade::network());
    write("plain.map", handmade::map());
    const std::vector<std::string> arguments{"link", "plan.net", "1", "2", "2"};
    const std::string plain = success(arguments).out;
    for (const char* locale : {"fr_FR", "fr_FR.UTF-8", "de_DE.UTF-8", "C.UTF-8", "C"}) {
        const Outcome outcome = run(arguments, {{"LC_ALL", locale}, {"LANG", locale}});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, plain) << locale;
    }
    EXPECT_EQ(run({"where", "-73.5", "45.5"}, {{"LC_ALL", "fr_FR.UTF-8"}}).out,
              success({"where", "-73.5", "45.5"}).out);
}

TEST_F(Program, FailsWhenItsOutputIsNotTaken)
{
    write("plain.map", handmade::map());
    std::filesystem::create_symlink("/dev/full", folder / ".out");
    const Outcome outcome = run({"info", "plain.map"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.starts_with("velmora-cli: standard output: ")) << outcome.err;
}

TEST_F(Program, ChangesNoFile)
{
    write("plan.net", handmade::network());
    write("plain.map", handmade::map());
    success({"evaluate", "plan.net"});
    failure(1, {"link", "plan.net", "1", "1", "1"});
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files += entry.path().filename().string().starts_with('.') ? 0 : 1;
    EXPECT_EQ(files, 2);
    EXPECT_EQ(std::filesystem::file_size(folder / "plan.net"), handmade::network().size());
    EXPECT_EQ(std::filesystem::file_size(folder / "plain.map"), handmade::map().size());
}
