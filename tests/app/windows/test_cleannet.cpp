#include "app/windows/cleannet.h"
#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "network/tables.h"
#include "network/unsaved.h"
#include "terrain/mapgrid.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QPointer>

/// The object editor, which stays open when it still has unsaved objects.
class StubbornEditor : public QDialog
{
public:
    explicit StubbornEditor(bool keeps) : stays(keeps)
    {
        setObjectName(QStringLiteral("frmObject"));
        show();
    }
    void closeEvent(QCloseEvent* event) override
    {
        if (stays)
            opbusy = 0;
        event->setAccepted(!stays);
    }

private:
    bool stays;
};

class CleanNetTest : public ShellTest
{
protected:
    void SetUp() override { start(); }
    static bool cancelled()
    {
        bool cancel = false;
        CleanNet(cancel);
        return cancel;
    }
};

TEST_F(CleanNetTest, AsksNothingWhenNothingChanged)
{
    EXPECT_FALSE(cancelled());
}

TEST_F(CleanNetTest, AsksInTurnForNetworkPicturesAndMap)
{
    ASSERT_TRUE(writefile(path("saved.bmp"), "x"));
    addpicture("image1.bmp");
    addpicture(path("saved.bmp"));
    addpicture("mappemonde");
    addpicture("image2.bmp");
    netdirty = mapdirty = true;
    expectquestion("Enregistrer default.net?", Answer::no);
    expectquestion("Enregistrer image1.bmp?", Answer::no);
    expectquestion("Enregistrer image2.bmp?", Answer::no);
    expectquestion("Enregistrer default.map?", Answer::no);
    EXPECT_FALSE(cancelled());
    EXPECT_TRUE(window->childwindows().empty());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(CleanNetTest, CancelStopsWhereItIsGiven)
{
    addpicture("image1.bmp");
    addpicture("image2.bmp");
    mapdirty = true;
    expectquestion("Enregistrer image1.bmp?", Answer::no);
    expectquestion("Enregistrer image2.bmp?", Answer::cancel);
    EXPECT_TRUE(cancelled());
    EXPECT_EQ(window->childwindows().size(), 2U);
}

TEST_F(CleanNetTest, CancelAtTheMapComesAfterThePicturesHaveClosed)
{
    addpicture("mappemonde");
    mapdirty = true;
    expectquestion("Enregistrer default.map?", Answer::cancel);
    EXPECT_TRUE(cancelled());
    EXPECT_TRUE(window->childwindows().empty());
}

TEST_F(CleanNetTest, YesSavesTheNetworkUnderTheNameThatIsAsked)
{
    netdirty = true;
    expectquestion("Enregistrer default.net?", Answer::yes);
    expectfilename("Enregistrer les réseaux", path("nouveau.net"));
    EXPECT_FALSE(cancelled());
    EXPECT_TRUE(findfile(path("nouveau.net")));
    EXPECT_FALSE(netdirty);
}

TEST_F(CleanNetTest, WhatTheUserChangedInTheTablesIsAskedAboutToo)
{
    markedited();
    expectquestion("Enregistrer default.net?", Answer::cancel);
    EXPECT_TRUE(cancelled());
    expectquestion("Enregistrer default.net?", Answer::yes);
    expectfilename("Enregistrer les réseaux", path("nouveau.net"));
    EXPECT_FALSE(cancelled());
    EXPECT_FALSE(netunsaved());
    EXPECT_FALSE(cancelled()) << "once saved, nothing is asked";
}

TEST_F(CleanNetTest, GivingUpTheSavingKeepsTheWork)
{
    netdirty = true;
    expectquestion("Enregistrer default.net?", Answer::yes);
    expectfilename("Enregistrer les réseaux", "");
    EXPECT_TRUE(cancelled());
    EXPECT_TRUE(netdirty);
}

TEST_F(CleanNetTest, YesSavesPicturesAndTheMap)
{
    addpicture("image1.bmp");
    addpicture("image2.bmp");
    mapdirty = true;
    expectquestion("Enregistrer image1.bmp?", Answer::yes);
    expectfilename("Enregistrer l'image", path("vue.bmp"));
    expectquestion("Enregistrer image2.bmp?", Answer::no);
    expectquestion("Enregistrer default.map?", Answer::yes);
    expectfilename("Enregistrer la carte", path("carte.map"));
    EXPECT_FALSE(cancelled());
    EXPECT_TRUE(findfile(path("vue.bmp")));
    EXPECT_FALSE(findfile(path("image2.bmp")));
    EXPECT_TRUE(findfile(path("carte.map")));
    EXPECT_FALSE(mapdirty);
}

TEST_F(CleanNetTest, AnObjectEditorThatStaysCancels)
{
    StubbornEditor editor(true);
    addpicture("image1.bmp");
    EXPECT_TRUE(cancelled());
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(window->childwindows().size(), 1U);
}

TEST_F(CleanNetTest, AnObjectEditorThatClosesLetsTheRestGoOn)
{
    StubbornEditor editor(false);
    EXPECT_FALSE(cancelled());
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(opbusy, 0);
}

TEST_F(CleanNetTest, ClosesTheDialogsAndAllSecondWindows)
{
    QDialog grid;
    grid.setObjectName(QStringLiteral("frmGrid"));
    grid.show();
    QWidget other;
    other.show();
    EXPECT_FALSE(cancelled());
    EXPECT_FALSE(grid.isVisible());
    EXPECT_FALSE(other.isVisible());
}
