#include "base/paint/colour.h"
#include "base/windows/choosers.h"
#include "pictures/paint/picturetest.h"
#include "relief/windows/frmColors.h"
#include "relief/windows/frmPicPro.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

class FrmPicPro : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        opbusy = 0;
    }
    void TearDown() override
    {
        askfont = fontdialog;
        pictureactions = {};
        PictureTest::TearDown();
    }

    void open(const Picture* picture = nullptr)
    {
        dialog = std::make_unique<frmPicPro>(picture);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }
    template <typename T> T* child(const char* name) const
    {
        T* found = dialog->findChild<T*>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return found;
    }
    QLineEdit* field(const char* name) const { return child<QLineEdit>(name); }
    std::string text(const char* name) const { return field(name)->text().toStdString(); }
    void type(const char* name, const char* typed) const
    {
        field(name)->setText(QString::fromLatin1(typed));
    }
    void press(const char* name) const
    {
        QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton);
    }
    void check(const char* name, bool on = true) const
    {
        if (child<QCheckBox>(name)->isChecked() != on)
            child<QCheckBox>(name)->click();
    }
    void choosemode(int mode) const
    {
        child<QRadioButton>(("mode" + std::to_string(mode)).c_str())->click();
    }
    bool enabled(const char* name) const { return child<QWidget>(name)->isEnabled(); }
    bool isred(const char* name) const
    {
        return field(name)->palette().color(QPalette::Text) ==
               readablered(QPalette().color(QPalette::Base));
    }
    QImage preview() const { return child<QLabel>("preview")->pixmap(Qt::ReturnByValue).toImage(); }

    std::unique_ptr<frmPicPro> dialog;
};

TEST_F(FrmPicPro, OpensForANewPictureWithTheMapsSettings)
{
    mapgrid.record.light = 12.5F;
    mapgrid.record.c2 = 2;
    mapgrid.cities = -1;
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Propriétés de la nouvelle image"));
    EXPECT_TRUE(child<QRadioButton>("mode5")->isChecked());
    EXPECT_EQ(text("floor"), "100.00");
    EXPECT_EQ(text("ceiling"), "500.00");
    EXPECT_EQ(text("contrast"), "30");
    EXPECT_EQ(text("brightness"), "70");
    EXPECT_EQ(text("light"), "12.5");
    EXPECT_FALSE(child<QCheckBox>("contour10")->isChecked());
    EXPECT_FALSE(child<QCheckBox>("contour100")->isChecked());
    EXPECT_TRUE(child<QCheckBox>("contour500")->isChecked());
    EXPECT_TRUE(child<QCheckBox>("cities")->isChecked());
    EXPECT_TRUE(child<QCheckBox>("objects")->isChecked());
    EXPECT_TRUE(child<QCheckBox>("transparent")->isChecked());
    EXPECT_EQ(text("objectpath"), "C");
    EXPECT_EQ(text("adrgpath"), "c");
}

TEST_F(FrmPicPro, HasTheseTextsInThisOrder)
{
    open();
    std::vector<std::string> modes;
    for (const auto* option : dialog->findChildren<QRadioButton*>())
        modes.push_back(option->text().toStdString());
    EXPECT_THAT(modes, testing::ElementsAre(
                           "Arc-en-ciel", "Paysage lunaire", "Couleurs stratifiées  (absolu)",
                           "Couleurs stratifiées  (relatif)", "Rayon X", "Rayon X (inversé)"));
    std::vector<std::string> texts;
    for (const auto* label : dialog->findChildren<QLabel*>())
        texts.push_back(label->text().toStdString());
    for (const char* caption :
         {"Plancher (m)", "Plafond (m)", "Contraste (%)", "Luminosité (%)",
          "Azimut d'éclairage (°)", "Lecteur/chemin Objet", "Lecteur/chemin ADRG"})
        EXPECT_THAT(texts, testing::Contains(caption));
    texts.clear();
    for (const auto* box : dialog->findChildren<QCheckBox*>())
        texts.push_back(box->text().toStdString());
    EXPECT_THAT(texts, testing::ElementsAre("Courbes d'altitude 10 m", "Courbes d'altitude 100 m",
                                            "Courbes d'altitude 500 m", "Montrer les villes",
                                            "Transparent", "Montrer les objets"));
    texts.clear();
    for (const auto* button : dialog->findChildren<QPushButton*>())
        texts.push_back(button->text().toStdString());
    EXPECT_THAT(texts, testing::UnorderedElementsAre("Couleurs...", "Police", "Image 3D", "Stéréo",
                                                     "ADRG", "Appliquer", "Annuler"));
}

TEST_F(FrmPicPro, OpensForAPictureWithWhatItWasDrawnWith)
{
    Picture picture;
    picture.Filename = "/images/vue.bmp";
    picture.Mapmode = 4;
    picture.hmax = 10;
    picture.maxx = 321;
    open(&picture);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Propriétés de ..\\vue.bmp"));
    EXPECT_TRUE(child<QRadioButton>("mode4")->isChecked());
    EXPECT_EQ(text("ceiling"), "321.00");
    EXPECT_THAT(child<QLabel>("information")->text().toStdString(),
                testing::EndsWith("Répertoire: /images/"));
}

TEST_F(FrmPicPro, XraysTakeNeitherContrastNorBrightness)
{
    open();
    for (const int mode : {0, 1, 2, 3, 4, 5}) {
        choosemode(mode);
        EXPECT_EQ(enabled("contrast"), mode != 3 && mode != 4) << mode;
        EXPECT_EQ(enabled("brightness"), mode != 3 && mode != 4) << mode;
        EXPECT_TRUE(enabled("light")) << mode;
        EXPECT_EQ(enabled("colours"), mode == 5) << mode;
    }
}

TEST_F(FrmPicPro, TransparentNeedsCitiesAndTheFontNeedsLabels)
{
    open();
    for (const bool cities : {false, true})
        for (const bool objects : {false, true}) {
            check("cities", cities);
            check("objects", objects);
            EXPECT_EQ(enabled("transparent"), cities);
            EXPECT_EQ(enabled("font"), cities || objects);
        }
}

TEST_F(FrmPicPro, NumbersOutOfTheirRangeAreRedAndHeld)
{
    struct Case {
        const char* name;
        float MapRecord::*target;
        const char *low, *high, *toolow, *toohigh;
        float lowest, highest;
    };
    const std::vector<Case> cases{
        {"floor", &MapRecord::minx, "-999", "9999", "-999.5", "10000", -999, 9999},
        {"ceiling", &MapRecord::maxx, "-999", "99999", "-1000", "100000", -999, 99999},
        {"contrast", &MapRecord::con, "0", "100", "-1", "100.5", 0, 100},
        {"brightness", &MapRecord::bri, "0", "100", "-1", "101", 0, 100},
        {"light", &MapRecord::light, "0", "360", "-0.5", "361", 0, 360},
    };
    for (const Case& c : cases) {
        for (const bool high : {false, true}) {
            open();
            type(c.name, high ? c.high : c.low);
            EXPECT_FALSE(isred(c.name)) << c.name;
            type(c.name, high ? c.toohigh : c.toolow);
            EXPECT_TRUE(isred(c.name)) << c.name;
            press("apply");
            EXPECT_EQ(mapgrid.record.*c.target, high ? c.highest : c.lowest) << c.name;
        }
    }
}

TEST_F(FrmPicPro, ATextThatIsNoNumberCountsAsZero)
{
    open();
    type("light", "nord");
    EXPECT_FALSE(isred("light"));
    press("apply");
    EXPECT_EQ(mapgrid.record.light, 0);
}

TEST_F(FrmPicPro, AFieldLeftAloneKeepsTheValueBehindItsText)
{
    mapgrid.record.minx = 12.3456F;
    open();
    EXPECT_EQ(text("floor"), "12.35");
    press("apply");
    EXPECT_EQ(mapgrid.record.minx, 12.3456F);
}

TEST_F(FrmPicPro, ApplyStoresEverythingAndSignalsTheCaller)
{
    open();
    choosemode(2);
    type("ceiling", "750.5");
    check("contour10");
    check("contour100");
    check("contour500");
    check("cities");
    check("objects", false);
    type("objectpath", "  D:\\Objets  ");
    EXPECT_EQ(mapgrid.record.Mapmode, 5) << "nothing before it is applied";
    EXPECT_EQ(mapgrid.record.maxx, 500);
    press("apply");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(opbusy, 1);
    EXPECT_EQ(mapgrid.record.Mapmode, 2);
    EXPECT_EQ(mapgrid.record.maxx, 750.5F);
    EXPECT_EQ(mapgrid.record.c1, 1);
    EXPECT_EQ(mapgrid.record.c2, 3);
    EXPECT_EQ(mapgrid.cities, -1);
    EXPECT_FALSE(session.drawobject);
    EXPECT_EQ(session.objectdrive, "d:\\objets");
    EXPECT_EQ(session.adrgdrive, "C") << "only its own button stores that folder";
}

TEST_F(FrmPicPro, CancelAndEscapeChangeNothing)
{
    const MapRecord before = mapgrid.record;
    for (const bool escape : {false, true}) {
        open();
        choosemode(3);
        type("floor", "1");
        check("contour10");
        check("objects", false);
        type("objectpath", "d:");
        if (escape)
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
        else
            press("cancel");
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(mapgrid.record, before);
        EXPECT_TRUE(session.drawobject);
        EXPECT_EQ(session.objectdrive, "C");
        EXPECT_EQ(opbusy, 0);
    }
}

TEST_F(FrmPicPro, TransparentTakesEffectAtOnce)
{
    open();
    check("cities");
    check("transparent", false);
    EXPECT_FALSE(session.drawtransparent);
    press("cancel");
    EXPECT_FALSE(session.drawtransparent);
}

TEST_F(FrmPicPro, TheFontDialogSetsTheFontOfLabels)
{
    askfont = [](const FontChoice& start, QWidget*) {
        EXPECT_EQ(start, (FontChoice{QStringLiteral("MS Sans Serif"), 8, true, false}));
        return std::optional(FontChoice{QStringLiteral("Serif"), 13, false, true});
    };
    open();
    press("font");
    EXPECT_EQ(session.drawfontname, "Serif");
    EXPECT_EQ(session.drawfontsize, 13);
    EXPECT_FALSE(session.drawfontbold);
    EXPECT_TRUE(session.drawfontitalic);
}

TEST_F(FrmPicPro, GivingUpTheFontDialogKeepsTheFont)
{
    askfont = [](const FontChoice&, QWidget*) { return std::optional<FontChoice>(); };
    open();
    press("font");
    EXPECT_EQ(session.drawfontname, "MS Sans Serif");
}

TEST_F(FrmPicPro, TheFontDialogLeftUntouchedKeepsTheFont)
{
    open();
    QTimer::singleShot(0, dialog.get(), [] {
        auto* box = QApplication::activeModalWidget();
        ASSERT_TRUE(box);
        EXPECT_EQ(box->findChild<QComboBox*>(QStringLiteral("name"))->currentText().toStdString(),
                  "MS Sans Serif"); // which this system has not
        box->findChild<QPushButton*>(QStringLiteral("ok"))->click();
    });
    press("font");
    EXPECT_EQ(session.drawfontname, "MS Sans Serif");
    EXPECT_EQ(session.drawfontsize, 8);
    EXPECT_TRUE(session.drawfontbold);
    EXPECT_FALSE(session.drawfontitalic);
}

TEST_F(FrmPicPro, TheFontDialogGivesWhatIsChosenInIt)
{
    open();
    QTimer::singleShot(0, dialog.get(), [] {
        auto* box = QApplication::activeModalWidget();
        ASSERT_TRUE(box);
        box->findChild<QSpinBox*>(QStringLiteral("points"))->setValue(14);
        box->findChild<QCheckBox*>(QStringLiteral("bold"))->click();
        box->findChild<QCheckBox*>(QStringLiteral("italic"))->click();
        QTest::keyClick(box, Qt::Key_Return);
    });
    press("font");
    EXPECT_EQ(session.drawfontsize, 14);
    EXPECT_FALSE(session.drawfontbold);
    EXPECT_TRUE(session.drawfontitalic);
    EXPECT_EQ(session.drawfontname, "MS Sans Serif");
}

TEST_F(FrmPicPro, EnterAppliesFromAnyField)
{
    open();
    field("contrast")->setFocus();
    field("contrast")->selectAll();
    QTest::keyClicks(field("contrast"), QStringLiteral("55"));
    QTest::keyClick(field("contrast"), Qt::Key_Return);
    EXPECT_EQ(opbusy, 1);
    EXPECT_EQ(mapgrid.record.con, 55);
}

TEST_F(FrmPicPro, ColoursOpenOnTheFloorAndCeilingUnderEdit)
{
    open();
    type("floor", "0");
    type("ceiling", "2000");
    bool seen = false;
    QTimer::singleShot(0, dialog.get(), [&seen] {
        auto* inner = qobject_cast<frmColors*>(QApplication::activeModalWidget());
        ASSERT_TRUE(inner);
        QTest::mouseClick(inner->findChild<QPushButton*>(QStringLiteral("relative")),
                          Qt::LeftButton);
        QTest::mouseClick(inner->findChild<QPushButton*>(QStringLiteral("apply")), Qt::LeftButton);
        seen = true;
    });
    press("colours");
    EXPECT_TRUE(seen);
    EXPECT_EQ(colours.levels[10], 2000);
    EXPECT_EQ(mapgrid.record.maxx, 500) << "the map's own ceiling waits for its button";
}

TEST_F(FrmPicPro, ThePreviewFollowsWhatIsTyped)
{
    open();
    const QImage first = preview();
    ASSERT_FALSE(first.isNull());
    choosemode(0);
    const QImage grey = preview();
    EXPECT_NE(first, grey);
    const QColor pixel = grey.pixelColor(20, 20);
    EXPECT_EQ(pixel.red(), pixel.blue()) << "the lunar landscape has no colours";
    type("light", "90");
    EXPECT_NE(preview(), grey);
}

TEST_F(FrmPicPro, AMapWithoutSamplesHasNoPreview)
{
    mapgrid = {};
    open();
    EXPECT_TRUE(preview().isNull());
}

TEST_F(FrmPicPro, ButtonsWithoutAProcedureAreDisabled)
{
    open();
    for (const char* name : {"image3d", "stereo", "adrg"})
        EXPECT_FALSE(enabled(name)) << name;
}

TEST_F(FrmPicPro, FurtherButtonsCloseFirstAndStoreWhatIsTheirs)
{
    std::vector<std::string> called;
    const auto note = [&](const char* name) {
        return [&called, this, name] {
            EXPECT_FALSE(dialog->isVisible());
            called.emplace_back(name);
        };
    };
    pictureactions = {note("image3d"), note("stereo"), note("adrg")};
    open();
    type("floor", "7");
    type("objectpath", "d:");
    press("image3d");
    EXPECT_EQ(mapgrid.record.minx, 100);
    open();
    type("floor", "7");
    type("objectpath", "d:");
    press("stereo");
    EXPECT_EQ(mapgrid.record.minx, 7);
    EXPECT_EQ(session.objectdrive, "C") << "stored by Appliquer only";
    EXPECT_EQ(opbusy, 0);
    open();
    type("adrgpath", " E:\\ADRG ");
    press("adrg");
    EXPECT_EQ(session.adrgdrive, "e:\\adrg");
    EXPECT_THAT(called, testing::ElementsAre("image3d", "stereo", "adrg"));
}
