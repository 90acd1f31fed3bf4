#include "radio/exportprofile.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/textcodec.h"
#include "radio/earth.h"

#include <string_view>

namespace
{
constexpr std::string_view lineend = "\r\n";

constexpr std::string_view index = "** Données du site de gauche **\r\n"
                                   " Nom\r\n"
                                   " Hauteur d'antenne (m)\r\n"
                                   "** Données du site de droite **\r\n"
                                   " Nom\r\n"
                                   " Hauteur d'antenne (m)\r\n"
                                   "** Données du lien radio **\r\n"
                                   " Fréquence (GHz)\r\n"
                                   " Facteur de courbure terrestre\r\n"
                                   "** Profil de parcours **\r\n"
                                   " Échantillons: Distance(km) Altitude(m)\r\n"
                                   "Start\r\n";

/// "Version 1.2": the program's version without its revision.
std::string versiontext()
{
    const std::string version = appversion();
    return "Version " + version.substr(0, version.find('.', version.find('.') + 1));
}

/// A line of one number: a blank in the place of its sign, and one behind it.
std::string numberline(double value)
{
    return (value < 0 ? "" : " ") + generalnumber(value) + " " + std::string(lineend);
}
} // namespace

std::string profiletext(const LinkStudy& study, const Profile& profile)
{
    const LRRecord& record = study.link.record;
    std::string text = std::string(apptitle).append(lineend);
    text.append(versiontext()).append(lineend).append(index);
    text.append(study.namea).append(lineend).append(numberline(record.h1));
    text.append(study.nameb).append(lineend).append(numberline(record.h2));
    text += numberline(study.net > 0 ? record.freq / 1000 : 0);
    text += numberline(curvaturefactor(record.ns));
    for (int i = 0; i <= profile.intervals(); ++i) {
        text += formatnumber("0000.000", i * profile.spacing_m / 1000) + '\t' +
                formatnumber("0000.0", profile.sample(i)) + "\t0\t0";
        text += lineend;
    }
    return text;
}

std::optional<std::string> profilefile(const NetworkTables& tables, const MapGrid& map, int a,
                                       int b, int net, const AnalysisOptions& options,
                                       std::string* why)
{
    const Unit& left = tables.unit(a);
    const Unit& right = tables.unit(b);
    LinkStudy study;
    studylink(tables, map, a, b, net, options, study);
    // The study has the bulge on its profile.
    Profile bare;
    if (cutprofile(map, left, right, bare) <= fewintervals) {
        if (why)
            *why = "the stations are too near to each other, or one lies outside the map";
        return {};
    }
    setends(left, right, bare);
    return toansi(profiletext(study, bare));
}

bool exportprofile(const std::string& filename, const NetworkTables& tables, const MapGrid& map,
                   int a, int b, int net, const AnalysisOptions& options, std::string* why)
{
    const auto bytes = profilefile(tables, map, a, b, net, options, why);
    return bytes && writefile(targetpath(filename), *bytes, why);
}
