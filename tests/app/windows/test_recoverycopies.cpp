#include "app/windows/endsignals.h"
#include "app/windows/frmMain.h"
#include "app/windows/recovery.h"
#include "app/windows/shelltest.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "network/recovery.h"
#include "network/unsaved.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;

class RecoveryCopies : public ShellTest
{
protected:
    RecoveryCopies()
    {
        hooks.askuser = [this](const Question& question) {
            asked.push_back(question.text);
            return answer;
        };
    }

    /// The name of a copy that a process has made which has ended.
    static std::string deadname()
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
    /// A copy of a network with two stations as another run has left it.
    std::string leave(const std::string& name)
    {
        NetworkTables tables = defaulttables();
        for (const std::size_t u : {3U, 4U}) {
            tables.units[u].lon = 7;
            tables.units[u].lat = 45;
        }
        const std::string kept = userfolder() + "recovery/";
        QDir().mkpath(QString::fromStdString(kept));
        const std::string file = kept + name;
        EXPECT_TRUE(writefile(file, recoverybytes(tables, "", {}, path("own.net"))));
        return file;
    }
    static bool exists(const std::string& file)
    {
        return QFile::exists(QString::fromStdString(file));
    }
    /// The copies that are there.
    static int copies()
    {
        const QDir kept(QString::fromStdString(userfolder() + "recovery/"));
        return static_cast<int>(kept.entryList(QDir::Files | QDir::Hidden).size());
    }

    std::vector<std::string> asked;
    Answer answer = Answer::no;
};

TEST_F(RecoveryCopies, AreOfferedWithTheirDateAndStations)
{
    const std::string copy = leave(deadname());
    answer = Answer::yes;
    start();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_THAT(asked[0], HasSubstr(path("own.net")));
    EXPECT_THAT(asked[0], HasSubstr("stations placées: 2"));
    EXPECT_THAT(asked[0], testing::ContainsRegex("du 20[0-9-]+ à [0-9]+:[0-9]+:[0-9]+"));
    EXPECT_EQ(network.units[4].lon, 7);
    EXPECT_EQ(session.netfile, lowercase(path("own.net")));
    EXPECT_TRUE(netunsaved());
    EXPECT_FALSE(exists(copy)) << "this run has its own";
    EXPECT_EQ(copies(), 1);
}

TEST_F(RecoveryCopies, AreErasedWhenTheUserSaysSo)
{
    const std::string copy = leave(deadname());
    start();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_FALSE(exists(copy));
    EXPECT_FALSE(netunsaved());
}

TEST_F(RecoveryCopies, StayForAnotherTimeWhenTheUserGivesUp)
{
    const std::string first = leave(deadname());
    const std::string second = leave(deadname());
    answer = Answer::cancel;
    start();
    EXPECT_EQ(asked.size(), 2U);
    EXPECT_TRUE(exists(first));
    EXPECT_TRUE(exists(second));
}

TEST_F(RecoveryCopies, OfARunThatGoesOnAreLeftAlone)
{
    const std::string copy = leave(recoveryname());
    start();
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(exists(copy));
}

TEST_F(RecoveryCopies, GoWithACleanSaveAndWithTheEnd)
{
    start();
    session.netfile = path("own.net");
    markedited();
    saverecovery();
    ASSERT_EQ(copies(), 1);
    expectfilename("Enregistrer les réseaux", path("own.net"));
    choose("mnuFileSaveNet");
    keeprecovery();
    EXPECT_EQ(copies(), 0);

    markedited();
    network.units[1].lon = 5;
    saverecovery();
    ASSERT_EQ(copies(), 1);
    answer = Answer::yes; // end the program, and save
    expectfilename("Enregistrer les réseaux", path("own.net"));
    EXPECT_TRUE(window->close());
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryCopies, StayWhenTheSystemEndsTheProgram)
{
    start();
    session.netfile = path("own.net");
    markedited();
    endonsignals();
    ::raise(SIGTERM);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(copies(), 1);
}
