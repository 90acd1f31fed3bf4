#include "cli/handmade.h"
#include "cli/process.h"
#include "network/netfile.h"
#include "radio/scene.h"

#include <QImage>

#include <fstream>
#include <gtest/gtest.h>

class Info : public CliTest
{
};

TEST_F(Info, CountsWhatANetworkUses)
{
    write("plan.net", handmade::network());
    const auto values = success({"info", "plan.net"}).values();
    EXPECT_EQ(values.at("kind"), "network");
    EXPECT_EQ(values.at("format"), "2000");
    EXPECT_EQ(values.at("stations"), "3");
    EXPECT_EQ(values.at("systems"), "1");
    EXPECT_EQ(values.at("nets"), "1");
    EXPECT_EQ(values.at("map"), "C:\\Cartes\\PLAIN.map");
    EXPECT_EQ(values.at("pictures"), "2");
    EXPECT_EQ(values.at("picture1"), "c:\\images\\plaine.bmp");
    EXPECT_EQ(values.at("picture2"), "été.bmp");
}

TEST_F(Info, ReadsANetworkFromBeforeVersion2000)
{
    write("old.net", handmade::oldernetwork());
    const auto values = success({"info", "old.net"}).values();
    EXPECT_EQ(values.at("format"), "older");
    EXPECT_EQ(values.at("stations"), "3");
    EXPECT_EQ(values.at("map"), "plain.map");
    EXPECT_EQ(values.at("pictures"), "0");
}

TEST_F(Info, CountsEachSystemOnce)
{
    NetworkTables tables = defaulttables();
    scene::join(tables.nets[1], 1, 0, 4);
    scene::join(tables.nets[1], 2, 1, 4);
    scene::join(tables.nets[9], 2, 1, 7);
    scene::place(tables.units[2], 1, 1);
    write("plan.net", tables, "");
    const auto values = success({"info", "plan.net"}).values();
    EXPECT_EQ(values.at("stations"), "1");
    EXPECT_EQ(values.at("systems"), "2");
    EXPECT_EQ(values.at("nets"), "2");
    EXPECT_EQ(values.at("map"), "");
}

TEST_F(Info, TellsTheFrameAndStatisticsOfAMap)
{
    write("plain.map", handmade::map());
    const auto values = success({"info", "plain.map"}).values();
    EXPECT_EQ(values.at("kind"), "map");
    EXPECT_EQ(values.at("W"), "41");
    EXPECT_EQ(values.at("H"), "31");
    EXPECT_EQ(values.at("hmin"), "120");
    EXPECT_EQ(values.at("hmax"), "180");
    EXPECT_EQ(values.at("hmoy"), "121.5");
    EXPECT_EQ(values.at("centre"), "8.3125,44.234375");
    EXPECT_EQ(values.at("size"), "30");
    EXPECT_EQ(values.at("northwest"), "8,44.46875");
    EXPECT_EQ(values.at("northeast"), "8.625,44.46875");
    EXPECT_EQ(values.at("southeast"), "8.625,44");
    EXPECT_EQ(values.at("southwest"), "8,44");
}

TEST_F(Info, ReadsAMapOfTheOlderFormat)
{
    write("old.map", handmade::oldermap());
    const auto values = success({"info", "old.map"}).values();
    EXPECT_EQ(values.at("W"), "513");
    EXPECT_EQ(values.at("H"), "513");
    EXPECT_EQ(values.at("centre"), "8.25,44.25");
    EXPECT_EQ(values.at("size"), "80");
}

TEST_F(Info, FindsAFileWhateverTheCaseOfItsName)
{
    write("Plaine.MAP", handmade::map());
    EXPECT_EQ(success({"info", "PLAINE.map"}).values().at("W"), "41");
}

TEST_F(Info, RefusesWhatItCannotRead)
{
    EXPECT_NE(failure(1, {"info", "nowhere.net"}).find("nowhere.net: network not found"),
              std::string::npos);
    EXPECT_NE(failure(1, {"info", "nowhere.map"}).find("nowhere.map: map not found"),
              std::string::npos);
    failure(1, {"info", "words.txt"});
}

TEST_F(Info, RefusesDamagedNetworks)
{
    const std::string whole = handmade::network();
    for (const std::size_t size : {std::size_t{0}, std::size_t{3}, std::size_t{4},
                                   std::size_t{2000}, std::size_t{7800}, whole.size() - 1}) {
        write("plan.net", whole.substr(0, size));
        EXPECT_NE(failure(1, {"info", "plan.net"}).find("incomplete"), std::string::npos) << size;
    }
    write("plan.net", handmade::map());
    EXPECT_NE(failure(1, {"info", "plan.net"}).find("a map under the name of a network"),
              std::string::npos);
    write("plan.net", std::string("no network at all"));
    failure(1, {"info", "plan.net"});
    std::filesystem::create_directory(folder / "folder.net");
    failure(1, {"info", "folder.net"});
}

TEST_F(Info, RefusesWhatIsTooLargeBeforeItIsRead)
{
    write("plan.net", handmade::network());
    std::filesystem::resize_file(folder / "plan.net", std::uintmax_t{20} << 30);
    EXPECT_NE(failure(1, {"info", "plan.net"}).find("plan.net: too large for a network"),
              std::string::npos);
    write("words.net", std::string("Words that somebody has written down."));
    EXPECT_NE(failure(1, {"info", "words.net"}).find("words.net: not a network"),
              std::string::npos);
}

TEST_F(Info, RefusesDamagedMaps)
{
    const std::string whole = handmade::map();
    for (const std::size_t size : {std::size_t{0}, std::size_t{3}, std::size_t{11}, std::size_t{95},
                                   std::size_t{96}, whole.size() - 1}) {
        write("plain.map", whole.substr(0, size));
        failure(1, {"info", "plain.map"});
    }
    // More samples than any file holds, and a negative count
    for (const std::int32_t count : {2147483647, -5, 0}) {
        std::string bytes = whole;
        std::memcpy(bytes.data() + 4, &count, sizeof count);
        write("plain.map", bytes);
        failure(1, {"info", "plain.map"});
    }
    write("plain.map", handmade::network());
    failure(1, {"info", "plain.map"});
}

TEST_F(Info, AFileBehindItsEndIsNoMatter)
{
    write("plan.net", handmade::network() + std::string(5000, 'x'));
    EXPECT_EQ(success({"info", "plan.net"}).values().at("stations"), "3");
}

TEST_F(Info, ReadsBitmapsWhoseRowsBeginAtTheTop)
{
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    const std::string name = (folder / "top.bmp").string();
    ASSERT_TRUE(image.save(QString::fromStdString(name), "BMP"));
    std::fstream file(name, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(22);
    file.write("\xFC\xFF\xFF\xFF", 4); // a height of -4
    file.close();
    const auto values = success({"info", "top.bmp"}).values();
    EXPECT_EQ(values.at("width"), "6");
    EXPECT_EQ(values.at("height"), "4");
}
