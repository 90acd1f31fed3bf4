#include "base/hooks.h"
#include "base/operation.h"

#include <cmath>
#include <gmock/gmock.h>
#include <string>
#include <vector>

using testing::ElementsAre;

static double now = 40000;

class OperationTest : public testing::Test
{
protected:
    void SetUp() override
    {
        timeofday = [] { return now; };
        // The bar remembers its last percentage and time: begin far from both.
        beginop({});
        now += 1;
        showprogress(1);
        now += 1;
        hooks.setlabel1 = [this](const std::string& text) { label1.push_back(text); };
        hooks.setlabel2 = [this](const std::string& text) { label2 = text; };
        hooks.setprogress = [this](int percent) { bar.push_back(percent); };
        hooks.setbusyinterface = [this](bool busy) { interfacebusy = busy; };
        hooks.erasenets = [this] { ++erased; };
        hooks.pumpevents = [this] { ++pumped; };
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
    bool interfacebusy = false;
    int erased = 0;
    int pumped = 0;
};

TEST_F(OperationTest, BeginShowsTheTextAndOnePercentAtOnce)
{
    optiles = 5;
    beginop({.number = 3, .text = "Ouverture du fichier carte...", .total = 512});
    EXPECT_EQ(opbusy, 3);
    EXPECT_EQ(optotal, 512);
    EXPECT_EQ(optiles, 0);
    EXPECT_EQ(label2, "Ouverture du fichier carte...");
    EXPECT_THAT(bar, ElementsAre(1));
    EXPECT_THAT(label1, ElementsAre("1%"));
    EXPECT_TRUE(interfacebusy);
    EXPECT_EQ(erased, 1);
}

TEST_F(OperationTest, OneThatIsDrawnOnTheNetworksKeepsThem)
{
    beginop({.number = 11, .erasesnets = false});
    EXPECT_EQ(erased, 0);
}

TEST_F(OperationTest, AnotherBeginReplacesTheJob)
{
    const Job job{.number = 5, .text = "a", .total = 12, .value = [](float) { return 6.0F; }};
    beginop(job);
    beginop({.number = 4, .text = "b", .total = 100});
    EXPECT_EQ(opbusy, 4);
    EXPECT_EQ(label2, "b");
    now += 1;
    opstep(20);
    EXPECT_EQ(bar.back(), 20);
}

TEST_F(OperationTest, TheFirstReportOfAJobIsAlwaysPainted)
{
    beginop({.number = 3, .total = 512});
    beginop({.number = 4, .total = 512});
    EXPECT_THAT(bar, ElementsAre(1, 1)) << "the same percentage at the same time";
}

TEST_F(OperationTest, EveryStepHandlesEventsAndEveryTwentiethReports)
{
    beginop({.number = 3, .total = 512});
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
    beginop({.number = 4, .total = 100});
    hooks.pumpevents = [] { opbusy = 0; };
    EXPECT_EQ(opstep(1), 0);
    EXPECT_EQ(opstep(20), 0);
    endop();
    EXPECT_EQ(label2, "Arrêté par l'utilisateur.");
}

TEST_F(OperationTest, EndShowsCompleteAndReadyTogether)
{
    beginop({.number = 4, .total = 100});
    endop();
    EXPECT_EQ(label2, "Complété.");
    EXPECT_EQ(label1.back(), "Prêt");
    EXPECT_EQ(bar.back(), 0);
    EXPECT_FALSE(interfacebusy);
    EXPECT_EQ(opbusy, 0);
}

TEST_F(OperationTest, AStepCountsAsItIsOrByTheJob)
{
    beginop({.number = 2, .total = 767});
    now += 1;
    opstep(380);
    EXPECT_EQ(bar.back(), 50);
    beginop({.number = 1, .total = 12, .value = [](float step) {
                 return static_cast<float>(optiles) + step / 256;
             }});
    optiles = 3;
    now += 1;
    opstep(2560); // 3 + 10 of 12
    EXPECT_EQ(bar.back(), 100);
}

TEST_F(OperationTest, PicturesAreRefreshedWithEveryTwentiethStep)
{
    int refreshed = 0;
    beginop({.number = 10, .total = 600, .refresh = [&] { ++refreshed; }});
    EXPECT_EQ(refreshed, 0);
    for (int step = 1; step <= 40; ++step)
        opstep(step);
    EXPECT_EQ(refreshed, 2);
    opbusy = 0;
    opstep(60);
    endop();
    opstep(80);
    EXPECT_EQ(refreshed, 2) << "neither after a stop nor after its end";
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
