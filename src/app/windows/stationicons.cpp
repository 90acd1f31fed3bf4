#include "app/windows/stationicons.h"

#include "base/paths.h"
#include "netoverlay/paint/overlay.h"

#include <QDir>
#include <QImage>

#include <string>
#include <vector>

static void addfolder(const QString& path)
{
    const QDir folder(path);
    const QStringList names =
        folder.entryList({QStringLiteral("*.ico")}, QDir::Files, QDir::Name | QDir::IgnoreCase);
    for (const QString& name : names) {
        const QImage icon(folder.filePath(name));
        if (!icon.isNull())
            stationicons.push_back(icon);
    }
}

void fillstationicons()
{
    stationicons.clear();
    std::vector<std::string> folders{userfolder()};
    if (shippedfolder() != userfolder())
        folders.push_back(shippedfolder());
    for (const char* subfolder : {"", "icon"})
        for (const std::string& folder : folders)
            addfolder(QString::fromStdString(folder + subfolder));
}
