#include "app/windows/geometry.h"

#include "app/windows/frmMain.h"
#include "base/settings.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

static constexpr std::int32_t defaultplace = 1000;
static constexpr std::int32_t defaultsize = 6500;

static int topixels(std::int32_t units)
{
    return static_cast<int>(std::lround(double(units) / unitsperpixel));
}

WindowPlace storedplace()
{
    std::int32_t left = defaultplace;
    std::int32_t top = defaultplace;
    std::int32_t width = defaultsize;
    std::int32_t height = defaultsize;
    readsetting("MainLeft", defaultplace, left);
    readsetting("MainTop", defaultplace, top);
    readsetting("MainWidth", defaultsize, width);
    readsetting("MainHeight", defaultsize, height);
    const QSize screen = QGuiApplication::primaryScreen()->virtualSize() * unitsperpixel;
    const bool fits = width > 0 && height > 0 && left >= 0 && top >= 0 && left < screen.width() &&
                      height < screen.height();
    if (!fits) {
        left = top = defaultplace;
        width = height = defaultsize;
    }
    return {topixels(left), topixels(top), topixels(width), topixels(height), !fits};
}

void storeplace(const frmMain& window)
{
    const bool normal = !window.isMaximized() && !window.isMinimized();
    const auto store = [normal](const char* key, int pixels) {
        writesetting(key, normal ? pixels * unitsperpixel : 0);
    };
    store("MainLeft", window.x());
    store("MainTop", window.y());
    store("MainWidth", window.width());
    store("MainHeight", window.height());
}
