#pragma once

#include <cstdint>

/// The operation under way: 0 idle or stopped, 1 to 13 the kind of job. Setting it to 0 is the one
/// way to stop anything.
extern std::int16_t opbusy;
/// The step count that means 100 percent.
extern float optotal;
/// Tile or pass counter kept by the caller; `beginop` resets it.
extern std::int32_t optiles;
/// Number of tiles, set by the caller before `beginop` for operations 5, 6 and 13.
extern std::int32_t tilecount;

/// Kinds of operation, as `opbusy` holds them.
enum class Operation : std::int16_t {
    drawmap = 1,
    gtopo30 = 2,
    openmap = 3,
    statistics = 4,
    terrain = 5,
    dted = 6,
    draw3d = 7,
    adrg = 8,
    panorama = 9,
    merge = 10,
    coverage = 11,
    stereo = 12,
    quovadis = 13
};

/// The extent that gives the totals: the map's last column and row, and, for operation 10, the
/// height of the picture being merged. The rooms that own these keep them up to date.
struct OperationExtent {
    std::int32_t upperx = 0;
    std::int32_t uppery = 0;
    std::int32_t scaleheight = 0;
};
extern OperationExtent operationextent;

/// Puts the interface into the busy state and starts to count. May be called again while running:
/// it then replaces the kind, the text and the total.
void beginop(Operation code);

/// Restores the interface and shows "Complété." or "Arrêté par l'utilisateur.".
void endop();

/// Handles events and, every 20th step, reports progress. Returns 0 if the operation was stopped.
std::int32_t opstep(std::int32_t step);

/// Shows a share of `optotal` as a percentage, at most every 0.25 s and never the same one twice.
/// 0 or less hides the bar.
void showprogress(float value);

/// Time of day in seconds; replaced by tests.
extern double (*timeofday)();
