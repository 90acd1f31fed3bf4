#include "base/operation.h"

#include "base/hooks.h"
#include "base/numbers.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <string>
#include <utility>

std::int16_t opbusy = 0;
float optotal = 0;
std::int32_t optiles = 0;

/// Shortest time between two paintings of the bar, seconds.
static constexpr double paintinterval = 0.25;
/// Steps from one report to the next.
static constexpr std::int32_t reportevery = 20;

/// What the status line shows of the job.
struct Progress {
    Job job;
    int shownpercent = 0;
    double nextpaint = 0; ///< time of day of the next painting, s
};
static Progress running;

static double clocktime()
{
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&seconds, &local);
    const auto sub = now - std::chrono::system_clock::from_time_t(seconds);
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec +
           std::chrono::duration<double>(sub).count();
}

double (*timeofday)() = clocktime;

void beginop(Job job)
{
    opbusy = 0;
    hooks.pumpevents();
    if (job.erasesnets)
        hooks.erasenets();
    hooks.setbusyinterface(true);
    running = {std::move(job)};
    opbusy = running.job.number;
    hooks.setlabel2(running.job.text);
    optotal = running.job.total;
    optiles = 0;
    showprogress(0.0001F); // the bar appears at once, at its least width
}

void endop()
{
    hooks.setbusyinterface(false);
    hooks.setprogress(0);
    hooks.setlabel2(opbusy == 0 ? "Arrêté par l'utilisateur." : "Complété.");
    hooks.setlabel1("Prêt");
    showprogress(0);
    opbusy = 0;
    running.job = {};
}

/// A step in the unit of `optotal`; 0 after a stop: the bar goes.
static float progressvalue(float step)
{
    if (opbusy == 0)
        return 0;
    return running.job.value ? running.job.value(step) : step;
}

std::int32_t opstep(std::int32_t step)
{
    hooks.pumpevents();
    if (step % reportevery == 0) {
        if (opbusy != 0 && running.job.refresh)
            running.job.refresh();
        showprogress(progressvalue(static_cast<float>(step)));
    }
    return std::min<std::int32_t>(opbusy, 1);
}

void showprogress(float value)
{
    if (!(value > 0)) {
        hooks.setprogress(0);
        return;
    }
    if (optotal > 0)
        value /= optotal;
    const float share = std::clamp(value * 100, 1.0F, 100.0F);
    const int percent = static_cast<int>(std::nearbyint(share));
    const double now = timeofday();
    // The clock starts anew at midnight; the next painting is never further away than its interval.
    const bool toosoon = now <= running.nextpaint && running.nextpaint - now <= paintinterval;
    if (toosoon || percent == running.shownpercent)
        return;
    running.nextpaint = now + paintinterval;
    running.shownpercent = percent;
    hooks.setprogress(percent);
    hooks.setlabel1(std::to_string(percent) + "%");
}
