// Stations to and from other programs, by the menu.

#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "base/windows/undostack.h"
#include "network/tables.h"
#include "network/unsaved.h"
#include "network/windows/frmImport.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTimer>

namespace
{
class StationCommands : public ShellTest
{
protected:
    void SetUp() override { start(); }
    void write(const std::string& name, const char* content) const
    {
        QFile file(QString::fromStdString(path(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray content(const std::string& name) const
    {
        QFile file(QString::fromStdString(path(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Presses a button of the preview when it comes up.
    static void press(const char* button)
    {
        QTimer::singleShot(0, [button] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_TRUE(qobject_cast<frmImport*>(dialog));
            dialog->findChild<QPushButton*>(QString::fromLatin1(button))->click();
        });
    }
};
} // namespace

TEST_F(StationCommands, ImportAfterThePreview)
{
    write("sites.csv", "nom;lon;lat;altitude\nTour;6,5;45,5;800\n");
    expectfilename("Importer des stations", path("sites.csv"));
    press("apply");
    choose("mnuFileImportUnits");
    EXPECT_EQ(unitat(1).name.text(), "Tour");
    EXPECT_EQ(unitat(1).elevation, 800);
    EXPECT_TRUE(netunsaved());
    EXPECT_EQ(label2(), "Stations importées : 1");
    EXPECT_EQ(undotext(), QStringLiteral("importer 1 station"));
    marksaved();
}

TEST_F(StationCommands, ImportNothingWhenGivenUp)
{
    const NetworkTables before = network;
    write("sites.csv", "nom,lon,lat\nTour,6.5,45.5\n");
    expectfilename("Importer des stations", path("sites.csv"));
    press("cancel");
    choose("mnuFileImportUnits");
    EXPECT_TRUE(network == before);
    EXPECT_FALSE(netunsaved());
}

TEST_F(StationCommands, TellWhatCannotBeRead)
{
    write("sites.csv", "nom,altitude\nTour,6.5\n");
    expectfilename("Importer des stations", path("sites.csv"));
    expectquestion("sites.csv : la première ligne doit nommer les colonnes, dont lon et lat",
                   Answer::ok);
    choose("mnuFileImportUnits");
    write("vide.csv", "nom,lon,lat\n");
    expectfilename("Importer des stations", path("vide.csv"));
    expectquestion("vide.csv : aucune station dans ce fichier", Answer::ok);
    choose("mnuFileImportUnits");
}

TEST_F(StationCommands, ExportAndAskBeforeReplacing)
{
    unitat(1).name.assign("Tour");
    unitat(1).lon = 6.5F;
    unitat(1).lat = 45.5F;
    expectfilename("Exporter les stations et les liens", path("plan"));
    choose("mnuFileExportUnits");
    EXPECT_TRUE(content("plan.kml").contains("<coordinates>6.5,45.5,0</coordinates>"));
    EXPECT_EQ(label2(), "plan.kml a été enregistré");
    write("plan.csv", "x");
    expectfilename("Exporter les stations et les liens", path("plan.csv"));
    expectquestion("plan.csv existe déjà. Le remplacer?", Answer::no);
    choose("mnuFileExportUnits");
    EXPECT_EQ(content("plan.csv"), "x");
    expectfilename("Exporter les stations et les liens", path("plan.csv"));
    expectquestion("plan.csv existe déjà. Le remplacer?", Answer::yes);
    choose("mnuFileExportUnits");
    EXPECT_TRUE(content("plan.csv").startsWith("slot,name,"));
}
