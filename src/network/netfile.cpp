#include "network/netfile.h"

#include "base/bytes.h"

/// First bytes of the current format, and of a map file.
static constexpr float netsignature = 2000;
static constexpr float mapsignature = 5000;

/// Bytes of the records in the file, where nothing stands between their fields.
static constexpr std::size_t unitsize = 44;
static constexpr std::size_t systemsize = 50;
static constexpr std::size_t netsize = 172;
static constexpr std::size_t coveragesize = 74;

// The fields of each record in the order of the file.

template <typename Record, typename Visit> static void unitfields(Record& unit, Visit visit)
{
    visit(unit.lon);
    visit(unit.lat);
    visit(unit.elevation);
    visit(unit.enabled);
    visit(unit.transparent);
    visit(unit.forecolour);
    visit(unit.backcolour);
    visit(unit.name.bytes);
}

template <typename Record, typename Visit> static void systemfields(Record& system, Visit visit)
{
    visit(system.power);
    visit(system.threshold);
    visit(system.lineloss);
    visit(system.gain);
    visit(system.height);
    visit(system.name.bytes);
}

template <typename Record, typename Visit> static void netfields(Record& net, Visit visit)
{
    for (std::size_t unit = 1; unit <= MAXUNIT; ++unit)
        visit(net.member[unit]);
    for (std::size_t unit = 1; unit <= MAXUNIT; ++unit)
        visit(net.system[unit]);
    visit(net.fmin);
    visit(net.fmax);
    visit(net.polarisation);
    visit(net.permittivity);
    visit(net.conductivity);
    visit(net.refractivity);
    visit(net.climate);
    visit(net.statmode);
    visit(net.ptime);
    visit(net.plocation);
    visit(net.psituation);
    visit(net.maxretrans);
    visit(net.topology);
    visit(net.name.bytes);
}

template <typename Record, typename Visit> static void coveragefields(Record& params, Visit visit)
{
    visit(params.rangemax);
    visit(params.azmin);
    visit(params.azmax);
    visit(params.azstep);
    visit(params.antazimuth);
    visit(params.antfile.bytes);
    visit(params.unit);
    visit(params.spare);
    visit(params.drawsurface);
    visit(params.surfacecolour);
    visit(params.drawcurve);
    visit(params.curvecolour);
    visit(params.sensorheight);
    visit(params.targetheight);
    visit(params.rangemin);
    visit(params.visualcolour);
}

// The tables in the order of the file, each slot from 1 on.

template <typename Tables, typename Visit> static void unittable(Tables& tables, Visit visit)
{
    for (std::size_t slot = 1; slot <= MAXUNIT; ++slot)
        unitfields(tables.units[slot], visit);
}

template <typename Tables, typename Visit> static void systemtable(Tables& tables, Visit visit)
{
    for (std::size_t slot = 1; slot <= MAXSYSTEM; ++slot)
        systemfields(tables.systems[slot], visit);
}

template <typename Tables, typename Visit> static void nettable(Tables& tables, Visit visit)
{
    for (std::size_t slot = 1; slot <= MAXNET; ++slot)
        netfields(tables.nets[slot], visit);
}

template <typename Tables, typename Visit> static void heighttable(Tables& tables, Visit visit)
{
    for (std::size_t unit = 1; unit <= MAXUNIT; ++unit)
        for (std::size_t net = 1; net <= MAXNET; ++net)
            visit(tables.antheights[net][unit]);
}

template <typename Tables, typename Visit> static void icontable(Tables& tables, Visit visit)
{
    for (std::size_t unit = 1; unit <= MAXUNIT; ++unit)
        visit(tables.icons[unit]);
}

/// Reads fields, once `fits` has found that all of a table is there.
struct FieldReader {
    ByteReader& reader;

    bool fits(std::size_t size) const { return !reader.failed() && reader.left() >= size; }
    template <typename Field> void operator()(Field& field) const { reader.read(field); }
};

/// Units, systems and nets, which both formats have; false where the file ends early.
static bool readrecords(const FieldReader& read, NetworkTables& tables)
{
    if (!read.fits(MAXUNIT * unitsize))
        return false;
    unittable(tables, read);
    if (!read.fits(MAXSYSTEM * systemsize))
        return false;
    systemtable(tables, read);
    if (!read.fits(MAXNET * netsize))
        return false;
    nettable(tables, read);
    return true;
}

static bool readtext(ByteReader& reader, std::string& text)
{
    std::string bytes;
    if (!reader.readstring(bytes))
        return false;
    text = fromansi(bytes);
    return true;
}

static bool readpictures(ByteReader& reader, std::vector<std::string>& pictures)
{
    std::string name;
    while (readtext(reader, name)) {
        if (name.empty())
            return true;
        pictures.push_back(name);
    }
    return false;
}

static NetStatus parsecurrent(ByteReader& reader, NetworkTables& tables, NetFile& file)
{
    const FieldReader read{reader};
    if (!readrecords(read, tables) || !read.fits(coveragesize))
        return NetStatus::truncated;
    coveragefields(tables.coverage, read);
    if (!readtext(reader, file.mapname) || !readpictures(reader, file.pictures))
        return NetStatus::truncated;
    if (!read.fits(sizeof(float) * MAXNET * MAXUNIT))
        return NetStatus::truncated;
    heighttable(tables, read);
    if (!read.fits(MAXUNIT))
        return NetStatus::truncated;
    icontable(tables, read);
    return NetStatus::ok;
}

static NetStatus parseolder(ByteReader& reader, NetworkTables& tables, NetFile& file)
{
    file.older = true;
    const FieldReader read{reader};
    if (!readtext(reader, file.mapname) || !read.fits(MAXUNIT * unitsize))
        return NetStatus::truncated;
    tables.antheights = {};
    tables.icons = {};
    const bool complete = readrecords(read, tables);
    for (std::size_t slot = 1; slot <= MAXUNIT; ++slot) // it counted west as positive
        tables.units[slot].lon = 0 - tables.units[slot].lon;
    return complete ? NetStatus::ok : NetStatus::truncated;
}

bool netbeginning(std::span<const std::byte> bytes)
{
    ByteReader reader(bytes);
    float signature = 0;
    if (!reader.read(signature))
        return true; // nothing speaks against it
    if (signature == mapsignature || signature == netsignature)
        return true;
    ByteReader older(bytes);
    std::uint16_t length = 0;
    older.read(length);
    constexpr std::uint16_t longestname = 1024;
    if (length > longestname)
        return false;
    for (std::uint8_t c = 0; length > 0 && older.read(c); --length)
        if (c < ' ')
            return false;
    return true;
}

NetStatus parsenet(std::span<const std::byte> bytes, NetworkTables& tables, NetFile& file)
{
    ByteReader reader(bytes);
    float signature = 0;
    if (!reader.read(signature))
        return NetStatus::truncated;
    if (signature == mapsignature)
        return NetStatus::mapfile;
    if (signature == netsignature)
        return parsecurrent(reader, tables, file);
    ByteReader fromstart(bytes);
    return parseolder(fromstart, tables, file);
}

std::string netbytes(const NetworkTables& tables, const std::string& map,
                     const std::vector<std::string>& pictures)
{
    ByteWriter writer;
    const auto write = [&writer](const auto& field) { writer.write(field); };
    write(netsignature);
    unittable(tables, write);
    systemtable(tables, write);
    nettable(tables, write);
    coveragefields(tables.coverage, write);
    writer.writestring(toansi(map));
    for (const std::string& picture : pictures)
        if (!picture.empty()) // an empty name would end the list
            writer.writestring(toansi(picture));
    writer.writestring("");
    heighttable(tables, write);
    icontable(tables, write);
    return writer.data();
}
