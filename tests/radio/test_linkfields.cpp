#include "radio/linkfields.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{
NetworkTables tables()
{
    NetworkTables made = defaulttables();
    made.units[1].lon = 6;
    made.units[1].lat = 45;
    made.units[1].name.assign("Aiguille");
    made.units[2].lon = 8;
    made.units[2].lat = 44;
    made.units[2].name.assign("Belvédère");
    RadioSystem& base = made.systems[3];
    base.name.assign("Base VHF");
    base.power = 25;
    base.lineloss = 1.25F;
    base.gain = 6;
    base.threshold = -107;
    base.height = 12;
    Net& net = made.nets[2];
    net.topology = static_cast<std::int16_t>(Topology::star) + visiblebit;
    net.member[1] = memberbit | 1;
    net.system[1] = 3;
    return made;
}
} // namespace

TEST(LinkFields, DescribeTheTransmitter)
{
    const NetworkTables made = tables();
    const StationFields fields = transmitterfields(made, 2, 1);
    EXPECT_THAT(fields.rows,
                ElementsAre(rolenames(1).roles[1], "Base VHF", "25.000", "1.2", "6.0"));
    EXPECT_EQ(fields.height, "12.0");
}

TEST(LinkFields, DescribeTheReceiver)
{
    const NetworkTables made = tables();
    const StationFields fields = receiverfields(made, 2, 1);
    EXPECT_THAT(fields.rows, ElementsAre(rolenames(1).roles[1], "Base VHF", "6.0", "1.2", "1.00"));
}

TEST(LinkFields, GiveTheSensitivityInMicrovolts)
{
    NetworkTables made = tables();
    made.systems[3].threshold = -87; // 20 dB above 1 µV
    EXPECT_EQ(receiverfields(made, 2, 1).rows[4], "10.00");
    made.systems[3].threshold = -119;
    EXPECT_EQ(receiverfields(made, 2, 1).rows[4], "0.25");
}

TEST(LinkFields, PreferTheStationsOwnHeight)
{
    NetworkTables made = tables();
    made.antheights[2][1] = 30.25F;
    EXPECT_EQ(transmitterfields(made, 2, 1).height, "30.2");
}

TEST(LinkFields, HaveNothingButAHeightWithoutANet)
{
    const StationFields fields = barefields(2.5F);
    EXPECT_THAT(fields.rows, ElementsAre("", "", "", "", ""));
    EXPECT_EQ(fields.height, "2.5");
}

TEST(LinkFields, NameNoRoleThatTheTopologyDoesNotHave)
{
    NetworkTables made = tables();
    made.nets[2].member[1] = memberbit | 100;
    EXPECT_EQ(transmitterfields(made, 2, 1).rows[0], "");
    made.nets[2].topology = 7;
    made.nets[2].member[1] = memberbit;
    EXPECT_EQ(transmitterfields(made, 2, 1).rows[0], "");
}

TEST(TypedHeight, IsHeldBetweenHalfAMetreAnd2999)
{
    EXPECT_EQ(typedheight("3500"), 2999);
    EXPECT_EQ(typedheight("0"), 0.5F);
    EXPECT_EQ(typedheight("-3"), 0.5F);
    EXPECT_EQ(typedheight("abc"), 0.5F);
    EXPECT_EQ(typedheight("12.5"), 12.5F);
}

TEST(ProfileCopy, GivesTheGroundUnderThePicturesEdges)
{
    const NetworkTables made = tables();
    EXPECT_EQ(profilecopytext(made.units[1], made.units[2], 0.05),
              "005.90000\t45.05000\t008.10000\t43.95000\t"
              "008.10000\t43.95000\t005.90000\t45.05000\t02\t"
              "Aiguille - Belvédère, Copie d'un lien");
}
