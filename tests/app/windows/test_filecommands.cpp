#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "network/netfile.h"
#include "network/tables.h"
#include "network/unsaved.h"
#include "radio/link.h"
#include "terrain/mapfile.h"
#include "terrain/mapgrid.h"

#include <QAction>

class FileCommands : public ShellTest
{
protected:
    void SetUp() override { start(); }
    /// Writes a network whose first station has this name.
    std::string makenet(const std::string& file, const char* station)
    {
        const NetworkTables before = network;
        const Session remembered = session;
        network.units[1].name.assign(station);
        std::string full = path(file);
        EXPECT_TRUE(savenet(full));
        network = before;
        session = remembered;
        return full;
    }
};

TEST_F(FileCommands, NewNetworksAsksFirstAndMakesAName)
{
    network.units[1].name.assign("Ancien");
    expectquestion("Effacer toutes les données du réseau default.net", Answer::no);
    choose("mnuFileNewNet");
    EXPECT_EQ(network.units[1].name.text(), "Ancien");
    expectquestion("Effacer toutes les données du réseau default.net", Answer::yes);
    choose("mnuFileNewNet");
    EXPECT_EQ(network, defaulttables());
    EXPECT_TRUE(nameof(session.netfile).starts_with("net")) << session.netfile;
    EXPECT_EQ(window->windowTitle().toStdString(), "Velmora - ..\\" + nameof(session.netfile));
}

TEST_F(FileCommands, NewNetworksKeepsEverythingWhenTheSavingIsCancelled)
{
    network.units[1].name.assign("Ancien");
    netdirty = true;
    expectquestion("Effacer toutes les données du réseau default.net", Answer::yes);
    expectquestion("Enregistrer default.net?", Answer::cancel);
    choose("mnuFileNewNet");
    EXPECT_EQ(network.units[1].name.text(), "Ancien");
}

TEST_F(FileCommands, OpensTheChosenNetwork)
{
    const std::string file = makenet("Vallée.net", "Clocher");
    int evaluations = 0;
    hooks.netsloaded = [&evaluations] { ++evaluations; };
    expectfilename("Ouvrir des réseaux", file);
    choose("mnuFileOpenNet");
    EXPECT_EQ(network.units[1].name.text(), "Clocher");
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velmora - ..\\vallée.net"));
    EXPECT_EQ(evaluations, 1);
    EXPECT_EQ(window->action("mnuFileRecent0")->text(), QStringLiteral("&1 vallée.net"));
}

TEST_F(FileCommands, GivingUpTheDialogKeepsTheNetwork)
{
    expectfilename("Ouvrir des réseaux", "");
    choose("mnuFileOpenNet");
    EXPECT_EQ(session.netfile, "default.net");
}

TEST_F(FileCommands, TellsThatAChosenNetworkCannotBeRead)
{
    expectfilename("Ouvrir des réseaux", path("absent.net"));
    choose("mnuFileOpenNet");
    EXPECT_EQ(label2(), "absent.net : fichier illisible");
    ASSERT_TRUE(writefile(path("court.net"), "abc"));
    expectfilename("Ouvrir des réseaux", path("court.net"));
    choose("mnuFileOpenNet");
    EXPECT_EQ(label2(), "court.net : fichier illisible");
}

TEST_F(FileCommands, AFileThatIsNoNetworkLeavesTheOneThatIsOpen)
{
    network.units[1].name.assign("Ancien");
    markedited();
    addpicture("image1.bmp");
    ASSERT_TRUE(writefile(path("lettre.net"), "Ceci n'est pas un réseau, mais une lettre."));
    const Session before = session;
    expectfilename("Ouvrir des réseaux", path("lettre.net"));
    choose("mnuFileOpenNet"); // and nothing is asked
    EXPECT_EQ(label2(), "lettre.net : ce n'est pas un fichier de réseaux");
    EXPECT_EQ(network.units[1].name.text(), "Ancien");
    EXPECT_EQ(session.netfile, before.netfile);
    EXPECT_EQ(session.recent, before.recent);
    EXPECT_EQ(window->childwindows().size(), 1U);
    EXPECT_TRUE(netedited);
    marksaved();
}

TEST_F(FileCommands, NothingIsClosedBeforeAFileIsChosen)
{
    addpicture("image1.bmp");
    markedited();
    expectfilename("Ouvrir des réseaux", "");
    choose("mnuFileOpenNet");
    EXPECT_EQ(window->childwindows().size(), 1U);
    marksaved();
}

TEST_F(FileCommands, SavesTheNetworkAndSaysSo)
{
    expectfilename("Enregistrer les réseaux", path("copie.net"));
    choose("mnuFileSaveNet");
    EXPECT_TRUE(findfile(path("copie.net")));
    EXPECT_EQ(label2(), "copie.net a été enregistré");
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velmora - ..\\copie.net"));
}

TEST_F(FileCommands, TellsThatANetworkCannotBeSaved)
{
    const std::string file = path("nulle part/copie.net");
    expectfilename("Enregistrer les réseaux", file);
    expectquestion(file + " impossible à enregistrer", Answer::ok);
    choose("mnuFileSaveNet");
}

TEST_F(FileCommands, OpensAMapAndShowsItsSize)
{
    const MapGrid before = mapgrid;
    allocatemap(mapgrid, 7, 5);
    mapframe(mapgrid);
    ASSERT_TRUE(savemap(path("petite.map")));
    mapgrid = before;
    expectfilename("Ouvrir une carte", path("petite.map"));
    choose("mnuFileOpenMap");
    EXPECT_EQ(mapgrid.width, 7);
    EXPECT_EQ(label2(), "Largeur=7 Hauteur=5");
}

TEST_F(FileCommands, TellsThatAChosenMapCannotBeRead)
{
    expectfilename("Ouvrir une carte", path("absente.map"));
    choose("mnuFileOpenMap");
    EXPECT_EQ(label2(), "absente.map : fichier illisible");
    mapdirty = false;
}

TEST_F(FileCommands, TellsThatAnIncompleteMapIsOne)
{
    ASSERT_TRUE(savemap(path("entiere.map")));
    const std::string bytes = readfile(path("entiere.map")).value_or("");
    ASSERT_TRUE(writefile(path("courte.map"), bytes.substr(0, bytes.size() / 2)));
    expectfilename("Ouvrir une carte", path("courte.map"));
    choose("mnuFileOpenMap");
    EXPECT_EQ(label2(), "courte.map : carte incomplète");
    EXPECT_FALSE(mapdirty);
    mapincomplete = false;
}

TEST_F(FileCommands, TellsThatAMapCannotBeSaved)
{
    expectfilename("Enregistrer la carte", path("nulle part/copie.map"));
    choose("mnuFileSaveMap");
    EXPECT_EQ(label2(), "copie.map impossible à enregistrer");
}

TEST_F(FileCommands, SavesTheMapAndSaysSo)
{
    expectfilename("Enregistrer la carte", path("copie.map"));
    choose("mnuFileSaveMap");
    EXPECT_TRUE(findfile(path("copie.map")));
    EXPECT_EQ(label2(), "copie.map a été enregistrée");
}

TEST_F(FileCommands, ARecentNetworkOpensOnceTheOldOneIsClean)
{
    const std::string file = makenet("deux.net", "Deux");
    session.recent = {session.netfile, lowercase(file), "", ""};
    window->showrecent();
    netdirty = true;
    expectquestion("Enregistrer default.net?", Answer::cancel);
    choose("mnuFileRecent1");
    EXPECT_EQ(session.netfile, "default.net");
    expectquestion("Enregistrer default.net?", Answer::no);
    choose("mnuFileRecent1");
    EXPECT_EQ(network.units[1].name.text(), "Deux");
    EXPECT_EQ(session.recent[0], lowercase(file));
}

TEST_F(FileCommands, TheOpenNetworkAndEmptyEntriesDoNothing)
{
    netdirty = true;
    session.recent = {session.netfile, "", "", ""};
    for (int i = -1; i < 6; ++i)
        loadprevious(i);
    EXPECT_TRUE(netdirty);
    netdirty = false;
}

TEST_F(FileCommands, ThePropagationModeIsEvaluatedAnewAndShown)
{
    choose("mnuFileModeInterf");
    EXPECT_EQ(interf, 1);
    EXPECT_EQ(label2(), "Mode de propagation interférence");
    EXPECT_TRUE(window->checked("mnuFileModeInterf"));
    EXPECT_FALSE(window->checked("mnuFileModeNormal"));
    choose("mnuFileModeNormal");
    EXPECT_EQ(interf, 0);
    EXPECT_EQ(label2(), "");
    EXPECT_TRUE(window->checked("mnuFileModeNormal"));
    EXPECT_FALSE(window->checked("mnuFileModeInterf"));
    choose("mnuFileModeNormal");
    EXPECT_TRUE(window->checked("mnuFileModeNormal")) << "one of the two is always in force";
}
