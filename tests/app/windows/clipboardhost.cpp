// The program on a screen of its own, for the test of the clipboard that programs share.
//   arguments: copy             puts a picture there, and stays until its input ends
//              paste FILE       pastes as a new picture, writes its image, and tells its place

#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "app/windows/sessionstore.h"
#include "app/windows/shellhooks.h"
#include "app/windows/startup.h"
#include "base/paths.h"
#include "pictures/copytext.h"
#include "pictures/paint/openpictures.h"

#include <QApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

/// Half red, half blue, over a degree.
static void makepicture()
{
    OpenPicture& picture = *openpic("", 0);
    resizepicture(picture, 60, 40);
    picture.surface.kept.fill(Qt::red);
    for (int y = 0; y < 40; ++y)
        for (int x = 30; x < 60; ++x)
            picture.surface.kept.setPixelColor(x, y, Qt::blue);
    picture.data.Pictype = pictype::map;
    picture.data.lon = {7, 8, 8, 7};
    picture.data.lat = {45, 45, 44, 44};
    picture.data.source = "été.map";
}

static int copy()
{
    makepicture();
    copytoclipboard();
    std::puts("copied");
    std::fflush(stdout);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
    return QApplication::exec();
}

static int paste(const QString& file)
{
    pasteasnew();
    if (openpictures.empty())
        return 1;
    const OpenPicture& picture = *openpictures.back();
    std::puts(copytext(picture.data).c_str());
    return picture.surface.kept.save(file) ? 0 : 1;
}

int main(int argc, char** argv)
{
    QApplication::setApplicationName(QStringLiteral("Velmora"));
    const QApplication application(argc, argv);
    usesettingsfile();
    fillhooks();
    const StartOptions options{.splash_s = 0, .winddown_s = 0};
    const auto window = startup("none.map", options);
    if (!window || argc < 2)
        return 1;
    const int result = argc == 2 ? copy() : paste(QString::fromLocal8Bit(argv[2]));
    while (!openpictures.empty()) // as at the program's end, before their windows
        closepicture(*openpictures.back());
    return result;
}
