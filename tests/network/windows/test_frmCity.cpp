#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "network/windows/frmCity.h"
#include "support/places.h"
#include "support/tempfolder.h"
#include "terrain/mapproperties.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

class FrmCity : public testing::Test
{
protected:
    void SetUp() override
    {
        resethooks();
        setprogramfolder(folder.path());
        mapedit = {};
        cityname = "before";
        opbusy = 0;
    }

    void write(const std::string& lines) const
    {
        folder.makefile("cities.dat", "header\r\n" + lines);
    }
    void open()
    {
        window = std::make_unique<frmCity>();
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    template <typename Widget> Widget* find(const char* name) const
    {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    std::string text(const char* label) const { return find<QLabel>(label)->text().toStdString(); }
    QListView* list() const { return find<QListView>("list"); }
    std::vector<std::string> lines() const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            texts.push_back(list()->model()->index(row, 0).data().toString().toStdString());
        return texts;
    }
    QPoint middleof(int row) const
    {
        return list()->visualRect(list()->model()->index(row, 0)).center();
    }
    void clickline(int row) const
    {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, middleof(row));
    }
    void type(const char* typed) const
    {
        QTest::keyClicks(find<QLineEdit>("search"), QString::fromUtf8(typed));
    }
    void press(const char* button) const
    {
        QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
    }

    const std::string threetowns = "\"0\",45.5,73.5,\"Montr\xE9"
                                   "al\"\r\n\"0\",48.85,-2.35,\"Paris\"\r\n"
                                   "\"0\",-22.9,43.2,\"Rio\"\r\n";
    TempFolder folder;
    std::unique_ptr<frmCity> window;
};

TEST_F(FrmCity, ListsThePlacesInTheOrderOfTheFile)
{
    write(threetowns);
    open();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Villes"));
    EXPECT_THAT(lines(), testing::ElementsAre("Montréal              073°30'00\"O 45°30'00\"N",
                                              "Paris                 002°21'00\"E 48°51'00\"N",
                                              "Rio                   043°12'00\"O 22°54'00\"S"));
    EXPECT_EQ(text("count"), "3 entrées");
    EXPECT_EQ(text("picked"), "");
    EXPECT_FALSE(find<QPushButton>("apply")->isEnabled()) << "no place is picked yet";
    EXPECT_EQ(opbusy, 0);
}

TEST_F(FrmCity, NothingElseReactsWhileItReads)
{
    write(threetowns);
    std::vector<int> busy;
    hooks.pumpevents = [&busy] { busy.push_back(opbusy); };
    hooks.busypointer = [&busy](bool on) { busy.push_back(on ? 10 : 20); };
    open();
    EXPECT_THAT(busy, testing::ElementsAre(10, 1, 20));
}

TEST_F(FrmCity, WithoutAGazetteerTheListIsEmpty)
{
    open();
    EXPECT_THAT(lines(), testing::IsEmpty());
    EXPECT_EQ(text("count"), "0 entrées");
}

TEST_F(FrmCity, AnAppliedPlaceGoesToTheCentreOfTheMapUnderEdit)
{
    write(threetowns);
    open();
    clickline(1);
    EXPECT_EQ(text("picked"), "Paris               002°21'00\"E 48°51'00\"N JN18EU");
    press("apply");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(cityname, "Paris               ");
    EXPECT_FLOAT_EQ(mapedit.maplon0, 2.35F);
    EXPECT_FLOAT_EQ(mapedit.maplat0, 48.85F);
}

TEST_F(FrmCity, ADoubleClickApplies)
{
    write(threetowns);
    open();
    clickline(2);
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, middleof(2));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(cityname.substr(0, 3), "Rio");
    EXPECT_FLOAT_EQ(mapedit.maplon0, -43.2F);
    EXPECT_FLOAT_EQ(mapedit.maplat0, -22.9F);
}

TEST_F(FrmCity, GivingUpAppliesNothing)
{
    write(threetowns);
    for (const bool byescape : {false, true}) {
        open();
        EXPECT_EQ(cityname, "");
        clickline(1);
        if (byescape)
            QTest::keyClick(window.get(), Qt::Key_Escape);
        else
            press("cancel");
        EXPECT_FALSE(window->isVisible());
        EXPECT_EQ(cityname, "");
        EXPECT_TRUE(mapedit == MapRecord());
    }
}

TEST_F(FrmCity, TypingShowsOnlyTheTownsThatContainTheText)
{
    write(threetowns);
    open();
    type("REAL");
    EXPECT_THAT(lines(), testing::ElementsAre(testing::StartsWith("Montréal")));
    EXPECT_EQ(text("count"), "1 sur 3 entrées");
    EXPECT_THAT(text("picked"), testing::StartsWith("Montréal")) << "the first one is picked";
    type("x");
    EXPECT_THAT(lines(), testing::IsEmpty());
    EXPECT_FALSE(find<QPushButton>("apply")->isEnabled());
    find<QLineEdit>("search")->clear();
    EXPECT_EQ(lines().size(), 3U);
    EXPECT_EQ(text("picked"), "");
}

TEST_F(FrmCity, TheKeyboardAloneIsEnough)
{
    write(threetowns);
    open();
    type("r"); // Montréal, Paris, Rio
    QTest::keyClick(find<QLineEdit>("search"), Qt::Key_Down);
    EXPECT_THAT(text("picked"), testing::StartsWith("Paris"));
    QTest::keyClick(find<QLineEdit>("search"), Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(cityname.substr(0, 5), "Paris");
}

TEST_F(FrmCity, ShowsTheShippedGazetteerWhole)
{
    setprogramfolder(sourcefolder() + "/data/");
    open();
    EXPECT_GT(lines().size(), 1900U);
}

TEST_F(FrmCity, AMillionTownsAreSearchedWithoutTrouble)
{
    std::string million;
    for (int i = 0; i < 1'000'000; ++i)
        million += "\"0\",45.5,73.5,\"Laval\"\r\n";
    write(million + threetowns);
    open();
    EXPECT_EQ(list()->model()->rowCount(), 1'000'003);
    type("pari");
    EXPECT_EQ(list()->model()->rowCount(), 1);
}

TEST_F(FrmCity, BytesThatAreNoTextAreNoTowns)
{
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>(i * 7919 % 256);
    write(bytes);
    open();
    EXPECT_LT(lines().size(), 50U);
}
