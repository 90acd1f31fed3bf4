#include "base/hooks.h"
#include "base/operation.h"

#include <cmath>
#include <gmock/gmock.h>
#include <string>
#include <vector>

using testing::ElementsAre;

static double now = 0;

class OperationTest : public testing::Test
{
protected:
    void SetUp() override
    {
        // The bar remembers its last percentage and time: begin far behind both.
        static double start = 0;
        start += 1000;
        now = start;
        timeofday = [] { return now; };
        optotal = 0;
        showprogress(1);
        now += 1;
        hooks.setlabel1 = [this](const std::string& text) { label1.push_back(text); };
        hooks.setlabel2 = [this](const std::string& text) { label2 = text; };
        hooks.setprogress = [this](int percent) { bar.push_back(percent); };
        hooks.setbusyinterface = [this](bool busy) { interfacebusy = busy; };
        hooks.erasenets = [this] { ++erased; };
        hooks.pumpevents = [this] { ++pumped; };
        hooks.refreshoperation = [this](int code) { refreshed.push_back(code); };
        operationextent = {1023, 767, 600};
        tilecount = 12;
    }
    void TearDown() override
    {
        resethooks();
        timeofday = realtime;
        opbusy = 0;
        optotal = 0;
    }

    double (*realtime)() = timeofday;
    std::vector<std::string> label1;
    std::string label2;
    std::vector<int> bar;
    std::vector<int> refreshed;
    bool interfacebusy = false;
    int erased = 0;
    int pumped = 0;
};

TEST_F(OperationTest, BeginShowsTheTextAndOnePercentAtOnce)
{
    optiles = 5;
    beginop(Operation::openmap);
    EXPECT_EQ(opbusy, 3);
    EXPECT_EQ(optotal, 512);
    EXPECT_EQ(optiles, 0);
    EXPECT_EQ(label2, "Ouverture du fichier carte...");
    EXPECT_THAT(bar, ElementsAre(1));
    EXPECT_THAT(label1, ElementsAre("1%"));
    EXPECT_TRUE(interfacebusy);
    EXPECT_EQ(erased, 1);
}

TEST_F(OperationTest, ACoverageKeepsTheNetworksAndItsCallersTotal)
{
    optotal = 42;
    beginop(Operation::coverage);
    EXPECT_EQ(erased, 0);
    EXPECT_EQ(optotal, 42);
    EXPECT_EQ(label2, "Calcul de la couverture ...");
}

struct OperationCase {
    const char* text;
    float total;
    Operation code;
};

TEST_F(OperationTest, EachKindHasItsTextAndTotal)
{
    const OperationCase cases[] = {
        {"Dessin de l'image 2D...", 12, Operation::drawmap},
        {"Extraction des données GTOPO30...", 767, Operation::gtopo30},
        {"Compilation des statistiques de la carte...", 1023, Operation::statistics},
        {"Extraction des données Terrain...", 12, Operation::terrain},
        {"Extraction des données DTED...", 12, Operation::dted},
        {"Dessin de l'image 3D...", 1023.0F * 767, Operation::draw3d},
        {"Dessin de l'image ADRG...", 1023.0F * 767, Operation::adrg},
        {"Dessin du panorama...", 9, Operation::panorama},
        {"Mélange des images...", 600, Operation::merge},
        {"Dessin d'une image stereo 2D...", 767, Operation::stereo},
        {"Mélange avec une carte Quo Vadis...", 12, Operation::quovadis},
    };
    for (const OperationCase& expected : cases) {
        optotal = 9;
        beginop(expected.code);
        EXPECT_EQ(label2, expected.text);
        EXPECT_EQ(optotal, expected.total) << expected.text;
        EXPECT_EQ(opbusy, static_cast<int>(expected.code));
    }
}

TEST_F(OperationTest, EveryStepHandlesEventsAndEveryTwentiethReports)
{
    beginop(Operation::openmap);
    pumped = 0;
    bar.clear();
    for (int step = 0; step <= 511; ++step) {
        now += 1;
        EXPECT_EQ(opstep(step), 1);
    }
    EXPECT_EQ(pumped, 512);
    ASSERT_FALSE(bar.empty());
    EXPECT_LE(bar.size(), 26U);
    EXPECT_EQ(bar.back(), 98); // step 500 of 512
}

TEST_F(OperationTest, StoppedStepsReturnZero)
{
    beginop(Operation::statistics);
    hooks.pumpevents = [] { opbusy = 0; };
    EXPECT_EQ(opstep(1), 0);
    EXPECT_EQ(opstep(20), 0);
    endop();
    EXPECT_EQ(label2, "Arrêté par l'utilisateur.");
}

TEST_F(OperationTest, EndShowsCompleteAndReadyTogether)
{
    beginop(Operation::statistics);
    endop();
    EXPECT_EQ(label2, "Complété.");
    EXPECT_EQ(label1.back(), "Prêt");
    EXPECT_EQ(bar.back(), 0);
    EXPECT_FALSE(interfacebusy);
    EXPECT_EQ(opbusy, 0);
}

TEST_F(OperationTest, TheValueOfAStepFollowsTheKind)
{
    struct {
        Operation code;
        int step;
        int percent;
    } const cases[] = {
        {Operation::terrain, 400, 25},    // 3 of 12 tiles
        {Operation::dted, 512 * 20, 100}, // 3 + 10 of 12
        {Operation::drawmap, 2560, 100},  // 3 + 10 of 12
        {Operation::quovadis, 2300, 50},  // 3 + 3 of 12
        {Operation::merge, 300, 50},      {Operation::gtopo30, 380, 50},
    };
    for (const auto& expected : cases) {
        beginop(expected.code);
        optiles = 3;
        now += 1;
        opstep(expected.step);
        EXPECT_EQ(bar.back(), expected.percent) << static_cast<int>(expected.code);
    }
    optotal = 100;
    beginop(Operation::panorama);
    optiles = 1;
    now += 1;
    opstep(20);
    EXPECT_EQ(bar.back(), 70);
}

TEST_F(OperationTest, PicturesAreRefreshedWithEveryTwentiethStep)
{
    for (const Operation code : {Operation::panorama, Operation::merge, Operation::stereo}) {
        refreshed.clear();
        beginop(code);
        for (int step = 1; step <= 40; ++step)
            opstep(step);
        EXPECT_THAT(refreshed, ElementsAre(static_cast<int>(code), static_cast<int>(code)));
    }
    refreshed.clear();
    beginop(Operation::gtopo30);
    opstep(20);
    EXPECT_TRUE(refreshed.empty());
}

TEST_F(OperationTest, TheBarStaysWithinOneAndAHundred)
{
    optotal = 10;
    showprogress(0.001F);
    now += 1;
    showprogress(50);
    EXPECT_THAT(bar, ElementsAre(1, 100));
    now += 1;
    optotal = 0; // no total: the value is the share itself
    showprogress(0.5F);
    EXPECT_EQ(bar.back(), 50);
}

TEST_F(OperationTest, TheBarMovesAtMostFourTimesASecondAndNeverToTheSamePlace)
{
    optotal = 100;
    showprogress(10);
    now += 0.2;
    showprogress(20);
    EXPECT_THAT(bar, ElementsAre(10));
    now += 0.1;
    showprogress(20);
    now += 1;
    showprogress(20.2F);
    EXPECT_THAT(bar, ElementsAre(10, 20));
}

TEST_F(OperationTest, MidnightDoesNotStopTheBar)
{
    optotal = 100;
    const double evening = now;
    showprogress(30);
    now = evening - 500;
    showprogress(31);
    EXPECT_THAT(bar, ElementsAre(30, 31));
    now = evening;
}

TEST_F(OperationTest, NothingOrLessHidesTheBar)
{
    showprogress(0);
    showprogress(-1);
    showprogress(std::nanf(""));
    EXPECT_THAT(bar, ElementsAre(0, 0, 0));
}

TEST(Hooks, DefaultsAreCautious)
{
    resethooks();
    EXPECT_EQ(hooks.askuser({"?", Question::Buttons::yesno, Question::Icon::question}), Answer::no);
    EXPECT_EQ(hooks.askuser({"?", Question::Buttons::ok, Question::Icon::question}), Answer::ok);
    EXPECT_EQ(hooks.askuser({"?", Question::Buttons::abortretryignore, {}}), Answer::ignore);
    EXPECT_EQ(hooks.screensize(), std::pair(1024, 768));
    EXPECT_TRUE(hooks.openpictures().empty());
}

TEST(Hooks, AMessageHasAnExclamationAndOneButton)
{
    Question asked;
    hooks.askuser = [&](const Question& question) {
        asked = question;
        return Answer::ok;
    };
    telluser("Mauvais format de carte");
    resethooks();
    EXPECT_EQ(asked.text, "Mauvais format de carte");
    EXPECT_EQ(asked.buttons, Question::Buttons::ok);
    EXPECT_EQ(asked.icon, Question::Icon::exclamation);
}
