#pragma once

#include <cstdint>
#include <functional>

/// The operation under way: 0 idle or stopped, 1 to 13 the kind of job. Setting it to 0 is the one
/// way to stop anything.
extern std::int16_t opbusy;
/// The step count that means 100 percent, of the job under way.
extern float optotal;
/// Tile or pass counter kept by the caller; `beginop` resets it.
extern std::int32_t optiles;

/// A long operation as the interface shows it. Each is described in the room of its subject.
struct Job {
    std::int16_t number = 0; ///< what `opbusy` holds while it runs, 1 to 13
    const char* text = "";   ///< shown in the status line, UTF-8
    float total = 0;         ///< the value that means 100 percent; 0: values are shares of 1
    /// A step in the unit of the total, where that isn't the step itself.
    std::function<float(float step)> value{};
    /// Shows what the job drew so far, before a report; not all jobs need it.
    std::function<void()> refresh{};
    bool erasesnets = true; ///< takes the network overlay off all pictures first
};

/// Puts the interface into the busy state and starts to count. May be called again while running:
/// the new job then replaces the other. The first report of a job is always painted.
void beginop(Job job);

/// Restores the interface and shows "Complété." or "Arrêté par l'utilisateur.".
void endop();

/// Handles events and, every 20th step, reports progress. Returns 0 if the operation was stopped.
std::int32_t opstep(std::int32_t step);

/// Shows a share of `optotal` as a percentage, at most every 0.25 s and never the same one twice.
/// 0 or less hides the bar.
void showprogress(float value);

/// Time of day in seconds; replaced by tests.
extern double (*timeofday)();
