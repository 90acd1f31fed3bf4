#include "base/paint/colour.h"
#include "coordinates/dmsfields.h"
#include "coordinates/geosys.h"
#include "coordinates/mgrs.h"
#include "coordinates/positiontexts.h"
#include "coordinates/windows/frmDMS.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

class FrmDMS : public testing::Test
{
protected:
    void SetUp() override
    {
        geosys = GeodeticSystem();
        picklon = -73.25F;
        picklat = 45.5F;
    }
    void TearDown() override { geosys = GeodeticSystem(); }

    void open()
    {
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    }
    QLineEdit* field(const char* name)
    {
        return dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    QPushButton* button(const char* name)
    {
        return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    std::string text(const char* name) { return field(name)->text().toStdString(); }
    /// Replaces a field's text by what is typed.
    void type(const char* name, const char* typed)
    {
        field(name)->setFocus();
        field(name)->selectAll();
        QTest::keyClick(field(name), Qt::Key_Delete);
        QTest::keyClicks(field(name), QString::fromLatin1(typed));
    }
    void click(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton); }

    frmDMS dialog;
};

TEST_F(FrmDMS, OpensOnThePositionItIsHanded)
{
    open();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Coordonnées WGS"));
    EXPECT_EQ(text("londegrees"), "073");
    EXPECT_EQ(text("lonminutes"), "15");
    EXPECT_EQ(text("lonseconds"), "00");
    EXPECT_EQ(button("lonletter")->text(), QStringLiteral("O"));
    EXPECT_EQ(text("latdegrees"), "45");
    EXPECT_EQ(text("latminutes"), "30");
    EXPECT_EQ(text("latseconds"), "00");
    EXPECT_EQ(button("latletter")->text(), QStringLiteral("N"));
    EXPECT_EQ(text("combined"), "FN35JM");
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("combinedlabel"))->text(),
              QStringLiteral("QRA"));
}

TEST_F(FrmDMS, AFieldIsSelectedWholeWhereTheKeyboardIs)
{
    open();
    EXPECT_TRUE(field("londegrees")->hasFocus());
    for (const char* name : {"londegrees", "lonminutes", "lonseconds", "latdegrees", "latminutes",
                             "latseconds", "combined"}) {
        field(name)->setFocus();
        EXPECT_EQ(field(name)->selectedText(), field(name)->text()) << name;
    }
    type("combined", "JN18");
    field("latdegrees")->setFocus();
    EXPECT_EQ(field("latdegrees")->selectedText(), QStringLiteral("48"));
}

TEST_F(FrmDMS, TypingInAFieldMovesThePositionAndTheCombinedReference)
{
    open();
    type("londegrees", "2");
    click("lonletter");
    type("latdegrees", "48");
    EXPECT_FLOAT_EQ(dialog.lon, 2.25F);
    EXPECT_FLOAT_EQ(dialog.lat, 48.5F);
    EXPECT_EQ(text("combined"), "JN18DM");
    EXPECT_EQ(text("londegrees"), "2") << "the text stays as typed";
}

TEST_F(FrmDMS, LettersFlipWithEachPress)
{
    open();
    click("lonletter");
    EXPECT_EQ(button("lonletter")->text(), QStringLiteral("E"));
    EXPECT_FLOAT_EQ(dialog.lon, 73.25F);
    click("lonletter");
    EXPECT_EQ(button("lonletter")->text(), QStringLiteral("O"));
    EXPECT_FLOAT_EQ(dialog.lon, -73.25F);
    click("latletter");
    EXPECT_EQ(button("latletter")->text(), QStringLiteral("S"));
    EXPECT_FLOAT_EQ(dialog.lat, -45.5F);
    EXPECT_EQ(text("combined"), locator(-73.25F, -45.5F));
}

TEST_F(FrmDMS, ALocatorInLowerCaseIsReadAndStaysAsTyped)
{
    open();
    type("combined", "jn18du");
    EXPECT_EQ(text("combined"), "jn18du");
    EXPECT_FLOAT_EQ(dialog.lon, 2.25F);
    EXPECT_FLOAT_EQ(dialog.lat, 48 + 20 / 24.0F);
    EXPECT_EQ(text("londegrees"), "002");
    EXPECT_EQ(text("latminutes"), "50");
}

TEST_F(FrmDMS, AShortLocatorCountsItsMissingCharactersAsTheFirst)
{
    open();
    type("combined", "FN");
    EXPECT_FLOAT_EQ(dialog.lon, -80);
    EXPECT_FLOAT_EQ(dialog.lat, 40);
}

TEST_F(FrmDMS, AnEmptyLocatorShowsTheClampedSouthWestCorner)
{
    open();
    type("combined", "");
    EXPECT_EQ(dialog.lon, -180);
    EXPECT_EQ(dialog.lat, -89);
    EXPECT_EQ(text("londegrees"), "180");
    EXPECT_EQ(text("latdegrees"), "89");
    EXPECT_EQ(button("latletter")->text(), QStringLiteral("S"));
}

TEST_F(FrmDMS, InGridModeABadReferenceTurnsRedAndKeepsThePosition)
{
    geosys.name = "WGS 84";
    derivegeosys(geosys);
    open();
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("combinedlabel"))->text(),
              QStringLiteral("MGRS"));
    EXPECT_EQ(text("combined"), ll2mgrs(-73.25, 45.5));
    const QColor plain = field("combined")->palette().color(QPalette::Text);
    type("combined", "nulle part");
    EXPECT_EQ(field("combined")->palette().color(QPalette::Text),
              readablered(QPalette().color(QPalette::Base)));
    EXPECT_FLOAT_EQ(dialog.lon, -73.25F);
    EXPECT_FLOAT_EQ(dialog.lat, 45.5F);
    const std::string good = ll2mgrs(2.25, 48.5);
    type("combined", good.c_str());
    EXPECT_EQ(field("combined")->palette().color(QPalette::Text), plain);
    EXPECT_NEAR(dialog.lon, 2.25, 1e-3); // the reference names a square of 10 m
    EXPECT_NEAR(dialog.lat, 48.5, 1e-3);
}

TEST_F(FrmDMS, ApplyHandsThePositionBack)
{
    open();
    type("londegrees", "10");
    click("apply");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FLOAT_EQ(picklon, -10.25F);
    EXPECT_FLOAT_EQ(picklat, 45.5F);
}

TEST_F(FrmDMS, CancelAndEscapeLeaveThePairAsItWas)
{
    open();
    type("londegrees", "10");
    click("cancel");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FLOAT_EQ(picklon, -73.25F);
    open();
    type("latdegrees", "10");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_FLOAT_EQ(picklat, 45.5F);
}

TEST_F(FrmDMS, EnterInAFieldApplies)
{
    open();
    type("latdegrees", "46");
    QTest::keyClick(field("latdegrees"), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FLOAT_EQ(picklat, 46.5F);
}

TEST_F(FrmDMS, OpensAnewOnTheCurrentPair)
{
    open();
    type("latdegrees", "10");
    click("cancel");
    picklat = -12;
    open();
    EXPECT_EQ(text("latdegrees"), "12");
    EXPECT_EQ(button("latletter")->text(), QStringLiteral("S"));
}
