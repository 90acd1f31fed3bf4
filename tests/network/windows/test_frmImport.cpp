// The preview of an import: each record with its slot or the reason why it is not taken.

#include "base/windows/undostack.h"
#include "network/windows/frmImport.h"
#include "network/windows/netundo.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace
{
StationRecord station(std::size_t row, const char* name, double lon, double lat)
{
    StationRecord record;
    record.row = row;
    record.name = name;
    record.lon = lon;
    record.lat = lat;
    return record;
}

class ImportPreview : public testing::Test
{
protected:
    ImportPreview()
    {
        network = defaulttables();
        forgetedits();
        mapgrid = {};
        unitat(1).lon = 6;
        unitat(1).lat = 45;
        records.add(station(2, "Un nom de plus de vingt caractères", 6.5, 45.25));
        StationRecord high = station(3, "Col", -6.5, -45.25);
        high.elevation = 2100;
        records.add(high);
        StationRecord bad = station(4, "Nulle part", 0, 0);
        bad.fault = StationFault::nonumber;
        bad.detail = "est";
        records.add(bad);
    }
    ~ImportPreview() override
    {
        forgetedits();
        network = defaulttables();
    }
    static QString cell(const frmImport& dialog, int row, int column)
    {
        return dialog.findChild<QTableWidget*>()->item(row, column)->text();
    }
    static QString label(const frmImport& dialog, const char* name)
    {
        return dialog.findChild<QLabel*>(QString::fromLatin1(name))->text();
    }

    StationRecords records;
};
} // namespace

TEST_F(ImportPreview, ShowsWhatIsTakenAndWhatNotAndWhy)
{
    const frmImport dialog(records, QStringLiteral("sites.csv"));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Importer des stations de sites.csv"));
    EXPECT_EQ(label(dialog, "summary"),
              QStringLiteral("2 stations seront importées, 1 ligne ne le sera pas."));
    EXPECT_EQ(cell(dialog, 0, 0), QStringLiteral("2"));
    EXPECT_EQ(cell(dialog, 0, 1), QStringLiteral("Un nom de plus de vi"));
    EXPECT_EQ(cell(dialog, 0, 2), QStringLiteral("006°30'00\"E"));
    EXPECT_EQ(cell(dialog, 0, 5), QStringLiteral("2"));
    EXPECT_EQ(cell(dialog, 0, 6), QStringLiteral("nom coupé à 20 caractères ; "
                                                 "hors de la carte, sans altitude : 0 m"));
    EXPECT_EQ(cell(dialog, 1, 4), QStringLiteral("2100"));
    EXPECT_EQ(cell(dialog, 1, 6), QStringLiteral("hors de la carte : altitude du fichier"));
    EXPECT_EQ(cell(dialog, 2, 5), QString());
    EXPECT_EQ(cell(dialog, 2, 6), QStringLiteral("Non importée : coordonnée illisible : « est »"));
}

TEST_F(ImportPreview, FollowsItsChoices)
{
    frmImport dialog(records, QStringLiteral("sites.csv"));
    dialog.findChild<QCheckBox*>(QStringLiteral("replace"))->setChecked(true);
    EXPECT_EQ(cell(dialog, 0, 5), QStringLiteral("1"));
    dialog.findChild<QSpinBox*>(QStringLiteral("first"))->setValue(50);
    EXPECT_EQ(cell(dialog, 0, 5), QStringLiteral("50"));
    EXPECT_EQ(cell(dialog, 1, 6), QStringLiteral("Non importée : pas de place libre jusqu'à 50"));
    EXPECT_EQ(dialog.taken(), 1);
}

TEST_F(ImportPreview, CountsWhatHasNoLine)
{
    for (std::size_t row = 5; row < 105; ++row)
        records.add(station(row, "s", 6, 45));
    const frmImport dialog(records, QStringLiteral("sites.csv"));
    EXPECT_EQ(label(dialog, "uncounted"),
              QStringLiteral("52 autres stations n'ont pas de place libre"));
    EXPECT_EQ(label(dialog, "summary"),
              QStringLiteral("49 stations seront importées, 54 lignes ne le seront pas."));
}

TEST_F(ImportPreview, WritesTheStationsAsOneActionThatCanBeTakenBack)
{
    const NetworkTables before = network;
    frmImport dialog(records, QStringLiteral("sites.csv"));
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("apply")), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(unitat(2).name.text(), "Un nom de plus de vi");
    EXPECT_EQ(unitat(3).elevation, 2100);
    EXPECT_EQ(undostack().count(), 1);
    EXPECT_EQ(undotext(), QStringLiteral("importer 2 stations"));
    undolast();
    EXPECT_TRUE(network == before);
}

TEST_F(ImportPreview, GivenUpOrEmptyItWritesNothing)
{
    const NetworkTables before = network;
    frmImport dialog(records, QStringLiteral("sites.csv"));
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cancel")), Qt::LeftButton);
    EXPECT_TRUE(network == before);
    StationRecords faulty;
    faulty.add(records.kept[2]);
    const frmImport none(faulty, QStringLiteral("sites.csv"));
    EXPECT_FALSE(none.findChild<QPushButton*>(QStringLiteral("apply"))->isEnabled());
}
