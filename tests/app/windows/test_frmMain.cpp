#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "app/windows/stationicons.h"
#include "app/windows/statusbar.h"
#include "app/windows/toolbar.h"
#include "base/operation.h"
#include "base/session.h"
#include "netoverlay/paint/overlay.h"
#include "pictures/windows/frmPic.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

#include <gmock/gmock.h>

class FrmMain : public ShellTest
{
protected:
    void SetUp() override { start(); }
};

TEST_F(FrmMain, ListsItsChildrenInTheOrderOfTheirOpening)
{
    QWidget* a = addpicture("a.bmp");
    QWidget* b = addpicture("b.bmp");
    QWidget* c = addpicture("c.bmp");
    EXPECT_EQ(window->activechild(), c);
    window->area->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(a->parentWidget()));
    EXPECT_EQ(window->activechild(), a);
    EXPECT_THAT(window->childwindows(), testing::ElementsAre(a, b, c));
    b->parentWidget()->close();
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(window->childwindows(), testing::ElementsAre(a, c));
}

TEST_F(FrmMain, TogglesToolbarStatusBarAndCheckMarks)
{
    choose("mnuViewToolbar");
    EXPECT_FALSE(window->toolbar->isVisible());
    EXPECT_FALSE(window->checked("mnuViewToolbar"));
    choose("mnuViewToolbar");
    EXPECT_TRUE(window->toolbar->isVisible());
    choose("mnuViewStatus");
    EXPECT_FALSE(window->statusbar->isVisible());
    choose("mnuMouseCoor");
    EXPECT_TRUE(session.mousecoordinates);
    choose("mnuMouseCoor");
    EXPECT_FALSE(session.mousecoordinates);
    choose("mnuViewAuto");
    EXPECT_FALSE(window->checked("mnuViewAuto"));
}

TEST_F(FrmMain, MinimisingClosesTheDialogsButNotThePictures)
{
    const std::vector<const char*> names{"frmGrid",   "frmLink",   "frmMapPro",
                                         "frmCustom", "frmObject", "frmDebug"};
    std::vector<std::unique_ptr<QDialog>> dialogs;
    for (const char* name : names) {
        dialogs.push_back(std::make_unique<QDialog>());
        dialogs.back()->setObjectName(QString::fromLatin1(name));
        dialogs.back()->show();
    }
    addpicture("a.bmp");
    window->showMinimized();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialogs.back()->isVisible(); }, 2000));
    for (const auto& dialog : dialogs)
        EXPECT_FALSE(dialog->isVisible()) << dialog->objectName().toStdString();
    EXPECT_EQ(window->childwindows().size(), 1U);
}

TEST_F(FrmMain, AnOperationDisablesThePicturesSurfacesOnly)
{
    QWidget* picture = addpicture("a.bmp");
    const auto* surface = picture->findChild<QWidget*>(QStringLiteral("surface"));
    ASSERT_NE(surface, nullptr);
    beginop({.number = 1});
    EXPECT_FALSE(surface->isEnabled());
    EXPECT_TRUE(picture->isEnabled());
    endop();
    EXPECT_TRUE(surface->isEnabled());
    EXPECT_EQ(picture->focusWidget(), surface);
}

TEST_F(FrmMain, EscapeAndTheStopMenuStopAnOperation)
{
    beginop({.number = 1});
    choose("mnuStop");
    EXPECT_EQ(opstep(1), 0);
    endop();
    EXPECT_EQ(label2(), "Arrêté par l'utilisateur.");
    EXPECT_EQ(window->action("mnuStop")->shortcut(), QKeySequence(Qt::Key_Escape));
}

static QColor colourof(const QImage& icon)
{
    return icon.pixelColor(icon.width() / 2, icon.height() / 2);
}

TEST_F(FrmMain, ListsTheStationIconsOfTheProgramsFolders)
{
    EXPECT_TRUE(stationicons.empty());
    const QString program = folder.filePath(QStringLiteral("program"));
    ASSERT_TRUE(QDir().mkpath(program + QStringLiteral("/icon")));
    const auto store = [&program](const char* name, Qt::GlobalColor colour) {
        QImage icon(16, 16, QImage::Format_ARGB32);
        icon.fill(colour);
        EXPECT_TRUE(icon.save(program + QString::fromLatin1(name), "ico"));
    };
    store("/icon/a.ico", Qt::blue);
    store("/z.ico", Qt::red);
    store("/B.ICO", Qt::green);
    fillstationicons();
    ASSERT_EQ(stationicons.size(), 3U);
    EXPECT_EQ(colourof(stationicons[0]), QColor(Qt::green)) << "by name";
    EXPECT_EQ(colourof(stationicons[1]), QColor(Qt::red));
    EXPECT_EQ(colourof(stationicons[2]), QColor(Qt::blue)) << "the subfolder after them";
    stationicons.clear();
}

TEST_F(FrmMain, AMenuProcedureThatFailsDoesNotEndTheProgram)
{
    hooks.setlabel2 = [](const std::string&) { throw std::runtime_error("label"); };
    choose("mnuFileModeNormal");
    EXPECT_TRUE(window->isVisible());
}
