#include "gis/gisfiles.h"
#include "gis/module/readvectors.h"
#include "gis/module/writevectors.h"

namespace
{
class Vectors : public GisTest
{
protected:
    static VectorLayer stations()
    {
        VectorLayer layer;
        layer.name = "stations";
        layer.fields = {{"name", FieldType::text}, {"slot", FieldType::integer}};
        layer.features = {{VectorKind::points, {{{1.5, 41.5, 320}}}, true, {"Château", "1"}},
                          {VectorKind::points, {{{-179.5, -12.25, 0}}}, true, {"Île", "2"}}};
        return layer;
    }
    std::vector<VectorLayer> through(const std::vector<VectorLayer>& layers, VectorFormat format,
                                     const std::string& name)
    {
        std::string why;
        const auto bytes = vectorbytes(layers, format, why);
        EXPECT_TRUE(bytes) << why;
        folder.makefile(name, bytes.value_or(""));
        std::vector<VectorLayer> back;
        EXPECT_TRUE(readvectors(folder.path(name), {}, back, why)) << why;
        return back;
    }
    static std::string valueof(const VectorLayer& layer, std::size_t feature, const char* field)
    {
        for (std::size_t i = 0; i < layer.fields.size(); ++i)
            if (layer.fields[i].name == field)
                return layer.features.at(feature).values.at(i);
        return "no such field";
    }
};
} // namespace

TEST_F(Vectors, PointsComeBackFromEveryKind)
{
    for (const auto& [format, name] : {std::pair(VectorFormat::geojson, "a.geojson"),
                                       {VectorFormat::gpx, "a.gpx"},
                                       {VectorFormat::kml, "a.kml"},
                                       {VectorFormat::geopackage, "a.gpkg"}}) {
        const auto back = through({stations()}, format, name);
        ASSERT_GE(back.size(), 1U) << name;
        ASSERT_EQ(back[0].features.size(), 2U) << name;
        const VectorFeature& first = back[0].features[0];
        EXPECT_EQ(first.kind, VectorKind::points);
        ASSERT_EQ(first.parts.size(), 1U);
        EXPECT_NEAR(first.parts[0][0].lon, 1.5, 1e-6) << name;
        EXPECT_NEAR(first.parts[0][0].lat, 41.5, 1e-6) << name;
        if (format != VectorFormat::gpx) { // there heights are a field of their own
            EXPECT_NEAR(first.parts[0][0].height, 320, 1e-6) << name;
        }
        EXPECT_EQ(valueof(back[0], 0, format == VectorFormat::kml ? "Name" : "name"), "Château")
            << name;
        EXPECT_NEAR(back[0].features[1].parts[0][0].lon, -179.5, 1e-6) << name;
    }
}

TEST_F(Vectors, LinesAndAreasKeepTheirParts)
{
    VectorLayer lines;
    lines.name = "lines";
    lines.features = {
        {VectorKind::lines, {{{1, 41, 0}, {2, 42, 0}}, {{3, 41, 0}, {4, 40, 0}}}, false, {}}};
    VectorLayer areas;
    areas.name = "areas";
    areas.features = {{VectorKind::areas,
                       {{{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 0, 0}},
                        {{5, 1, 0}, {6, 1, 0}, {6, 2, 0}, {5, 1, 0}}},
                       false,
                       {}}};
    const auto back = through({lines, areas}, VectorFormat::geopackage, "a.gpkg");
    ASSERT_EQ(back.size(), 2U);
    EXPECT_EQ(back[0].features[0].kind, VectorKind::lines);
    EXPECT_EQ(back[0].features[0].parts, lines.features[0].parts);
    EXPECT_EQ(back[1].features[0].kind, VectorKind::areas);
    EXPECT_EQ(back[1].features[0].parts, areas.features[0].parts);
}

TEST_F(Vectors, ALineIsATrackOfItsPoints)
{
    VectorLayer track;
    track.name = "tracks";
    track.features = {{VectorKind::lines, {{{1, 41, 100}, {2, 42, 200}}}, true, {}}};
    std::string why;
    const auto bytes = vectorbytes({track}, VectorFormat::gpx, why);
    ASSERT_TRUE(bytes) << why;
    EXPECT_NE(bytes->find("<trkseg>"), std::string::npos);
    EXPECT_NE(bytes->find("<ele>200"), std::string::npos);
}

TEST_F(Vectors, AreBroughtToWgs84)
{
    folder.makefile("utm.csv", "WKT,name\n\"POINT (500000 4600000)\",a\n");
    VectorLimits limits;
    std::vector<VectorLayer> layers;
    std::string why;
    EXPECT_FALSE(readvectors(folder.path("utm.csv"), limits, layers, why));
    EXPECT_EQ(why, "has coordinates but names no coordinate system");
    limits.crs = "EPSG:32631";
    ASSERT_TRUE(readvectors(folder.path("utm.csv"), limits, layers, why)) << why;
    EXPECT_NEAR(layers.at(0).features.at(0).parts.at(0).at(0).lon, 3, 1e-6);
    EXPECT_NEAR(layers[0].features[0].parts[0][0].lat, 41.5509, 1e-3);
}

TEST_F(Vectors, RefuseWhatIsNoneOrTooMuch)
{
    folder.makefile("letter.txt", "Bonjour");
    std::vector<VectorLayer> layers;
    std::string why;
    EXPECT_FALSE(readvectors(folder.path("letter.txt"), {}, layers, why));
    EXPECT_FALSE(readvectors(folder.path("none.gpx"), {}, layers, why));
    EXPECT_EQ(why, "no such file");
    through({stations()}, VectorFormat::geojson, "a.geojson");
    VectorLimits limits;
    limits.features = 1;
    EXPECT_FALSE(readvectors(folder.path("a.geojson"), limits, layers, why));
    EXPECT_EQ(why, "holds too many features");
}
