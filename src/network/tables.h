#pragma once

#include "base/textcodec.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string>

inline constexpr int MAXUNIT = 50;
inline constexpr int MAXSYSTEM = 25;
inline constexpr int MAXNET = 25;

/// Bits of a net's member byte: membership, and the role below it.
inline constexpr std::uint8_t memberbit = 128;
/// Value added to a net's topology when it is visible, that is active.
inline constexpr std::int16_t visiblebit = 256;

inline constexpr std::uint8_t noicon = 255;

/// Record of a table by the number of its slot. A number outside the table is a programmer's error.
template <typename Table> constexpr auto& slotat(Table& table, int number)
{
    assert(number >= 0 && static_cast<std::size_t>(number) < table.size());
    return table[static_cast<std::size_t>(number)];
}

/// A station.
struct Unit {
    float lon = 0;                      ///< degrees, east positive
    float lat = 0;                      ///< degrees, north positive
    float elevation = 0;                ///< ground, m
    std::int16_t enabled = -1;          ///< non-zero: takes part in evaluation and drawing
    std::int16_t transparent = 0;       ///< non-zero: the label has no opaque background
    std::int32_t forecolour = 0xFFFFFF; ///< label text, 0x00BBGGRR
    std::int32_t backcolour = 0;        ///< label background
    FixedText<20> name;

    /// A station at longitude 0 or latitude 0 has no place yet: it doesn't widen a map's extent.
    /// (It is still drawn unless both are 0.)
    bool placed() const { return lon != 0 && lat != 0; }
    bool operator==(const Unit&) const = default;
};

/// A radio system.
struct RadioSystem {
    float power = 10;       ///< transmit power, W
    float threshold = -107; ///< receiver threshold, dBm
    float lineloss = 0.5F;  ///< dB
    float gain = 2;         ///< antenna gain, dBi
    float height = 2;       ///< antenna above ground, m
    FixedText<30> name;

    bool operator==(const RadioSystem&) const = default;
};

enum class Topology { voice = 0, star = 1, swarm = 2 };

/// A radio network. Stations are indexed from 1.
struct Net {
    std::array<std::uint8_t, MAXUNIT + 1> member{}; ///< bit 7: member; bits 0 to 6: role
    std::array<std::uint8_t, MAXUNIT + 1> system{}; ///< slot of the station's RadioSystem, from 1
    float fmin = 144;                               ///< MHz
    float fmax = 148;                               ///< MHz
    std::int16_t polarisation = 1;                  ///< 0 horizontal, 1 vertical
    float permittivity = 15;                        ///< relative, of the ground
    float conductivity = 0.005F;                    ///< S/m
    float refractivity = 301;                       ///< at the surface, N-units
    std::int16_t climate = 5;                       ///< 1 to 7
    std::int16_t statmode = 3;                      ///< 0 to 3, plus 100 for the urban factor
    float ptime = 50;                               ///< percent
    float plocation = 50;                           ///< percent
    float psituation = 50;                          ///< percent
    std::int16_t maxretrans = 0;                    ///< 0 to 20
    std::int16_t topology = 256;                    ///< low byte: Topology; plus `visiblebit`
    FixedText<30> name;

    bool ismember(int unit) const { return (slotat(member, unit) & memberbit) != 0; }
    int role(int unit) const { return slotat(member, unit) & 127; }
    /// Slot of the system that the net gives a station; a file may hold one outside the table.
    int systemof(int unit) const { return slotat(system, unit); }
    Topology kind() const { return static_cast<Topology>(topology & 255); }
    bool active() const { return topology >= visiblebit; }
    bool operator==(const Net&) const = default;
};

/// The last settings of the coverage dialogs.
struct CoverageParams {
    float rangemax = 100; ///< km
    float azmin = 0;      ///< degrees
    float azmax = 360;    ///< degrees
    float azstep = 1;     ///< degrees
    float antazimuth = 0; ///< of the antenna pattern, degrees
    FixedText<20> antfile;
    std::int16_t unit = 0; ///< threshold unit
    float spare = -107;    ///< carried in the file only
    std::int16_t drawsurface = -1;
    std::int32_t surfacecolour = 0x00FFFF; ///< yellow; 0: the rainbow
    std::int16_t drawcurve = 0;
    std::int32_t curvecolour = 0;
    float sensorheight = 2; ///< m
    float targetheight = 2; ///< m
    float rangemin = 0;     ///< km
    std::int32_t visualcolour = 0;

    bool operator==(const CoverageParams&) const = default;
};

/// All tables of a network file. Slots count from 1; slot 0 is never read.
struct NetworkTables {
    std::array<Unit, MAXUNIT + 1> units;
    std::array<RadioSystem, MAXSYSTEM + 1> systems;
    std::array<Net, MAXNET + 1> nets;
    CoverageParams coverage;
    /// Private antenna heights, m, by net then station; 0: the system's height applies.
    std::array<std::array<float, MAXUNIT + 1>, MAXNET + 1> antheights{};
    std::array<std::uint8_t, MAXUNIT + 1> icons{}; ///< position in the icon list; 255: none

    Unit& unit(int number) { return slotat(units, number); }
    const Unit& unit(int number) const { return slotat(units, number); }
    RadioSystem& system(int number) { return slotat(systems, number); }
    const RadioSystem& system(int number) const { return slotat(systems, number); }
    Net& net(int number) { return slotat(nets, number); }
    const Net& net(int number) const { return slotat(nets, number); }
    /// Private antenna height of a station in a net, m.
    float& height(int net, int unit) { return slotat(slotat(antheights, net), unit); }
    float height(int net, int unit) const { return slotat(slotat(antheights, net), unit); }
    std::uint8_t& icon(int unit) { return slotat(icons, unit); }
    std::uint8_t icon(int unit) const { return slotat(icons, unit); }

    bool operator==(const NetworkTables&) const = default;
};

/// The tables of the run.
extern NetworkTables network;
/// Their records by number, from 1.
inline Unit& unitat(int number)
{
    return network.unit(number);
}
inline RadioSystem& systemat(int number)
{
    return network.system(number);
}
inline Net& netat(int number)
{
    return network.net(number);
}
/// True from the opening of the network dialog until the network is saved or replaced. What users
/// change elsewhere is noted in network/unsaved.h.
extern bool netdirty;

/// What a new network resets and no file holds.
struct Selection {
    std::int16_t curunit = 1; ///< slots shown in the dialogs
    std::int16_t curnet = 1;
    std::int16_t linkunit1 = 1; ///< pair and net of link window and radio coverage
    std::int16_t linkunit2 = 2;
    std::int16_t linknet = 1;
    std::array<std::uint8_t, 3> linestyle{175, 181, 129}; ///< rules of the line colours
    std::int16_t visualmode = -1;
};
extern Selection selection;

/// Role names of a topology, and its adjective.
struct RoleNames {
    const char* adjective;
    std::array<const char*, 3> roles;
};
/// Names for the topology 0 to 2; anything else gives empty names.
RoleNames rolenames(int topology);

/// Slot by its number, or by its name when the text is no whole number and one slot alone has that
/// name, letter for letter.
/// 0 when there is none.
int findunit(const NetworkTables& tables, const std::string& text);
int findsystem(const NetworkTables& tables, const std::string& text);
int findnet(const NetworkTables& tables, const std::string& text);

/// Sets the propagation fields of a net to their defaults; name, members, systems and the number of
/// retransmissions stay.
void netdefaults(Net& net);

/// Tables as a new network has them.
NetworkTables defaulttables();
