#include "base/windows/undostack.h"
#include "network/windows/netundo.h"

#include <gtest/gtest.h>

namespace
{

class NetUndo : public testing::Test
{
protected:
    void SetUp() override
    {
        network = defaulttables();
        forgetedits();
        networkundohooks.changed = [this] { ++told; };
    }
    void TearDown() override
    {
        networkundohooks = {};
        forgetedits();
        network = defaulttables();
    }

    static void name(std::size_t unit, const char* text) { network.units[unit].name.assign(text); }
    static std::string nameof(std::size_t unit) { return network.units[unit].name.text(); }

    int told = 0;
};

} // namespace

TEST_F(NetUndo, AnActionIsOneEntryWithAllItChanged)
{
    const NetworkTables before = network;
    TablesEdit edit(QStringLiteral("déplacer Nord"));
    network.units[1].lon = 5;
    network.units[1].lat = 45;
    network.units[1].elevation = 800;
    edit.done();
    const NetworkTables after = network;
    EXPECT_EQ(undotext(), QStringLiteral("déplacer Nord"));
    EXPECT_EQ(told, 0) << "whoever did it has shown it";
    undolast();
    EXPECT_TRUE(network == before);
    EXPECT_EQ(told, 1);
    redolast();
    EXPECT_TRUE(network == after);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(undostack().count(), 1);
}

TEST_F(NetUndo, WhatIsGivenUpOrChangesNothingMakesNoEntry)
{
    {
        TablesEdit edit(QStringLiteral("a"));
        name(1, "Nord");
    }
    TablesEdit nothing(QStringLiteral("b"));
    nothing.done();
    EXPECT_EQ(undostack().count(), 0);
}

TEST_F(NetUndo, AnActionAlreadyDoneIsEnteredByWhatWasBefore)
{
    const NetworkTables before = network;
    network.antheights[2][3] = 25;
    pushtablesedit(QStringLiteral("hauteur"), before);
    undolast();
    EXPECT_TRUE(network == before);
}

TEST_F(NetUndo, APositionThatCameMeanwhileStays)
{
    TablesEdit edit(QStringLiteral("nommer"));
    name(1, "Nord");
    edit.done();
    network.units[1].lon = 6; // live
    undolast();
    EXPECT_EQ(network.units[1].lon, 6);
    EXPECT_EQ(nameof(1), defaulttables().units[1].name.text());
}

TEST_F(NetUndo, AnEditGoesOnBehindItsEntry)
{
    TablesEdit edit(QStringLiteral("nommer"));
    name(1, "Nord");
    edit.done();
    edit.done(); // nothing since
    EXPECT_EQ(undostack().count(), 1);
    name(2, "Sud");
    edit.done();
    EXPECT_EQ(undostack().count(), 2);
    undolast();
    EXPECT_EQ(nameof(1), "Nord");
}

TEST_F(NetUndo, OfTwoEditsUnderWayEachTakesItsOwn)
{
    TablesEdit outer(QStringLiteral("champ"));
    name(1, "Nord");
    TablesEdit inner(QStringLiteral("glisser"));
    network.units[2].lon = 5;
    inner.done();
    outer.done();
    EXPECT_EQ(undostack().count(), 2);
    undolast();
    EXPECT_EQ(network.units[2].lon, 5);
    EXPECT_EQ(nameof(1), defaulttables().units[1].name.text());
}

TEST_F(NetUndo, AnEditUnderWayCanBeTakenBackAtOnce)
{
    TablesEdit edit(QStringLiteral("champ"));
    name(1, "N");
    settleedits();
    EXPECT_EQ(undotext(), QStringLiteral("champ"));
    undolast();
    EXPECT_EQ(nameof(1), defaulttables().units[1].name.text());
    name(1, "Sud");
    edit.done();
    EXPECT_EQ(undostack().count(), 1);
    undolast();
    EXPECT_EQ(nameof(1), defaulttables().units[1].name.text());
}

TEST_F(NetUndo, NothingOfAnotherNetworkIsTakenBack)
{
    TablesEdit done(QStringLiteral("a"));
    name(1, "Nord");
    done.done();
    TablesEdit open(QStringLiteral("b"));
    network = defaulttables();
    name(5, "Neuf");
    forgetedits();
    EXPECT_TRUE(undotext().isEmpty());
    open.done();
    EXPECT_TRUE(undotext().isEmpty());
}
