#include "app/windows/askfile.h"
#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "base/operation.h"
#include "base/paths.h"
#include "netoverlay/paint/movestation.h"
#include "network/moveunit.h"
#include "network/tables.h"
#include "pictures/paint/openpictures.h"
#include "pictures/windows/frmPic.h"
#include "radio/evaluate.h"
#include "terrain/mapgrid.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

/// The entries that open the properties of a picture, and the world map.
class PictureCommands : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        allocatemap(mapgrid, 40, 30);
        for (int y = 0; y < 30; ++y)
            for (int x = 0; x < 40; ++x)
                mapgrid.at(x, y) = static_cast<std::int16_t>(x * y);
        mapgrid.record.hmax = 1000;
        mapdirty = false;
    }

    /// Chooses an entry, checks the title of the dialog that comes, types a ceiling and presses a
    /// button.
    void answer(const char* entry, const char* title, const char* button)
    {
        bool seen = false;
        QTimer::singleShot(0, window.get(), [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_TRUE(dialog);
            EXPECT_EQ(dialog->windowTitle().toStdString(), title);
            dialog->findChild<QLineEdit*>(QStringLiteral("ceiling"))->setText(QStringLiteral("77"));
            QTest::mouseClick(dialog->findChild<QPushButton*>(QString::fromLatin1(button)),
                              Qt::LeftButton);
            seen = true;
        });
        choose(entry);
        EXPECT_TRUE(seen);
        EXPECT_EQ(opbusy, 0);
    }
};

TEST_F(PictureCommands, ANewPictureIsDrawnOnceItsPropertiesAreApplied)
{
    answer("mnuFileNewPic", "Propriétés de la nouvelle image", "apply");
    ASSERT_EQ(openpictures.size(), 1U);
    EXPECT_EQ(openpictures[0]->data.maxx, 77);
    EXPECT_EQ(openpictures[0]->data.scalewidth, 40);
}

TEST_F(PictureCommands, ANewPictureThatIsCancelledIsNotMade)
{
    answer("mnuFileNewPic", "Propriétés de la nouvelle image", "cancel");
    EXPECT_TRUE(openpictures.empty());
}

TEST_F(PictureCommands, ApplyingDrawsTheActivePictureAnew)
{
    addpicture("/images/vue.bmp");
    answer("mnuFilePicPro", "Propriétés de ..\\vue.bmp", "apply");
    ASSERT_EQ(openpictures.size(), 1U);
    EXPECT_EQ(openpictures[0]->data.Pictype, pictype::map);
    EXPECT_EQ(openpictures[0]->data.maxx, 77);
    EXPECT_EQ(openpictures[0]->data.scalewidth, 40);
}

TEST_F(PictureCommands, DrawingAPictureAnewBringsTheStationsBack)
{
    addpicture("/images/vue.bmp");
    mapgrid.maplon = {7, 8, 8, 7};
    mapgrid.maplat = {45, 45, 44, 44};
    network.units[3].lon = 7.5F;
    network.units[3].lat = 44.5F;
    answer("mnuFilePicPro", "Propriétés de ..\\vue.bmp", "apply");
    EXPECT_TRUE(openpictures[0]->marks.stations[3].visible);
    window->setchecked("mnuViewAuto", false);
    answer("mnuFilePicPro", "Propriétés de ..\\vue.bmp", "apply");
    EXPECT_FALSE(openpictures[0]->marks.stations[3].visible);
}

TEST_F(PictureCommands, TheTimerDrawsTheNetsOnceAStationHasMoved)
{
    addpicture("/images/vue.bmp");
    mapgrid.maplon = {7, 8, 8, 7};
    mapgrid.maplat = {45, 45, 44, 44};
    answer("mnuFilePicPro", "Propriétés de ..\\vue.bmp", "apply");
    network.units[3].lon = network.units[4].lon = 7.25F;
    network.units[3].lat = network.units[4].lat = 44.5F;
    selection.curunit = 4;
    moveunit(7.5F, 44.5F);
    EXPECT_FALSE(openpictures[0]->marks.stations[3].visible);
    EXPECT_TRUE(QTest::qWaitFor([] { return openpictures[0]->marks.stations[3].visible; }, 2000));
    EXPECT_FALSE(moved);
}

TEST_F(PictureCommands, CancellingLeavesTheActivePicture)
{
    addpicture("/images/vue.bmp");
    answer("mnuFilePicPro", "Propriétés de ..\\vue.bmp", "cancel");
    EXPECT_EQ(openpictures[0]->data.Pictype, pictype::plain);
    EXPECT_EQ(openpictures[0]->data.scalewidth, 200);
}

TEST_F(PictureCommands, TheWorldMapTakesNoDrawing)
{
    choose("mnuViewWorld");
    ASSERT_EQ(openpictures.size(), 1U);
    EXPECT_TRUE(openpictures[0]->data.isworld());
    EXPECT_EQ(window->activepicture(), openpictures[0].get());
    const QImage before = openpictures[0]->surface.kept;
    answer("mnuFilePicPro", "Propriétés de la nouvelle image", "apply");
    ASSERT_EQ(openpictures.size(), 2U);
    EXPECT_EQ(openpictures[0]->surface.kept, before);
    EXPECT_EQ(openpictures[1]->data.maxx, 77);
}

TEST_F(PictureCommands, ExportsAMapAndAFourCornerPicture)
{
    answer("mnuFileNewPic", "Propriétés de la nouvelle image", "apply");
    expectfilename("Exporter l'image", path("carte.tif"));
    OpenPicture& picture = *openpictures[0];
    picture.data.lon = {7, 8, 8, 7};
    picture.data.lat = {45, 45, 44, 44};
    choose("mnuFileExportPic");
    EXPECT_TRUE(QFile::exists(QString::fromStdString(path("carte.tif"))));
    picture.data.Pictype = pictype::fourcorners;
    picture.data.lon = {7, 8, 7.9F, 6.9F};
    expectfilename("Exporter l'image", path("penchée.kml"));
    choose("mnuFileExportPic");
    EXPECT_TRUE(QFile::exists(QString::fromStdString(path("penchée.kml"))));
    EXPECT_FALSE(QImage(QString::fromStdString(path("penchée.png"))).isNull());
}

TEST_F(PictureCommands, AsksBeforeAnExportReplacesAnyOfItsFiles)
{
    answer("mnuFileNewPic", "Propriétés de la nouvelle image", "apply");
    OpenPicture& picture = *openpictures[0];
    picture.data.lon = {7, 8, 8, 7};
    picture.data.lat = {45, 45, 44, 44};
    ASSERT_TRUE(writefile(path("vue.png"), "photo"));
    expectfilename("Exporter l'image", path("vue.kml"));
    expectquestion("vue.png existe déjà. Le remplacer?", Answer::no);
    choose("mnuFileExportPic");
    EXPECT_EQ(readfile(path("vue.png")), "photo");
    EXPECT_FALSE(findfile(path("vue.kml")));
    expectfilename("Exporter l'image", path("vue.kml"));
    expectquestion("vue.png existe déjà. Le remplacer?", Answer::yes);
    choose("mnuFileExportPic");
    EXPECT_NE(readfile(path("vue.png")), "photo");
    EXPECT_EQ(label2(), "vue.kml et vue.png ont été enregistrés");
    expectfilename("Exporter l'image", path("vue.kml"));
    expectquestion("vue.kml et vue.png existent déjà. Les remplacer?", Answer::no);
    choose("mnuFileExportPic");
}

TEST_F(PictureCommands, AnExportHasTheEndingOfItsKind)
{
    EXPECT_EQ(exportname("d/vue.png", "tif"), "d/vue.tif");
    EXPECT_EQ(exportname("d/vue.tiff", "tif"), "d/vue.tiff");
    EXPECT_EQ(exportname("d/vue.tif", "kmz"), "d/vue.kmz");
    EXPECT_EQ(exportname("d/vue", "kml"), "d/vue.kml");
    EXPECT_EQ(exportname("d/vue 2.5", "kml"), "d/vue 2.5.kml");
    EXPECT_EQ(exportname("d/vue.KML", ""), "d/vue.KML");
    EXPECT_EQ(exportname("d/vue.png", ""), "d/vue.tif");
}

TEST_F(PictureCommands, TheDialogOffersAnExportBesideThePictureInThreeKinds)
{
    answer("mnuFileNewPic", "Propriétés de la nouvelle image", "apply");
    OpenPicture& picture = *openpictures[0];
    picture.data.Filename = path("plan.bmp");
    picture.data.lon = {7, 8, 8, 7};
    picture.data.lat = {45, 45, 44, 44};
    askfilename = filedialog;
    QTimer::singleShot(0, [this] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->selectedFiles().constFirst().toStdString(), path("plan.tif"));
        ASSERT_EQ(dialog->nameFilters().size(), 3);
        dialog->selectNameFilter(dialog->nameFilters().at(1));
        emit dialog->filterSelected(dialog->nameFilters().at(1));
        dialog->selectFile(QString::fromStdString(path("plan.png")));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    choose("mnuFileExportPic");
    EXPECT_TRUE(findfile(path("plan.kml"))) << "the kind is that of the filter";
    EXPECT_EQ(label2(), "plan.kml et plan.png ont été enregistrés");
}

TEST_F(PictureCommands, TellsThatAPictureWithoutAPositionCannotBeExported)
{
    addpicture("/images/vue.bmp");
    expectfilename("Exporter l'image", path("vue.tif"));
    expectquestion(path("vue.tif") + " impossible à enregistrer\nL'image n'a pas de position.",
                   Answer::ok);
    choose("mnuFileExportPic");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("vue.tif"))));
}
