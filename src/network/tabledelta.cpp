#include "network/tabledelta.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<NetworkTables>);

namespace
{

using Fields = std::vector<TablesDelta::Field>;

/// Enters the places of members of the tables.
class FieldList
{
public:
    explicit FieldList(const NetworkTables& tables)
        : start(reinterpret_cast<const std::byte*>(&tables))
    {
    }

    template <typename... Member> void add(const Member&... members) { (addone(members), ...); }
    template <typename Values> void addeach(const Values& values)
    {
        for (const auto& value : values)
            add(value);
    }

    Fields fields;

private:
    template <typename Member> void addone(const Member& member)
    {
        const auto offset = reinterpret_cast<const std::byte*>(&member) - start;
        fields.push_back({static_cast<std::uint32_t>(offset), sizeof(Member)});
    }

    const std::byte* start;
};

void addnet(FieldList& list, const Net& n)
{
    list.addeach(n.member);
    list.addeach(n.system);
    list.add(n.fmin, n.fmax, n.polarisation, n.permittivity, n.conductivity, n.refractivity,
             n.climate, n.statmode, n.ptime, n.plocation, n.psituation, n.maxretrans, n.topology,
             n.name);
}

Fields listfields()
{
    const NetworkTables t;
    FieldList list(t);
    for (const Unit& u : t.units)
        list.add(u.lon, u.lat, u.elevation, u.enabled, u.transparent, u.forecolour, u.backcolour,
                 u.name);
    for (const RadioSystem& s : t.systems)
        list.add(s.power, s.threshold, s.lineloss, s.gain, s.height, s.name);
    for (const Net& n : t.nets)
        addnet(list, n);
    for (const auto& heights : t.antheights)
        list.addeach(heights);
    list.addeach(t.icons);
    return list.fields;
}

const Fields& allfields()
{
    static const Fields fields = listfields();
    return fields;
}

std::span<const std::byte> bytesof(const NetworkTables& tables)
{
    return std::as_bytes(std::span(&tables, 1));
}

void writefields(const Fields& fields, const std::vector<std::byte>& bytes, NetworkTables& tables)
{
    const auto target = std::as_writable_bytes(std::span(&tables, 1));
    std::size_t at = 0;
    for (const auto& [offset, size] : fields) {
        std::memcpy(&target[offset], &bytes[at], size);
        at += size;
    }
}

} // namespace

TablesDelta tablesdelta(const NetworkTables& before, const NetworkTables& after)
{
    TablesDelta delta;
    for (const auto& field : allfields()) {
        const auto old = bytesof(before).subspan(field.offset, field.size);
        const auto now = bytesof(after).subspan(field.offset, field.size);
        if (std::ranges::equal(old, now))
            continue;
        delta.fields.push_back(field);
        delta.before.insert(delta.before.end(), old.begin(), old.end());
        delta.after.insert(delta.after.end(), now.begin(), now.end());
    }
    return delta;
}

void writebefore(const TablesDelta& delta, NetworkTables& tables)
{
    writefields(delta.fields, delta.before, tables);
}

void writeafter(const TablesDelta& delta, NetworkTables& tables)
{
    writefields(delta.fields, delta.after, tables);
}
