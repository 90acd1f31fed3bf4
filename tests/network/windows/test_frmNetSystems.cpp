#include "base/paths.h"
#include "network/windows/netdialogtest.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QListWidget>
#include <QTest>

namespace
{
class FrmNetSystems : public NetDialogTest
{
protected:
    void writepredefined(const std::string& content) const
    {
        ASSERT_TRUE(
            writefile((folder.path() + QStringLiteral("/radiosys.dat")).toStdString(), content));
    }
    /// Takes an entry of the predefined systems from the opened list.
    void offer(int entry) const
    {
        auto* box = find<QComboBox>("predefined");
        box->showPopup();
        box->view()->setCurrentIndex(box->model()->index(entry, 0));
        QTest::keyClick(box->view(), Qt::Key_Return);
        EXPECT_EQ(box->currentIndex(), 0) << "the list shows its title again";
    }
};

struct NumberCase {
    const char* field;
    float RadioSystem::*value;
    const char* typed;
    float expected;
    const char* outside;
    float held;
    const char* caption;
    const char* hint;
};

class FrmNetSystemNumber : public NetDialogTest, public testing::WithParamInterface<NumberCase>
{
};

constexpr const char* two = "Portatif \xE9tanche\r\n5\r\n0.35\r\n0\r\n-5\r\n1.5\r\n"
                            "Relais, \"toit\"\r\n2e9\r\n0.3\r\nrien\r\n8.15\r\n30\r\n";
} // namespace

TEST_P(FrmNetSystemNumber, WritesThroughWithinItsBounds)
{
    const NumberCase& row = GetParam();
    open(2);
    EXPECT_EQ(label((std::string(row.field) + "label").c_str()), row.caption);
    if (*row.hint != '\0') {
        EXPECT_EQ(label((std::string(row.field) + "hint").c_str()), row.hint);
    }
    type(row.field, row.typed);
    EXPECT_FALSE(isred(row.field));
    EXPECT_FLOAT_EQ(system(1).*row.value, row.expected);
    type(row.field, row.outside);
    EXPECT_TRUE(isred(row.field));
    EXPECT_FLOAT_EQ(system(1).*row.value, row.held);
    EXPECT_EQ(text(row.field), row.outside);
}

INSTANTIATE_TEST_SUITE_P(
    All, FrmNetSystemNumber,
    testing::Values(NumberCase{"power", &RadioSystem::power, "1.0E-8", 1e-8F, "1e308", 1e6F,
                               "Puissance d'émission (Watt)", "1.0E-8 à 1.0E+6 Watts"},
                    NumberCase{"threshold", &RadioSystem::threshold, "10", -87, "0", -147,
                               "Seuil de réception (µV)", "0.01 à 2000 microVolts"},
                    NumberCase{"lineloss", &RadioSystem::lineloss, "2.5", 2.5F, "-1", 0,
                               "Perte de ligne (dB)", "0 à 500 dB"},
                    NumberCase{"gain", &RadioSystem::gain, "-9.5", -9.5F, "100.1", 100,
                               "Gain d'antenne (dBi)", "-10 à 100 dBi"},
                    NumberCase{"height", &RadioSystem::height, "30", 30, "nan", 0.5F,
                               "Hauteur d'antenne (m)", ""}),
    [](const auto& instance) { return std::string(instance.param.field); });

TEST_F(FrmNetSystems, TheThresholdIsShownInMicrovoltsAndInDbm)
{
    system(1).threshold = -110.5F;
    open(2);
    EXPECT_EQ(text("threshold"), "0.67");
    EXPECT_EQ(label("level"), "( -110.5 dBm )");
    EXPECT_EQ(system(1).threshold, -110.5F) << "what is shown is rounded, what is stored is not";
    type("threshold", "1");
    EXPECT_EQ(label("level"), "( -107.0 dBm )");
    type("threshold", "zut");
    EXPECT_EQ(label("level"), "( -147.0 dBm )");
    EXPECT_EQ(system(1).threshold, -147);
}

TEST_F(FrmNetSystems, ANameIsFollowedByBothLists)
{
    open(2);
    clickrow("systemlist", 1);
    type("systemname", "Relais, \"toit\"");
    EXPECT_EQ(system(2).name.text(), "Relais, \"toit\"");
    EXPECT_EQ(rowtext("systemlist", 1), "Relais, \"toit\"");
    EXPECT_EQ(find<QComboBox>("system")->itemText(1), QStringLiteral("Relais, \"toit\""));
}

TEST_F(FrmNetSystems, EachSystemIsShownWithItsOwnNumbers)
{
    system(25).power = 0.025F;
    open(2);
    EXPECT_EQ(find<QListWidget>("systemlist")->count(), 25);
    EXPECT_EQ(text("power"), "10");
    clickrow("systemlist", 24);
    EXPECT_EQ(text("systemname"), "Système 25");
    EXPECT_EQ(text("power"), "0.025");
    EXPECT_EQ(system(1).power, 10);
}

TEST_F(FrmNetSystems, PredefinedSystemsFillTheFieldsOfTheSelectedOne)
{
    writepredefined(two);
    open(2);
    const auto* box = find<QComboBox>("predefined");
    ASSERT_EQ(box->count(), 3);
    EXPECT_EQ(box->itemText(0), QStringLiteral("Prédéfinis..."));
    EXPECT_EQ(box->currentIndex(), 0);
    clickrow("systemlist", 2);
    offer(1);
    EXPECT_EQ(system(3).name.text(), "Portatif étanche");
    EXPECT_EQ(system(3).power, 5);
    EXPECT_NEAR(system(3).threshold, -116.12, 0.01);
    EXPECT_EQ(system(3).lineloss, 0);
    EXPECT_EQ(system(3).gain, -5);
    EXPECT_EQ(system(3).height, 1.5F);
    EXPECT_EQ(text("threshold"), "0.35");
    EXPECT_EQ(rowtext("systemlist", 2), "Portatif étanche");
}

TEST_F(FrmNetSystems, NumbersOfTheFileGoThroughTheRuleOfTheFields)
{
    writepredefined(two);
    open(2);
    offer(2);
    EXPECT_EQ(system(1).name.text(), "Relais, \"toit\"");
    EXPECT_EQ(system(1).power, 1e6F);
    EXPECT_TRUE(isred("power"));
    EXPECT_EQ(system(1).lineloss, 0) << "a text that is no number counts as 0";
    EXPECT_EQ(system(1).gain, 8.15F);
}

TEST_F(FrmNetSystems, TheFileIsReadAgainAtEachChoice)
{
    writepredefined(two);
    open(2);
    writepredefined("Portatif \xE9tanche\n7\n1\n1\n1\n1\n");
    offer(1);
    EXPECT_EQ(system(1).power, 7);
    const RadioSystem before = system(1);
    offer(2);
    EXPECT_EQ(system(1), before) << "an entry that has gone changes nothing";
}

TEST_F(FrmNetSystems, WithoutAFileTheTitleStandsAlone)
{
    open(2);
    EXPECT_EQ(find<QComboBox>("predefined")->count(), 1);
    const RadioSystem before = system(1);
    offer(0);
    EXPECT_EQ(system(1), before);
}

TEST_F(FrmNetSystems, AMillionLinesAreOfferedToo)
{
    std::string content;
    for (int i = 0; i < 166'667; ++i)
        content += "S" + std::to_string(i) + "\n1\n2\n3\n4\n5\n";
    writepredefined(content);
    open(2);
    EXPECT_EQ(find<QComboBox>("predefined")->count(), 166'668);
    offer(166'667);
    EXPECT_EQ(system(1).name.text(), "S166666");
}

TEST_F(FrmNetSystems, ArrowKeysTakeNoPredefinedSystemUnseen)
{
    writepredefined(two);
    open(2);
    auto* box = find<QComboBox>("predefined");
    const RadioSystem before = system(1);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_TRUE(box->view()->isVisible());
    box->hidePopup();
    QTest::keyClick(box, Qt::Key_P);
    EXPECT_EQ(system(1), before);
}
