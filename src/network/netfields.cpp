#include "network/netfields.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

static constexpr std::int16_t urbanvalue = 100; // added to the mode's number

StatMode statmode(const Net& net)
{
    return static_cast<StatMode>(std::clamp(net.statmode % urbanvalue, 0, 3));
}

bool urban(const Net& net)
{
    return net.statmode >= urbanvalue;
}

void setstatmode(Net& net, StatMode mode, bool withurban)
{
    net.statmode = static_cast<std::int16_t>(static_cast<int>(mode) + (withurban ? urbanvalue : 0));
}

bool usestime(StatMode mode)
{
    return mode == StatMode::mobile || mode == StatMode::broadcast;
}

bool useslocation(StatMode mode)
{
    return mode == StatMode::accidental || mode == StatMode::broadcast;
}

void settopology(Net& net, int topology)
{
    net.topology = static_cast<std::int16_t>((net.topology & visiblebit) | topology);
}

void setvisible(Net& net, bool visible)
{
    const int topology = net.topology & ~visiblebit;
    net.topology = static_cast<std::int16_t>(topology | (visible ? visiblebit : 0));
}

int rolecount(int topology)
{
    const RoleNames names = rolenames(topology);
    return static_cast<int>(std::count_if(names.roles.begin(), names.roles.end(),
                                          [](const char* role) { return *role != '\0'; }));
}

int shownrole(const Net& net, int unit)
{
    const int role = net.role(unit);
    return role < rolecount(static_cast<int>(net.kind())) ? role : 0;
}

void setrole(Net& net, int unit, int role)
{
    std::uint8_t& byte = slotat(net.member, unit);
    byte = static_cast<std::uint8_t>((byte & memberbit) | role);
}

void setmember(Net& net, int unit, bool member)
{
    std::uint8_t& byte = slotat(net.member, unit);
    byte = static_cast<std::uint8_t>((byte & ~memberbit) | (member ? memberbit : 0));
}

static constexpr double microvoltlevel = -107; // dBm of one microvolt at 50 ohms

double microvolts(double level_dbm)
{
    return std::pow(10.0, (level_dbm - microvoltlevel) / 20);
}

double thresholdlevel(double threshold_uv)
{
    return 20 * std::log10(threshold_uv) + microvoltlevel;
}

static constexpr int flagbit = 128;
static constexpr int levelbits = 127;
static constexpr int zerolevel = 50; // byte of a margin of 0 dB
static constexpr int opaquebit = 1;

LineRules linerules(const std::array<std::uint8_t, 3>& linestyle)
{
    const auto flag = [&](std::size_t byte) { return (linestyle[byte] & flagbit) != 0; };
    const auto level = [&](std::size_t byte) { return (linestyle[byte] & levelbits) - zerolevel; };
    return {flag(0),
            flag(1),
            flag(2),
            (linestyle[2] & opaquebit) != 0,
            static_cast<double>(level(0)),
            static_cast<double>(level(1))};
}

static int levelbyte(double level_db)
{
    return static_cast<int>(std::clamp(roundtoeven(level_db + zerolevel), 1.0, 99.0));
}

std::array<std::uint8_t, 3> linestylebytes(const LineRules& rules)
{
    const auto byte = [](bool flag, int low) {
        return static_cast<std::uint8_t>((flag ? flagbit : 0) | low);
    };
    const int green = levelbyte(rules.green_db);
    return {byte(rules.red, std::min(levelbyte(rules.yellow_db), green)), byte(rules.yellow, green),
            byte(rules.green, rules.opaque ? opaquebit : 0)};
}
