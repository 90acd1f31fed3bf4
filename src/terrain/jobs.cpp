#include "terrain/jobs.h"

Job openmapjob()
{
    return {.number = 3, .text = "Ouverture du fichier carte...", .total = 512};
}

Job gtopojob(const MapGrid& map)
{
    return {.number = 2,
            .text = "Extraction des données GTOPO30...",
            .total = static_cast<float>(map.uppery())};
}

Job terrainjob(int tiles)
{
    return {.number = 5,
            .text = "Extraction des données Terrain...",
            .total = static_cast<float>(tiles),
            .value = [](float) { return static_cast<float>(optiles); }};
}

Job dtedjob(int cells, const MapGrid& map)
{
    return {.number = 6,
            .text = "Extraction des données DTED...",
            .total = static_cast<float>(cells),
            .value = [columns = static_cast<float>(map.upperx())](float column) {
                return static_cast<float>(optiles) + column / columns;
            }};
}

Job statisticsjob(const MapGrid& map)
{
    return {.number = 4,
            .text = "Compilation des statistiques de la carte...",
            .total = static_cast<float>(map.upperx())};
}
