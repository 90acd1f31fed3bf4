#include "network/windows/netdialogtest.h"

#include <QComboBox>
#include <QTest>

#include <tuple>

namespace
{
class FrmNetParameters : public NetDialogTest
{
};

struct NumberCase {
    const char* field;
    float Net::*value;
    double low, high;
    const char* caption;
    const char* hint;
};

class FrmNetNumber : public NetDialogTest, public testing::WithParamInterface<NumberCase>
{
};
} // namespace

TEST_P(FrmNetNumber, HasItsCaptionAndWritesThroughAtEachKey)
{
    const NumberCase& row = GetParam();
    open();
    EXPECT_EQ(label((std::string(row.field) + "label").c_str()), row.caption);
    if (*row.hint != '\0') {
        EXPECT_EQ(label((std::string(row.field) + "hint").c_str()), row.hint);
    }
    type(row.field, "2");
    EXPECT_EQ(net(1).*row.value, static_cast<float>(std::clamp(2.0, row.low, row.high)));
    QTest::keyClicks(find(row.field), QStringLiteral("5"));
    EXPECT_EQ(net(1).*row.value, static_cast<float>(std::clamp(25.0, row.low, row.high)));
    EXPECT_EQ(text(row.field), "25") << "the text stays as typed";
}

TEST_P(FrmNetNumber, OutOfBoundsIsRedAndHeld)
{
    const NumberCase& row = GetParam();
    open();
    type(row.field, "-3");
    EXPECT_TRUE(isred(row.field));
    EXPECT_EQ(net(1).*row.value, static_cast<float>(row.low));
    type(row.field, "1e308");
    EXPECT_TRUE(isred(row.field));
    EXPECT_EQ(net(1).*row.value, static_cast<float>(row.high));
    for (const char* word : {"abc", "nan", "inf", "\"1,2\"", ""}) {
        type(row.field, word);
        EXPECT_TRUE(isred(row.field)) << word;
        EXPECT_EQ(net(1).*row.value, static_cast<float>(row.low)) << word;
    }
    type(row.field, std::to_string(row.high).c_str());
    EXPECT_FALSE(isred(row.field));
}

INSTANTIATE_TEST_SUITE_P(
    All, FrmNetNumber,
    testing::Values(
        NumberCase{"fmin", &Net::fmin, 20, 20000, "Fréquence minimale (MHz)", "20 à 20 000 MHz"},
        NumberCase{"fmax", &Net::fmax, 20, 20000, "Fréquence maximale  (MHz)", "20 à 20 000 MHz"},
        NumberCase{"refractivity", &Net::refractivity, 250, 400,
                   "Réfractivité en surface (N-Units)", "250 à 400 N-units"},
        NumberCase{"conductivity", &Net::conductivity, 0.0001, 10000, "Conductivité du sol (S/m)",
                   "0.005 pour sol moyen "},
        NumberCase{"permittivity", &Net::permittivity, 0.0001, 10000,
                   "Permittivité relative du sol", "15 pour sol moyen "},
        NumberCase{"ptime", &Net::ptime, 0.1, 99.9, "% du temps", ""},
        NumberCase{"plocation", &Net::plocation, 0.1, 99.9, "% des locations", ""},
        NumberCase{"psituation", &Net::psituation, 0.1, 99.9, "% des situations", ""}),
    [](const auto& instance) { return std::string(instance.param.field); });

TEST_F(FrmNetParameters, ANameIsFollowedByTheListAndHoldsThirtyCharacters)
{
    open();
    type("netname", "Réseau \"A\", vallée & col");
    EXPECT_EQ(net(1).name.text(), "Réseau \"A\", vallée & col");
    EXPECT_EQ(rowtext("netlist", 0), "Réseau \"A\", vallée & col");
    type("netname", "0123456789012345678901234567890123456789");
    EXPECT_EQ(net(1).name.text(), "012345678901234567890123456789");
    EXPECT_EQ(label("netnamehint"), "Jusqu'à 30 caractères");
    type("netname", "");
    EXPECT_EQ(net(1).name.text(), "");
}

TEST_F(FrmNetParameters, ThePolarisationIsOneOfTwo)
{
    open();
    EXPECT_TRUE(checked("polarisation1"));
    click("polarisation0");
    EXPECT_EQ(net(1).polarisation, 0);
    click("polarisation1");
    EXPECT_EQ(net(1).polarisation, 1);
}

TEST_F(FrmNetParameters, TheModeEnablesTheSharesThatItReads)
{
    open();
    const auto shares = [this] {
        return std::tuple(enabled("ptime"), enabled("plocation"), enabled("psituation"));
    };
    EXPECT_EQ(shares(), std::tuple(true, true, true));
    click("statmode0");
    EXPECT_EQ(shares(), std::tuple(false, false, true));
    click("statmode1");
    EXPECT_EQ(shares(), std::tuple(false, true, true));
    click("statmode2");
    EXPECT_EQ(shares(), std::tuple(true, false, true));
    EXPECT_EQ(net(1).statmode, 2);
}

TEST_F(FrmNetParameters, TheUrbanFactorStaysWithEveryMode)
{
    open();
    click("urban");
    EXPECT_EQ(net(1).statmode, 103);
    click("statmode1");
    EXPECT_EQ(net(1).statmode, 101);
    click("urban");
    EXPECT_EQ(net(1).statmode, 1);
    net(2).statmode = 100;
    clickrow("netlist", 1);
    EXPECT_TRUE(checked("urban"));
    EXPECT_TRUE(checked("statmode0"));
    clickrow("netlist", 0);
    EXPECT_FALSE(checked("urban"));
}

TEST_F(FrmNetParameters, TheClimatesCountFromOne)
{
    open();
    const auto* climates = find<QComboBox>("climate");
    ASSERT_EQ(climates->count(), 7);
    EXPECT_EQ(climates->currentText(), QStringLiteral("Continental tempéré"));
    choose("climate", 0);
    EXPECT_EQ(climates->currentText(), QStringLiteral("Équatorial"));
    EXPECT_EQ(net(1).climate, 1);
    choose("climate", 6);
    EXPECT_EQ(climates->currentText(), QStringLiteral("Maritime tempéré sur mer"));
    EXPECT_EQ(net(1).climate, 7);
}
