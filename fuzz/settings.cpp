// The user's settings file, whatever stands in it: the session and the coverage's choice that are
// read from it hold values that the program can work with.

#include "base/settings.h"

#include "app/windows/sessionstore.h"
#include "base/session.h"
#include "coverage/choice.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstdlib>

/// A folder for the file that lives as long as the run.
static const QString& settingsfile()
{
    static int count = 0;
    static QCoreApplication program(count, nullptr);
    static const QTemporaryDir folder;
    static const QString path = folder.filePath(QStringLiteral("velmora.ini"));
    return path;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QFile file(settingsfile());
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    usesettingsfile(settingsfile());
    session = Session();
    readsession();
    readlivesession();
    CoverageChoice choice;
    readcoveragesettings(choice);
    resetsettings(); // before the file is written anew
    if (!std::isfinite(session.defh1) || !std::isfinite(session.defh2))
        std::abort();
    return 0;
}
