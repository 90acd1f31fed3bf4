#include "base/paths.h"
#include "cli/handmade.h"
#include "cli/process.h"
#include "network/netfile.h"
#include "radio/analysis.h"
#include "radio/scene.h"

#include <charconv>
#include <gtest/gtest.h>
#include <string>

namespace
{
double number(const std::string& text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    EXPECT_EQ(end, text.data() + text.size()) << text;
    EXPECT_EQ(error, std::errc()) << text;
    return value;
}

std::string withmarks(std::string text)
{
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n"))
        text.replace(at, 2, "\\n");
    return text;
}
} // namespace

class OneLink : public CliTest
{
protected:
    void SetUp() override
    {
        CliTest::SetUp();
        write("plan.net", handmade::network());
        write("plain.map", handmade::map());
    }
};

TEST_F(OneLink, OfAHandmadePlainHasItsPlainGeometry)
{
    const auto values = success({"link", "plan.net", "1", "2", "2"}).values();
    EXPECT_EQ(values.at("n"), "20");
    EXPECT_DOUBLE_EQ(number(values.at("distkm")), 20);
    EXPECT_NEAR(number(values.at("azim")), 90, 1e-10);
    EXPECT_EQ(values.at("pathmin"), "120");
    EXPECT_EQ(values.at("pathmax"), "180");
    // 25 W are 43.98 dBm; both ends lose 1 dB and gain 3
    EXPECT_NEAR(number(values.at("gain12")), 43.9794 + 4 + 110, 1e-4);
    EXPECT_EQ(values.at("gain12"), values.at("gain21"));
    EXPECT_NEAR(number(values.at("margin")),
                number(values.at("gain12")) - number(values.at("loss")), 1e-9);
    EXPECT_NEAR(number(values.at("lfree")), 32.45 + 20 * std::log10(20 * 146.0), 0.02);
    EXPECT_GT(number(values.at("lobst")), 0);
    EXPECT_EQ(values.at("lurban"), "0");
    EXPECT_EQ(values.at("los"), "0");
    EXPECT_EQ(values.at("scatter"), "0");
    // The ridge, 60 m high, stands 10 km from either end, whose antennas are 15 m high.
    EXPECT_NEAR(number(values.at("dl1")), 10000, 1);
    EXPECT_NEAR(number(values.at("dl2")), 10000, 1);
    EXPECT_LT(number(values.at("minclear")), 0);
    EXPECT_EQ(values.at("minclearkm"), "10");
    EXPECT_EQ(values.at("linktext1"),
              " La distance entre Tour et Château est de 20.0 km, azimut 90.0°");
    EXPECT_EQ(values.at("linktext2"), " Variation d'altitude de 60.0 m");
    EXPECT_EQ(values.at("linktext3"),
              " Le mode de propagation est la diffraction avec obstruction unique");
    EXPECT_TRUE(values.at("linktext4")
                    .starts_with(" La fréquence moyenne est de 146.000 MHz\\n Espace libre = "));
    EXPECT_EQ(values.size(), 25U);
}

TEST_F(OneLink, TakesNamesWhereTheyAreUnique)
{
    const std::string bynumber = success({"link", "plan.net", "1", "2", "2"}).out;
    EXPECT_EQ(success({"link", "plan.net", "Tour", "Château", "Secours"}).out, bynumber);
    failure(1, {"link", "plan.net", "Tour", "Phare", "2"});
    failure(1, {"link", "plan.net", "1", "51", "2"});
    failure(1, {"link", "plan.net", "0", "2", "2"});
    failure(1, {"link", "plan.net", "1", "2", "26"});
    failure(1, {"link", "plan.net", "1", "2", "-1"});
}

TEST_F(OneLink, WithoutANetHasNoModel)
{
    const auto values = success({"link", "plan.net", "1", "2", "0"}).values();
    EXPECT_EQ(values.size(), 25U);
    EXPECT_EQ(values.at("n"), "20");
    for (const char* key : {"gain12", "gain21", "loss", "lfree", "lobst", "lurban", "dl1", "dl2",
                            "the1", "the2", "gme", "los", "scatter", "margin"})
        EXPECT_EQ(values.at(key), "") << key;
    EXPECT_EQ(values.at("linktext1"), " Impossibilité de montrer les détails");
    EXPECT_EQ(values.at("linktext4"), "");
}

TEST_F(OneLink, WithoutAProfileFails)
{
    EXPECT_NE(failure(1, {"link", "plan.net", "1", "1", "2"}).find("no profile"),
              std::string::npos);
    failure(1, {"link", "plan.net", "1", "4", "2"}); // not placed: outside the map
    failure(1, {"losses", "plan.net", "1", "4", "2"});
    failure(1, {"losses", "plan.net", "4", "1", "0"});
}

TEST_F(OneLink, LossesStandOnBareTerrain)
{
    const auto rows =
        success({"losses", "plan.net", "1", "2", "2"}).rows("i,distance_m,elevation_m,loss_db");
    ASSERT_EQ(rows.size(), 21U);
    for (int i = 0; i <= 20; ++i) {
        const auto& row = rows[static_cast<std::size_t>(i)];
        EXPECT_EQ(row[0], std::to_string(i));
        EXPECT_NEAR(number(row[1]), i * 1000.0, 1e-6);
        EXPECT_EQ(row[2], i == 10 ? "180" : i == 20 ? "120.5" : "120");
    }
    EXPECT_EQ(rows[0][3], "0");
    const auto values = success({"link", "plan.net", "1", "2", "2"}).values();
    EXPECT_NEAR(number(rows[20][3]), number(values.at("loss")), 1e-6);
    EXPECT_GT(number(rows[11][3]), number(rows[9][3])) << "behind the ridge";
}

TEST_F(OneLink, WithoutANetHasNoLosses)
{
    const auto rows =
        success({"losses", "plan.net", "3", "1", "0"}).rows("i,distance_m,elevation_m,loss_db");
    ASSERT_EQ(rows.size(), 13U);
    for (const auto& row : rows)
        EXPECT_EQ(row[3], "0");
}

TEST_F(OneLink, PrintsLossesAsJson)
{
    const std::string json = success({"losses", "plan.net", "1", "2", "0", "--json"}).out;
    EXPECT_TRUE(json.starts_with("[\n  {\"i\": 0, \"distance_m\": 0, \"elevation_m\": 120, "
                                 "\"loss_db\": 0},\n  {\"i\": 1, "));
    EXPECT_TRUE(json.ends_with("}\n]\n"));
}

TEST_F(OneLink, ExportsTheProfile)
{
    EXPECT_EQ(success({"export", "plan.net", "Tour", "Château", "2", "-o", "out.txt"}).out, "");
    const std::string text = readfile((folder / "out.txt").string()).value();
    EXPECT_TRUE(text.starts_with("Velmora\r\nVersion ")) << text;
    EXPECT_NE(text.find("\r\nStart\r\nTour\r\n 15 \r\nCh\xE2teau\r\n 15 \r\n 0.146 \r\n 1.33"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\r\n0000.000\t0120.0\t0\t0\r\n0001.000\t0120.0\t0\t0\r\n"),
              std::string::npos);
    EXPECT_NE(text.find("\r\n0010.000\t0180.0\t0\t0\r\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("\r\n0020.000\t0120.5\t0\t0\r\n"));
}

TEST_F(OneLink, ExportsWithoutANet)
{
    success({"export", "plan.net", "1", "2", "0", "-o", "out.txt"});
    const std::string text = readfile((folder / "out.txt").string()).value();
    EXPECT_NE(text.find("\r\nTour\r\n 2 \r\nCh\xE2teau\r\n 2 \r\n 0 \r\n"), std::string::npos)
        << text;
}

TEST_F(OneLink, ExportsNothingWithoutAProfile)
{
    failure(1, {"export", "plan.net", "1", "1", "2", "-o", "out.txt"});
    failure(1, {"export", "plan.net", "1", "4", "2", "-o", "out.txt"});
    failure(1, {"export", "plan.net", "1", "2", "2", "-o", "missing/out.txt"});
    EXPECT_EQ(run({"export", "plan.net", "1", "2", "2"}).status, 2) << "no file named";
    EXPECT_FALSE(std::filesystem::exists(folder / "out.txt"));
    EXPECT_FALSE(std::filesystem::exists(folder / "missing"));
}

TEST_F(OneLink, InterferenceModeLosesLess)
{
    const auto normal = success({"link", "plan.net", "1", "2", "2"}).values();
    const auto optimistic = success({"link", "plan.net", "1", "2", "2", "--interference"}).values();
    EXPECT_LT(number(optimistic.at("loss")), number(normal.at("loss")));
    EXPECT_NE(optimistic.at("linktext4").find("(mode interférence <optimiste>)"),
              std::string::npos);
}

TEST_F(OneLink, AgreesWithTheAnalysisToTheLastDigit)
{
    const MapGrid map = scene::hillymap(90, 80, 8, 60);
    NetworkTables tables = scene::randomnetwork(map, 8);
    for (int unit = 1; unit <= 6; ++unit)
        scene::place(tables.units[static_cast<std::size_t>(unit)], 10.3F * static_cast<float>(unit),
                     70.2F - 9 * static_cast<float>(unit), 500.25F);
    write("hills.map", map);
    write("plan.net", tables, "hills.map");
    for (int net = 1; net <= 6; ++net) {
        const int other = net == 6 ? 1 : net + 1;
        Link link;
        LinkAnalysis analysis;
        ASSERT_TRUE(analyselink(tables, map, net, other, net, {}, link, analysis));
        const auto values = success({"link", "plan.net", std::to_string(net), std::to_string(other),
                                     std::to_string(net)})
                                .values();
        EXPECT_EQ(number(values.at("distkm")), link.profile.distkm);
        EXPECT_EQ(number(values.at("azim")), link.profile.azim);
        EXPECT_EQ(number(values.at("gain12")), link.gain12);
        EXPECT_EQ(number(values.at("gain21")), link.gain21);
        EXPECT_EQ(number(values.at("margin")), analysis.margin);
        const LRRecord& record = link.record;
        for (const auto& [key, value] : {std::pair("loss", double{record.loss}),
                                         {"lfree", double{record.lfree}},
                                         {"lobst", double{record.lobst}},
                                         {"lurban", double{record.lurban}},
                                         {"dl1", double{record.dl1}},
                                         {"dl2", double{record.dl2}},
                                         {"the1", double{record.the1}},
                                         {"the2", double{record.the2}},
                                         {"gme", double{record.gme}}})
            EXPECT_EQ(number(values.at(key)), value) << key;
        EXPECT_EQ(static_cast<float>(number(values.at("minclear"))), analysis.minclear);
        EXPECT_EQ(static_cast<float>(number(values.at("minclearkm"))), analysis.minclearkm);
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(values.at("linktext" + std::to_string(i + 1)),
                      withmarks(analysis.linktext[i]));
    }
}
