#include "network/tables.h"

#include "base/numbers.h"

#include <charconv>

NetworkTables network;
bool netdirty = false;
Selection selection;

RoleNames rolenames(int topology)
{
    switch (topology) {
    case 0:
        return {"ouverte", {"Commande", "Subordonné", "Relais"}};
    case 1:
        return {"en étoile", {"Maître", "Esclave", ""}};
    case 2:
        return {"maillée", {"Node", "Terminal", ""}};
    default:
        return {"", {"", "", ""}};
    }
}

/// Slot from 1 of a record in a table, by number or by a name that it alone has; 0 for none.
template <typename Table> static int findslot(const Table& table, const std::string& text)
{
    const std::string wanted = trimmed(text);
    const int last = static_cast<int>(table.size()) - 1;
    int number = 0;
    const char* end = wanted.data() + wanted.size();
    const auto result = std::from_chars(wanted.data(), end, number);
    if (result.ptr == end && !wanted.empty())
        return result.ec == std::errc() && number >= 1 && number <= last ? number : 0;
    int slot = 0;
    for (int i = 1; i <= last; ++i) {
        if (wanted.empty() || table[static_cast<std::size_t>(i)].name.text() != wanted)
            continue;
        if (slot != 0)
            return 0;
        slot = i;
    }
    return slot;
}

int findunit(const NetworkTables& tables, const std::string& text)
{
    return findslot(tables.units, text);
}

int findsystem(const NetworkTables& tables, const std::string& text)
{
    return findslot(tables.systems, text);
}

int findnet(const NetworkTables& tables, const std::string& text)
{
    return findslot(tables.nets, text);
}

void netdefaults(Net& net)
{
    Net defaults;
    defaults.member = net.member;
    defaults.system = net.system;
    defaults.maxretrans = net.maxretrans;
    defaults.name = net.name;
    net = defaults;
}

template <typename Table> static void nameslots(Table& table, const std::string& kind)
{
    for (std::size_t slot = 1; slot < table.size(); ++slot)
        table[slot].name.assign(formatnumber(kind + " 00", static_cast<double>(slot)));
}

NetworkTables defaulttables()
{
    NetworkTables tables;
    nameslots(tables.units, "Station");
    nameslots(tables.systems, "Système");
    nameslots(tables.nets, "Réseau");
    for (Net& net : tables.nets)
        net.system.fill(1);
    return tables;
}
