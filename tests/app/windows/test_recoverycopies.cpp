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

    static RecoveryOwner deadprocess()
    {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(0);
        ::waitpid(child, nullptr, 0);
        RecoveryOwner owner = thisprocess();
        owner.process = child;
        return owner;
    }
    /// A copy of a network with two stations as another run has left it.
    std::string leave(const RecoveryOwner& owner)
    {
        NetworkTables tables = defaulttables();
        for (const std::size_t u : {3U, 4U}) {
            tables.units[u].lon = 7;
            tables.units[u].lat = 45;
        }
        const std::string kept = userfolder() + "recovery/";
        QDir().mkpath(QString::fromStdString(kept));
        const std::string file = kept + recoveryname(owner);
        EXPECT_TRUE(writefile(file, recoverybytes(tables, "", {}, path("own.net"))));
        return file;
    }
    static bool exists(const std::string& file)
    {
        return QFile::exists(QString::fromStdString(file));
    }
    static std::string owncopy()
    {
        return userfolder() + "recovery/" + recoveryname(thisprocess());
    }

    std::vector<std::string> asked;
    Answer answer = Answer::no;
};

TEST_F(RecoveryCopies, AreOfferedWithTheirDateAndStations)
{
    const std::string copy = leave(deadprocess());
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
    EXPECT_TRUE(exists(owncopy()));
}

TEST_F(RecoveryCopies, AreErasedWhenTheUserSaysSo)
{
    const std::string copy = leave(deadprocess());
    start();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_FALSE(exists(copy));
    EXPECT_FALSE(netunsaved());
}

TEST_F(RecoveryCopies, StayForAnotherTimeWhenTheUserGivesUp)
{
    const std::string first = leave(deadprocess());
    const std::string second = leave(deadprocess());
    answer = Answer::cancel;
    start();
    EXPECT_EQ(asked.size(), 2U);
    EXPECT_TRUE(exists(first));
    EXPECT_TRUE(exists(second));
}

TEST_F(RecoveryCopies, OfARunThatGoesOnAreLeftAlone)
{
    RecoveryOwner owner = thisprocess();
    owner.process = ::getppid();
    owner.start = 0; // as where the system doesn't tell
    owner.machine = "ailleurs";
    const std::string copy = leave(owner);
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
    ASSERT_TRUE(exists(owncopy()));
    expectfilename("Enregistrer les réseaux", path("own.net"));
    choose("mnuFileSaveNet");
    keeprecovery();
    EXPECT_FALSE(exists(owncopy()));

    markedited();
    network.units[1].lon = 5;
    saverecovery();
    ASSERT_TRUE(exists(owncopy()));
    answer = Answer::yes; // end the program, and save
    expectfilename("Enregistrer les réseaux", path("own.net"));
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(exists(owncopy()));
}
