#include "reports/stationkml.h"

#include "base/numbers.h"
#include "network/stationplan.h"
#include "radio/evaluate.h"

#include <fmt/format.h>

namespace
{
constexpr int lineclasses = 6;

/// A text between tags. Control characters have no place in XML.
std::string xmltext(const std::string& text)
{
    std::string xml;
    for (const char c : text) {
        if (c == '&')
            xml += "&amp;";
        else if (c == '<')
            xml += "&lt;";
        else if (c == '>')
            xml += "&gt;";
        else
            xml += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return xml;
}

std::string datum(const char* name, const std::string& value)
{
    return fmt::format("<SimpleData name=\"{}\">{}</SimpleData>", name, xmltext(value));
}

std::string placemark(const std::string& name, const std::string& style, const char* schema,
                      const std::string& data, const std::string& geometry)
{
    return fmt::format("<Placemark><name>{}</name>{}<ExtendedData><SchemaData "
                       "schemaUrl=\"#{}\">{}</SchemaData></ExtendedData>{}</Placemark>\n",
                       xmltext(name), style, schema, data, geometry);
}

std::string coordinates(const Unit& unit, bool height)
{
    std::string text = generalnumber(unit.lon) + "," + generalnumber(unit.lat);
    if (height)
        text += "," + generalnumber(unit.elevation);
    return text;
}

std::string stationmark(const NetworkTables& tables, int slot)
{
    const Unit& unit = tables.unit(slot);
    const std::string data = datum("slot", std::to_string(slot)) +
                             datum("elevation_m", generalnumber(unit.elevation)) +
                             datum("enabled", unit.enabled != 0 ? "1" : "0");
    return placemark(unit.name.text(), "", "station", data,
                     "<Point><coordinates>" + coordinates(unit, true) + "</coordinates></Point>");
}

std::string linkmark(const NetworkTables& tables, const StationLink& link)
{
    const Unit& a = tables.unit(link.a);
    const Unit& b = tables.unit(link.b);
    const std::string data = datum("a", std::to_string(link.a)) +
                             datum("b", std::to_string(link.b)) +
                             datum("net", tables.net(link.net).name.text()) +
                             datum("class", std::to_string(link.lineclass)) +
                             datum("distance_km", formatnumber("0.000", link.distance_km)) +
                             datum("margin_db", formatnumber("0.0", link.margin_db));
    return placemark(a.name.text() + " - " + b.name.text(),
                     fmt::format("<styleUrl>#class{}</styleUrl>", link.lineclass), "link", data,
                     "<LineString><tessellate>1</tessellate><coordinates>" + coordinates(a, false) +
                         " " + coordinates(b, false) + "</coordinates></LineString>");
}

/// Lines are as wide as on the pictures; KML knows none that are dotted.
std::string linestyles()
{
    std::string styles;
    for (int lineclass = 1; lineclass <= lineclasses; ++lineclass)
        styles += fmt::format("<Style id=\"class{}\"><LineStyle><color>ff{:06x}</color>"
                              "<width>{}</width></LineStyle></Style>\n",
                              lineclass, linecolour(lineclass),
                              lineclass == 1 || lineclass == lineclasses ? 2 : 1);
    return styles;
}

constexpr const char* schemas =
    "<Schema name=\"station\" id=\"station\"><SimpleField type=\"int\" name=\"slot\"/>"
    "<SimpleField type=\"double\" name=\"elevation_m\"/>"
    "<SimpleField type=\"int\" name=\"enabled\"/></Schema>\n"
    "<Schema name=\"link\" id=\"link\"><SimpleField type=\"int\" name=\"a\"/>"
    "<SimpleField type=\"int\" name=\"b\"/><SimpleField type=\"string\" name=\"net\"/>"
    "<SimpleField type=\"int\" name=\"class\"/>"
    "<SimpleField type=\"double\" name=\"distance_km\"/>"
    "<SimpleField type=\"double\" name=\"margin_db\"/></Schema>\n";
} // namespace

std::string stationkml(const NetworkTables& tables, std::span<const StationLink> links)
{
    std::string kml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<kml xmlns=\"http://www.opengis.net/kml/2.2\">\n<Document>\n";
    kml += linestyles() + schemas;
    kml += "<Folder><name>Stations</name>\n";
    for (int slot = 1; slot <= MAXUNIT; ++slot)
        if (!isfree(tables.unit(slot)))
            kml += stationmark(tables, slot);
    kml += "</Folder>\n<Folder><name>Liaisons</name>\n";
    for (const StationLink& link : links)
        kml += linkmark(tables, link);
    return kml + "</Folder>\n</Document>\n</kml>\n";
}
