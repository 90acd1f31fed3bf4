#include "network/windows/netdialogtest.h"

#include <QAbstractButton>

#include <gmock/gmock.h>

using testing::ElementsAre;
using FrmNetStyle = NetDialogTest;

TEST_F(FrmNetStyle, HasTheseCaptionsAndNote)
{
    open(4);
    const auto caption = [this](const char* name) {
        return find<QAbstractButton>(name)->text().toStdString();
    };
    EXPECT_EQ(caption("red"), "Sinon dessiner un ligne rouge");
    EXPECT_EQ(caption("yellow"), "Sinon dessiner une ligne jaune si le signal RX (dB) is >=");
    EXPECT_EQ(caption("green"), "Dessiner une ligne verte si le signal RX (dB) is >=");
    EXPECT_EQ(caption("opaque"), "Dessiner avec fond opaque");
    EXPECT_EQ(caption("apply"), "Appliquer");
    EXPECT_EQ(
        label("note"),
        "Noter que si la topologie est du type essaim et que le nombre de retransmissions>0 , "
        "alors la couleur jaune n'est pas affichée et les seuils pour le vert et le rouge "
        "sont mis a zéro.");
}

TEST_F(FrmNetStyle, ShowsTheThreeBytes)
{
    selection.linestyle = {44, 188, 128};
    open(4);
    EXPECT_EQ(text("yellowlevel"), "-6");
    EXPECT_EQ(text("greenlevel"), "10");
    EXPECT_FALSE(checked("red"));
    EXPECT_TRUE(checked("yellow"));
    EXPECT_TRUE(checked("green"));
    EXPECT_FALSE(checked("opaque"));
}

TEST_F(FrmNetStyle, AppliquerStoresThemAndClosesTheDialog)
{
    open(4);
    type("greenlevel", "12");
    type("yellowlevel", "-8");
    click("red");
    click("opaque");
    EXPECT_THAT(selection.linestyle, ElementsAre(175, 181, 129)) << "not before the button";
    click("apply");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_THAT(selection.linestyle, ElementsAre(42, 190, 128));
}

TEST_F(FrmNetStyle, YellowAboveGreenTakesGreensByte)
{
    open(4);
    type("greenlevel", "5");
    type("yellowlevel", "20");
    click("apply");
    EXPECT_THAT(selection.linestyle, ElementsAre(128 + 55, 128 + 55, 129));
}

TEST_F(FrmNetStyle, MarginsOutOfTheScaleAreRedAndHeld)
{
    open(4);
    type("yellowlevel", "-50");
    type("greenlevel", "1e308");
    EXPECT_TRUE(isred("yellowlevel"));
    EXPECT_TRUE(isred("greenlevel"));
    click("apply");
    EXPECT_THAT(selection.linestyle, ElementsAre(128 + 1, 128 + 99, 129));
}

TEST_F(FrmNetStyle, TheRulesOutliveAnnuler)
{
    open(4);
    type("greenlevel", "12");
    click("apply");
    open(4);
    click("cancel");
    EXPECT_EQ(selection.linestyle[1], 128 + 62);
    open(4);
    type("greenlevel", "20");
    click("cancel");
    EXPECT_EQ(selection.linestyle[1], 128 + 62) << "what was not applied is not stored";
}
