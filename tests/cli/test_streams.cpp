// Standard input and output in the place of files, and figures as JSON.

#include "cli/handmade.h"
#include "cli/process.h"

#include <fstream>
#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{
class Streams : public CliTest
{
protected:
    void SetUp() override
    {
        CliTest::SetUp();
        write("plan.net", handmade::network());
        write("plain.map", handmade::map());
    }
    std::string content(const std::string& name) const
    {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
};
} // namespace

TEST_F(Streams, GiveTheNetwork)
{
    const std::string named = success({"evaluate", "plan.net"}).out;
    write(".in", handmade::network());
    EXPECT_EQ(success({"evaluate", "-", "--map", "plain.map"}).out, named);
    EXPECT_EQ(success({"info", "-"}).out, success({"info", "plan.net"}).out);
    EXPECT_THAT(failure(2, {"evaluate", "-", "--map", "-"}), HasSubstr("only one"));
}

TEST_F(Streams, GiveTheMap)
{
    const std::string named = success({"evaluate", "plan.net"}).out;
    write(".in", handmade::map());
    EXPECT_EQ(success({"evaluate", "plan.net", "--map", "-"}).out, named);
    EXPECT_EQ(success({"info", "-"}).out, success({"info", "plain.map"}).out);
    EXPECT_EQ(success({"elevation", "-", "8.25", "44.25"}).out,
              success({"elevation", "plain.map", "8.25", "44.25"}).out);
    write(".in", "Bonjour");
    EXPECT_THAT(failure(1, {"info", "-"}), HasSubstr("neither"));
    EXPECT_THAT(failure(1, {"elevation", "-", "8.25", "44.25"}),
                StartsWith("velmora-cli: standard input"));
}

TEST_F(Streams, TakeTextFiles)
{
    success({"export", "plan.net", "1", "2", "2", "-o", "p.txt"});
    EXPECT_EQ(success({"export", "plan.net", "1", "2", "2", "-o", "-"}).out, content("p.txt"));
    success({"report", "plan.net", "-o", "r.txt"});
    EXPECT_EQ(run({"report", "plan.net", "-o", "-"}).out, content("r.txt"));
    const std::string printed = success({"report", "plan.net"}).out;
    EXPECT_THAT(printed, HasSubstr("Généralités\n"));
    EXPECT_EQ(printed.find('\r'), std::string::npos);
    EXPECT_THAT(success({"haat", "plan.net", "1", "1"}).out,
                StartsWith("HAAT, hauteur au dessus du sol moyen\n"));
}

TEST_F(Streams, TakeAGeoTiffWhileFiguresGoAside)
{
    if (run({"render", "plain.map", "-o", "b.bmp", "--geotiff", "b.tif"}).status != 0)
        GTEST_SKIP() << "built without GDAL";
    const Outcome outcome = run({"viewshed", "plan.net", "1", "--geotiff", "-"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, StartsWith("II*"));
    EXPECT_THAT(outcome.err, StartsWith("area_km2="));
}

TEST_F(Streams, FiguresComeAsOneJsonObject)
{
    const std::string link = success({"link", "plan.net", "1", "2", "2", "--json"}).out;
    EXPECT_THAT(link, StartsWith("{\n  \"n\": "));
    EXPECT_THAT(link, HasSubstr("\"linktext1\": \""));
    EXPECT_THAT(link, HasSubstr("\\u000a")) << "line ends within a text";
    EXPECT_THAT(success({"link", "plan.net", "1", "2", "0", "--json"}).out,
                HasSubstr("\"loss\": null"));
    EXPECT_THAT(success({"where", "2", "48", "--json"}).out, HasSubstr("\"locator\": \"JN18AA\""));
    EXPECT_THAT(success({"info", "plain.map", "--json"}).out, HasSubstr("\"W\": 41"));
    EXPECT_THAT(success({"parse", "JN18AA", "--json"}).out, HasSubstr("\"lon\": 2"));
}
