#include "cli/handmade.h"
#include "cli/process.h"
#include "network/netfile.h"
#include "radio/evaluate.h"
#include "radio/scene.h"
#include "radio/slowevaluation.h"

#include <gtest/gtest.h>
#include <string>

namespace
{
constexpr const char* evaluateheader = "net,a,b,quality,reach";

using Rows = std::vector<std::vector<std::string>>;

/// What `evaluate` must print.
Rows expectedrows(const QualityTable& table)
{
    Rows rows;
    for (int net = 1; net <= MAXNET; ++net)
        for (int a = 1; a <= MAXUNIT; ++a)
            for (int b = a + 1; b <= MAXUNIT; ++b)
                if (table.at(net, a, b) != 0 || table.at(net, b, a) != 0)
                    rows.push_back({std::to_string(net), std::to_string(a), std::to_string(b),
                                    std::to_string(table.at(net, a, b)),
                                    std::to_string(table.at(net, b, a))});
    return rows;
}

Rows expectedlines(const NetworkTables& tables, const QualityTable& table)
{
    Rows rows;
    for (int a = 1; a <= MAXUNIT; ++a)
        for (int b = a + 1; b <= MAXUNIT; ++b) {
            const int lines = slowlineclass(tables, table, {175, 181, 129}, a, b);
            if (lines > 0)
                rows.push_back({std::to_string(a), std::to_string(b), std::to_string(lines)});
        }
    return rows;
}
} // namespace

class Evaluation : public CliTest
{
protected:
    void SetUp() override
    {
        CliTest::SetUp();
        map = scene::hillymap(80, 75, 3, 55);
        tables = scene::randomnetwork(map, 21);
        write("hills.map", map);
        write("plan.net", tables, "d:\\maps\\HILLS.MAP");
    }
    /// The evaluation by the slow rules.
    QualityTable expected(bool allnets, std::int16_t interference) const
    {
        QualityTable table;
        slowevaluation(tables, map, allnets, interference, table);
        return table;
    }
    MapGrid map;
    NetworkTables tables;
};

TEST_F(Evaluation, PrintsEveryPairWithAResult)
{
    const Rows rows = success({"evaluate", "plan.net"}).rows(evaluateheader);
    EXPECT_GT(rows.size(), 100U);
    EXPECT_EQ(rows, expectedrows(expected(false, 0)));
}

TEST_F(Evaluation, OfAllNetsTakesTheHiddenOnes)
{
    const Rows rows = success({"evaluate", "plan.net", "--all"}).rows(evaluateheader);
    EXPECT_EQ(rows, expectedrows(expected(true, 0)));
    EXPECT_NE(rows, expectedrows(expected(false, 0)));
}

TEST_F(Evaluation, RunsInInterferenceMode)
{
    const Rows rows = success({"evaluate", "--interference", "plan.net"}).rows(evaluateheader);
    EXPECT_EQ(rows, expectedrows(expected(false, 1)));
    EXPECT_NE(rows, expectedrows(expected(false, 0)));
}

TEST_F(Evaluation, IsTheSameOnAnyNumberOfThreads)
{
    const std::string one = success({"evaluate", "plan.net", "--threads", "1"}).out;
    EXPECT_EQ(success({"evaluate", "plan.net", "--threads=2"}).out, one);
    EXPECT_EQ(success({"evaluate", "plan.net"}).out, one);
}

TEST_F(Evaluation, GradesTheLines)
{
    const Rows rows = success({"lines", "plan.net"}).rows("a,b,class");
    EXPECT_GT(rows.size(), 50U);
    EXPECT_EQ(rows, expectedlines(tables, expected(false, 0)));
}

TEST_F(Evaluation, PrintsTheSameRowsAsJson)
{
    const Rows rows = success({"lines", "plan.net"}).rows("a,b,class");
    std::string json = "[";
    for (const auto& row : rows)
        json += (json == "[" ? "\n  {\"a\": " : ",\n  {\"a\": ") + row[0] + ", \"b\": " + row[1] +
                ", \"class\": " + row[2] + "}";
    EXPECT_EQ(success({"lines", "--json", "plan.net"}).out, json + "\n]\n");
}

TEST_F(Evaluation, OfANetworkWithoutLinksIsEmpty)
{
    write("plan.net", defaulttables(), "hills.map");
    EXPECT_EQ(success({"evaluate", "plan.net"}).out, std::string(evaluateheader) + "\n");
    EXPECT_EQ(success({"evaluate", "plan.net", "--json"}).out, "[]\n");
}

TEST_F(Evaluation, TakesAnotherMapInPlaceOfTheNetworks)
{
    map = scene::flatmap(80, 75, 300, 55);
    write("flat.map", map);
    const Rows rows = success({"evaluate", "plan.net", "--map", "flat.map"}).rows(evaluateheader);
    EXPECT_EQ(rows, expectedrows(expected(false, 0)));
    std::filesystem::remove(folder / "hills.map");
    EXPECT_EQ(success({"evaluate", "plan.net", "--map", "flat.map"}).rows(evaluateheader), rows);
}

TEST_F(Evaluation, NeedsAMap)
{
    std::filesystem::remove(folder / "hills.map");
    EXPECT_NE(failure(1, {"evaluate", "plan.net"}).find("HILLS.MAP: map not found"),
              std::string::npos);
    write("plan.net", tables, "");
    EXPECT_NE(failure(1, {"lines", "plan.net"}).find("names no map"), std::string::npos);
    failure(1, {"evaluate", "plan.net", "--map", "nowhere.map"});
    failure(1, {"evaluate", "plan.net", "--map", "plan.net"});
}

TEST_F(Evaluation, RefusesADamagedMap)
{
    const std::string whole = handmade::map();
    write("hills.map", whole.substr(0, whole.size() / 2));
    EXPECT_NE(failure(1, {"evaluate", "plan.net"}).find("incomplete"), std::string::npos);
}

TEST_F(Evaluation, FindsTheMapBesideTheNetworkFromAnotherFolder)
{
    std::filesystem::create_directory(folder / "Projets");
    std::filesystem::rename(folder / "plan.net", folder / "Projets/Plan.NET");
    std::filesystem::rename(folder / "hills.map", folder / "Projets/Hills.map");
    const Rows rows = success({"evaluate", "projets/plan.net"}).rows(evaluateheader);
    EXPECT_EQ(rows, expectedrows(expected(false, 0)));
}

TEST_F(Evaluation, ReadsFilesMadeByHandInBothFormats)
{
    write("plan.net", handmade::network());
    write("old.net", handmade::oldernetwork());
    write("plain.map", handmade::map());
    const Rows rows = success({"evaluate", "plan.net"}).rows(evaluateheader);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0][0], "2");
    EXPECT_EQ(rows[2], (std::vector<std::string>{"2", "2", "3", rows[2][3], rows[2][4]}));
    // The older network has the same stations, but no private antenna height of the third.
    const Rows older = success({"evaluate", "old.net"}).rows(evaluateheader);
    ASSERT_EQ(older.size(), 3U);
    EXPECT_EQ(older[0], rows[0]);
    EXPECT_LT(std::stoi(older[2][3]), std::stoi(rows[2][3]));
}

TEST_F(Evaluation, ReadsAMapOfTheOlderFormat)
{
    write("plan.net", handmade::network());
    write("plain.map", handmade::oldermap());
    EXPECT_EQ(success({"evaluate", "plan.net"}).rows(evaluateheader).size(), 3U);
}
