#include "radio/linkfields.h"

#include "base/numbers.h"
#include "network/netfields.h"
#include "radio/link.h"

namespace
{
const RadioSystem& systemof(const NetworkTables& tables, int net, int unit)
{
    const Net& found = tables.net(net);
    return tables.system(smin(found.systemof(unit), MAXSYSTEM));
}

std::string rolename(const Net& net, int unit)
{
    const RoleNames names = rolenames(static_cast<int>(net.kind()));
    const auto role = static_cast<std::size_t>(net.role(unit));
    return role < names.roles.size() ? names.roles[role] : "";
}

StationFields commonfields(const NetworkTables& tables, int net, int unit)
{
    StationFields fields;
    fields.rows[0] = rolename(tables.net(net), unit);
    fields.rows[1] = systemof(tables, net, unit).name.text();
    fields.height = formatnumber("0.0", double{antheight(tables, net, unit)});
    return fields;
}
} // namespace

float typedheight(const std::string& text)
{
    return static_cast<float>(smax(lowestantenna, smin(highestantenna, typednumber(text))));
}

StationFields transmitterfields(const NetworkTables& tables, int net, int unit)
{
    const RadioSystem& system = systemof(tables, net, unit);
    StationFields fields = commonfields(tables, net, unit);
    fields.rows[2] = formatnumber("0.000", double{system.power});
    fields.rows[3] = formatnumber("0.0", double{system.lineloss});
    fields.rows[4] = formatnumber("0.0", double{system.gain});
    return fields;
}

StationFields receiverfields(const NetworkTables& tables, int net, int unit)
{
    const RadioSystem& system = systemof(tables, net, unit);
    StationFields fields = commonfields(tables, net, unit);
    fields.rows[2] = formatnumber("0.0", double{system.gain});
    fields.rows[3] = formatnumber("0.0", double{system.lineloss});
    fields.rows[4] = formatnumber("0.00", microvolts(double{system.threshold}));
    return fields;
}

StationFields barefields(float height)
{
    StationFields fields;
    fields.height = generalnumber(height);
    return fields;
}

std::string profilecopytext(const Unit& left, const Unit& right, double margin)
{
    const auto edge = [](float from, float to, double share) {
        return double{from} + (double{to} - double{from}) * share;
    };
    const auto corner = [&](double share) {
        return formatnumber("000.00000", edge(left.lon, right.lon, share)) + "\t" +
               formatnumber("00.00000", edge(left.lat, right.lat, share)) + "\t";
    };
    const std::string first = corner(-margin);
    const std::string last = corner(1 + margin);
    return first + last + last + first + "02\t" + left.name.text() + " - " + right.name.text() +
           ", Copie d'un lien";
}
