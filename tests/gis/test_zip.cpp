#include "gis/gisfiles.h"
#include "gis/module/zip.h"

#include <cstdlib>

namespace
{
class Zip : public GisTest
{
};
} // namespace

TEST_F(Zip, IsUnpackedByOthers)
{
    if (std::system("command -v python3 > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "python3 is not installed";
    std::string why;
    const std::string large(300000, 'x');
    const auto bytes = zipbytes({{"doc.kml", "<kml/>"}, {"été.png", large}}, why);
    ASSERT_TRUE(bytes) << why;
    folder.makefile("a.kmz", *bytes);
    ASSERT_EQ(std::system(("cd " + folder.path() + " && python3 -m zipfile -e a.kmz out").c_str()),
              0);
    EXPECT_EQ(folder.content("out/doc.kml"), "<kml/>");
    EXPECT_EQ(folder.content("out/été.png"), large);
}
