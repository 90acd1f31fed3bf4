#include "cli/handmade.h"
#include "cli/process.h"

#include <gtest/gtest.h>
#include <string>

class Positions : public CliTest
{
};

TEST_F(Positions, HaveTheirTextForms)
{
    const Outcome outcome = success({"where", "-73.25055", "45.50333"});
    const auto values = outcome.values();
    EXPECT_EQ(values.at("dms"), "073°15'02\"O 45°30'12\"N");
    EXPECT_EQ(values.at("locator"), "FN35IM");
    EXPECT_TRUE(values.at("mgrs").starts_with("18T X")) << values.at("mgrs");
    EXPECT_TRUE(values.at("utm").starts_with("18 63")) << values.at("utm");
    EXPECT_EQ(values.size(), 4U);
}

TEST_F(Positions, SouthernNorthingsAreNegative)
{
    const std::string utm = success({"where", "151.2", "-33.9"}).values().at("utm");
    EXPECT_TRUE(utm.starts_with("56 ")) << utm;
    EXPECT_NE(utm.find(" -37"), std::string::npos) << utm;
}

TEST_F(Positions, MayBeAnyWayOfWritingANumber)
{
    const std::string plain = success({"where", "-0.5", "0.25"}).out;
    for (const char* lon : {"-.5", "-5e-1", "-0.50"})
        EXPECT_EQ(success({"where", lon, "+.25"}).out, plain) << lon;
    EXPECT_EQ(success({"where", "-q", "--", "-.5", ".25"}).out, plain);
}

TEST_F(Positions, EachTextHasThePositionAsGiven)
{
    // dmslon turns 180 into -180 in its caller's variable, and dmslat holds 89.5 at 89
    const auto values = success({"where", "180", "89.5"}).values();
    EXPECT_EQ(values.at("dms"), "180°00'00\"O 89°00'00\"N");
    EXPECT_TRUE(values.at("utm").starts_with("61 ")) << values.at("utm");
}

TEST_F(Positions, ThatAreNoNumbersAreAWrongCommandLine)
{
    for (const char* wrong : {"east", "12x", "", "nan", "inf", "1e30", "--", "0x10", "1,5"})
        failure(2, {"where", wrong, "45"});
    failure(2, {"where", "7"});
    failure(2, {"where", "7", "45", "3"});
}

TEST_F(Positions, AreReadFromALocator)
{
    const Outcome outcome = success({"parse", "jn18du"});
    EXPECT_EQ(outcome.values().at("lon"), "2.25");
    EXPECT_TRUE(outcome.values().at("lat").starts_with("48.8333")) << outcome.out;
}

TEST_F(Positions, AreReadFromAnMgrsReference)
{
    const auto there = success({"where", "-73.5", "45.25"}).values();
    const auto back = success({"parse", there.at("mgrs")}).values();
    EXPECT_NEAR(std::stod(back.at("lon")), -73.5, 2e-4);
    EXPECT_NEAR(std::stod(back.at("lat")), 45.25, 2e-4);
    EXPECT_NE(failure(1, {"parse", "99Z"}).find("not an MGRS reference"), std::string::npos);
}

TEST_F(Positions, HaveElevationsOnAMap)
{
    write("plain.map", handmade::map());
    const auto rows = success({"elevation", "plain.map", "8.234375", "44.25", "8.25", "44", "9",
                               "44", "-8", "-44"})
                          .rows("lon,lat,x,y,elevation");
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0], (std::vector<std::string>{"8.234375", "44.25", "15", "16", "180"}));
    EXPECT_EQ(rows[1], (std::vector<std::string>{"8.25", "44", "16", "0", "120"}));
    EXPECT_EQ(rows[2], (std::vector<std::string>{"9", "44", "64", "0", ""}));
    EXPECT_EQ(rows[3], (std::vector<std::string>{"-8", "-44", "-1024", "-5632", ""}));
    EXPECT_EQ(success({"elevation", "--json", "plain.map", "9", "44"}).out,
              "[\n  {\"lon\": 9, \"lat\": 44, \"x\": 64, \"y\": 0, \"elevation\": null}\n]\n");
}

TEST_F(Positions, OnAMapComeInPairs)
{
    write("plain.map", handmade::map());
    failure(2, {"elevation", "plain.map", "8", "44", "9"});
    failure(2, {"elevation", "plain.map"});
    failure(2, {"elevation", "plain.map", "8", "north"});
    failure(1, {"elevation", "nowhere.map", "8", "44"});
}

TEST_F(Positions, FollowTheGeodeticSystemOfTheDataFolder)
{
    std::filesystem::create_directory(folder / "data");
    write("data/geosys.dat", std::string("Clarke,6378206.4,6356583.8,0\r\n"));
    const auto values = success({"where", "--data", "data", "-73.5", "45.25"}).values();
    EXPECT_EQ(values.at("locator"), values.at("mgrs")) << "a named system shows grid references";
    EXPECT_NE(values.at("utm"), success({"where", "-73.5", "45.25"}).values().at("utm"));
    EXPECT_NE(failure(1, {"where", "--data", "nowhere", "1", "1"}).find("nowhere: no such folder"),
              std::string::npos);
}

TEST_F(Positions, OutsideTheGlobeAreRefused)
{
    for (const char* lat : {"90.1", "-91", "1000", "nan", "x"})
        failure(2, {"where", "2", lat});
    failure(2, {"where", "720.5", "45"});
    failure(2, {"where", "-721", "45"});
    success({"where", "719", "45"});
    success({"where", "-180", "-90"});
    write("plain.map", handmade::map());
    failure(2, {"elevation", "plain.map", "8", "95"});
}

TEST_F(Positions, TextsThatAreNoneAreRefused)
{
    for (const char* text : {"", "bonjour", "ZZ99ZZ", "JN1", "JN18A", "JN18AAA", "JNAA18", "18JN",
                             "31UDQ123", "31UDQ12 3", "31UDQ12x4", "31U", "1", "-"})
        EXPECT_NE(run({"parse", text}).status, 0) << text;
    const std::string there = success({"where", "2.25", "48.75"}).values().at("mgrs");
    for (const std::string& text : {std::string("JN"), std::string("JN18"), there})
        success({"parse", text});
}
