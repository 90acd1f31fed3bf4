#include "radio/analysis.h"

#include "base/numbers.h"
#include "radio/earth.h"

#include <cmath>

namespace
{
constexpr const char* separator = "\r\n ";

/// Share of the path that two horizons must fall short of to be two obstacles, not one.
constexpr double doublehorizon = 0.9;

struct StationNames {
    std::string left;
    std::string right;
};

std::string decibels(double value)
{
    return formatnumber("0.0 dB", value);
}

/// Adds the bulge to the inner samples, and finds the least clearance of the direct ray where the
/// link has a frequency.
void raiseprofile(bool withnet, Link& link, LinkAnalysis& analysis)
{
    Profile& profile = link.profile;
    const int n = profile.intervals();
    const double first = link.record.h1 + profile.sample(0);
    const double last = link.record.h2 + profile.sample(n);
    for (int i = 1; i < n; ++i) {
        const double f = static_cast<double>(i) / n;
        profile.sample(i) += bulge(analysis.earth, f, profile.distkm);
        const double radius = fresnelradius(f, profile.distkm, link.record.freq);
        // A frequency of 0 or a path without length has no zone to measure by.
        if (!withnet || !(radius > 0) || !std::isfinite(radius))
            continue;
        const double ray = last * f + first * (1 - f);
        const double clearance = (ray - profile.sample(i)) / radius;
        if (clearance < double{analysis.minclear}) {
            analysis.minclear = static_cast<float>(clearance);
            analysis.minclearkm = static_cast<float>(f * profile.distkm);
        }
    }
}

std::optional<HorizonCrossing> horizoncrossing(const Link& link)
{
    const LRRecord& record = link.record;
    const Profile& profile = link.profile;
    const int n = profile.intervals();
    const double length_m = n * profile.spacing_m;
    const double slope1 = record.the1 + length_m * (record.gme * 0.5);
    const double slope2 = record.the2 + length_m * (record.gme * 0.5);
    if (record.los != 0 || !(std::abs(slope1 + slope2) > 0))
        return std::nullopt;
    const double rise_m = profile.sample(n) - profile.sample(0) + record.h2 - record.h1;
    return HorizonCrossing{(rise_m + length_m * slope2) / (slope1 + slope2) / 1000, slope1, slope2};
}

std::string distancetext(const StationNames& names, const Profile& profile)
{
    return " La distance entre " + names.left + " et " + names.right + " est de " +
           formatnumber("0.0 km", profile.distkm) + ", azimut " +
           formatnumber("0.0°", profile.azim);
}

std::string elevationtext(const Profile& profile)
{
    return " Variation d'altitude de " +
           formatnumber("0.0 m", double{profile.pathmax} - double{profile.pathmin});
}

std::string modetext(const Link& link, const LinkAnalysis& analysis)
{
    const std::string start = " Le mode de propagation est la ";
    const LRRecord& record = link.record;
    if (record.los != 0) {
        return start + "ligne-de-vue, avec dégagement minimal de " +
               formatnumber("0.0", double{analysis.minclear}) + "F1 à " +
               formatnumber("0.0km", double{analysis.minclearkm});
    }
    const double length_m = link.profile.intervals() * link.profile.spacing_m;
    const bool twohorizons = record.dl1 + record.dl2 < doublehorizon * length_m;
    return start + (record.scatter != 0 ? "dispersion " : "diffraction ") +
           (twohorizons ? "avec horizon double" : "avec obstruction unique");
}

std::string losstext(const LRRecord& record)
{
    const double statistics = record.loss - record.lurban - record.lobst - record.lfree;
    std::string text = " La fréquence moyenne est de " + formatnumber("0.000 MHz", record.freq) +
                       separator + "Espace libre = " + decibels(record.lfree) +
                       ", Obstruction = " + decibels(record.lobst) +
                       ", Facteur urbain = " + decibels(record.lurban) +
                       ", Statistiques = " + decibels(statistics) + separator +
                       "Les pertes de propagation totalisent " + decibels(record.loss);
    if (record.interf == 1)
        text += " (mode interférence <optimiste>)";
    return text;
}

std::string gaintext(const StationNames& names, const Link& link)
{
    return "Le gain de système de " + names.left + " vers " + names.right + " est de " +
           decibels(link.gain12) + separator + "Le gain de système de " + names.right + " vers " +
           names.left + " est de " + decibels(link.gain21);
}

std::string margintext(double margin)
{
    const double rounded = roundtoeven(margin);
    std::string text = "La pire réception ";
    if (rounded < 0)
        text += "est " + decibels(std::abs(margin)) + " sous le ";
    else if (rounded > 0)
        text += "est " + decibels(std::abs(margin)) + " au-dessus du ";
    else
        text += "correspond au ";
    return text + " signal requis pour rencontrer";
}

std::string readingtext(const LRRecord& record, double margin)
{
    const int s = sunits(static_cast<float>(margin), static_cast<float>(record.freq));
    std::string text = formatnumber("0.0", record.ptime) + "% du temps, " +
                       formatnumber("0.0", record.ploc) + "% des locations et " +
                       formatnumber("0.0", record.psit) + "% des situations" + separator +
                       "( La pire lecture au S-mètre est S " + formatnumber("0", smin(9, s));
    if (s > 9)
        text += " + " + formatnumber("0", s);
    return text + " )";
}

void writetexts(const StationNames& names, bool finite, const Link& link, LinkAnalysis& analysis)
{
    analysis.linktext[0] = distancetext(names, link.profile);
    analysis.linktext[1] = elevationtext(link.profile);
    if (!finite) {
        analysis.linktext[2] = " Aucun lien";
        analysis.linktext[3] =
            " La fréquence ou un gain n'est pas un nombre fini: calcul impossible.";
        return;
    }
    analysis.linktext[2] = modetext(link, analysis);
    analysis.linktext[3] = losstext(link.record) + separator + gaintext(names, link) + separator +
                           margintext(analysis.margin) + separator +
                           readingtext(link.record, analysis.margin);
}
} // namespace

bool analyselink(const NetworkTables& tables, const MapGrid& map, int unitA, int unitB, int net,
                 const AnalysisOptions& options, Link& link, LinkAnalysis& analysis)
{
    const Unit& left = tables.unit(unitA);
    const Unit& right = tables.unit(unitB);
    analysis.minclear = noclearance;
    analysis.minclearkm = 0;
    if (cutprofile(map, left, right, link.profile) < 1)
        return false;
    link.losses.assign(link.profile.elevations_m.size(), 0);
    setends(left, right, link.profile);
    const bool withnet = net > 0;
    bool finite = true;
    analysis.margin = 0;
    analysis.earth = standardearth;
    analysis.crossing.reset();
    if (withnet) {
        setlink(tables, unitA, unitB, net, link);
        finite = finitelink(link);
        analysis.margin = linkmargin(tables.net(net), false, options.interference, link);
        analysis.earth = earthfactor(link.record.ns);
        analysis.crossing = horizoncrossing(link);
    } else {
        link.record.h1 = double{options.defh1};
        link.record.h2 = double{options.defh2};
    }
    analysis.top1 = double{left.elevation} + link.record.h1;
    analysis.top2 = double{right.elevation} + link.record.h2;
    raiseprofile(withnet, link, analysis);
    if (withnet)
        writetexts({left.name.text(), right.name.text()}, finite, link, analysis);
    else
        analysis.linktext = {" Impossibilité de montrer les détails", "", "", ""};
    return true;
}
