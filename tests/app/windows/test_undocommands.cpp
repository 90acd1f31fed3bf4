#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "base/windows/undostack.h"
#include "netoverlay/paint/overlay.h"
#include "network/netfile.h"
#include "network/windows/netundo.h"
#include "radio/windows/frmLink.h"

#include <QAction>
#include <QComboBox>
#include <QTest>

class UndoCommands : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        picture = openpic("", 0);
        resizepicture(*picture, 200, 100);
        picture->data.Pictype = pictype::map;
        picture->data.lon = {2, 3, 3, 2};
        picture->data.lat = {46, 46, 45, 45};
        for (const std::size_t u : {1U, 2U}) {
            network.units[u].lon = 2.2F + 0.2F * static_cast<float>(u);
            network.units[u].lat = 45.5F;
            network.nets[1].member[u] = memberbit;
            network.nets[1].system[u] = 1;
        }
        network.units[1].name.assign("Nord & Sud");
        network.nets[1].topology = visiblebit;
        drawnets();
    }
    void TearDown() override { forgetedits(); }

    QPoint label(std::size_t unit) const { return picture->marks.stations[unit].label.topLeft(); }
    static void move(const char* what)
    {
        TablesEdit edit(QString::fromUtf8(what));
        network.units[1].lat = 45.8F;
        edit.done();
        drawnets();
    }
    QAction& entry(const char* name) const { return *window->action(name); }

    OpenPicture* picture = nullptr;
};

TEST_F(UndoCommands, AreGreyedWhileThereIsNothing)
{
    EXPECT_FALSE(entry("mnuEditUndo").isEnabled());
    EXPECT_FALSE(entry("mnuEditRedo").isEnabled());
    EXPECT_EQ(entry("mnuEditUndo").text(), QStringLiteral("Annuler"));
    EXPECT_EQ(entry("mnuEditRedo").text(), QStringLiteral("Rétablir"));
}

TEST_F(UndoCommands, NameWhatTheyTakeBack)
{
    move("déplacer Nord & Sud");
    EXPECT_EQ(entry("mnuEditUndo").text(), QStringLiteral("Annuler: déplacer Nord && Sud"));
    EXPECT_FALSE(entry("mnuEditRedo").isEnabled());
    choose("mnuEditUndo");
    EXPECT_EQ(entry("mnuEditUndo").text(), QStringLiteral("Annuler"));
    EXPECT_EQ(entry("mnuEditRedo").text(), QStringLiteral("Rétablir: déplacer Nord && Sud"));
    EXPECT_FALSE(entry("mnuEditUndo").isEnabled());
    window->setbusy(true);
    EXPECT_FALSE(entry("mnuEditRedo").isEnabled());
    window->setbusy(false);
    EXPECT_TRUE(entry("mnuEditRedo").isEnabled());
}

TEST_F(UndoCommands, PicturesFollowTheKeys)
{
    const QPoint before = label(1);
    move("déplacer Nord");
    const QPoint after = label(1);
    ASSERT_NE(before, after);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(label(1), before);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(label(1), after);
}

TEST_F(UndoCommands, NetsThatAreHiddenStaySo)
{
    move("déplacer Nord");
    window->setchecked("mnuViewAuto", false);
    erasenets();
    choose("mnuEditUndo");
    EXPECT_FALSE(picture->marks.stations[1].visible);
    window->setchecked("mnuViewAuto", true);
    choose("mnuEditRedo");
    EXPECT_TRUE(picture->marks.stations[1].visible);
}

TEST_F(UndoCommands, TheLinkWindowFollows)
{
    choose("mnuViewLink");
    frmLink* link = linkwindow(window.get());
    ASSERT_NE(link, nullptr);
    const auto names = link->findChildren<QComboBox*>();
    const auto shows = [&](const char* text) {
        return std::any_of(names.begin(), names.end(), [text](const QComboBox* list) {
            return list->currentText() == QString::fromUtf8(text);
        });
    };
    ASSERT_TRUE(shows("Nord & Sud"));
    TablesEdit edit(QStringLiteral("nommer"));
    network.units[1].name.assign("Est");
    edit.done();
    choose("mnuEditUndo");
    EXPECT_TRUE(shows("Nord & Sud"));
    choose("mnuEditRedo");
    EXPECT_TRUE(shows("Est"));
    EXPECT_EQ(link->current().a, 1);
}

TEST_F(UndoCommands, AnotherNetworkLeavesNothingToTakeBack)
{
    move("déplacer Nord");
    newnet(false);
    EXPECT_FALSE(entry("mnuEditUndo").isEnabled());
    move("déplacer Nord");
    const std::string file = path("a.net");
    ASSERT_TRUE(savenet(file));
    loadnet(file);
    EXPECT_FALSE(entry("mnuEditUndo").isEnabled());
}
