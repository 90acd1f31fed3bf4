#include "app/windows/sessionstore.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"

#include <QSettings>
#include <QStringList>

#include <limits>
#include <memory>

/// The key as the file spells it; keys are one whatever the case of their letters.
static QString spelled(const QSettings& file, std::string_view key)
{
    QString wanted = QString::fromUtf8(key.data(), qsizetype(key.size()));
    for (const QString& existing : file.childKeys())
        if (existing.compare(wanted, Qt::CaseInsensitive) == 0)
            return existing;
    return wanted;
}

void usesettingsfile(const QString& path)
{
    const QString title = QString::fromUtf8(apptitle);
    const auto file =
        path.isEmpty()
            ? std::make_shared<QSettings>(QSettings::IniFormat, QSettings::UserScope, title, title)
            : std::make_shared<QSettings>(path, QSettings::IniFormat);
    file->beginGroup(QStringLiteral("Settings"));
    settingsstore.get = [file](std::string_view key, std::string& value) {
        const QString name = spelled(*file, key);
        if (!file->contains(name))
            return false;
        value = file->value(name).toString().toStdString();
        return true;
    };
    settingsstore.set = [file](std::string_view key, const std::string& value) {
        file->setValue(spelled(*file, key), QString::fromStdString(value));
    };
    settingsstore.flush = [file] { file->sync(); };
}

void readsession()
{
    session.netfile = getsetting("LastProject", "Default.net");
    session.adrgdrive = getsetting("AdrgDrive", "C");
    session.objectdrive = getsetting("ObjectDrive", "C");
    session.drawfontname = getsetting("DrawFontName", "MS Sans Serif");
    readsetting("DrawFontSize", std::int16_t{8}, session.drawfontsize);
    readsetting("DrawFontbold", true, session.drawfontbold);
    readsetting("DrawFontItalic", false, session.drawfontitalic);
    readsetting("DrawTransparent", true, session.drawtransparent);
    readsetting("DrawObject", true, session.drawobject);
    readsetting("Def_h1", 2.0F, session.defh1);
    readsetting("Def_h2", 2.0F, session.defh2);
}

void readrecent()
{
    for (int i = 0; i < 4; ++i) {
        std::string path = getsetting("Previous" + std::to_string(i), "");
        if (findfile(path))
            addrecent(path);
    }
}

/// A numeric value of the live layer: the text's leading number, 0 where there is none.
template <typename T> static void readlenient(const char* key, const char* otherwise, T& value)
{
    const double number = leadingnumber(getsetting(key, otherwise));
    if constexpr (std::is_integral_v<T>) {
        const double whole = roundtoeven(number);
        if (whole >= double(std::numeric_limits<T>::min()) &&
            whole <= double(std::numeric_limits<T>::max()))
            value = static_cast<T>(whole);
    } else {
        value = static_cast<T>(number);
    }
}

void readlivesession()
{
    for (std::size_t i = 0; i < session.drvpath.size(); ++i)
        session.drvpath[i] = getsetting("DRV" + std::to_string(i), "C");
    LiveSettings& live = session.live;
    readlenient("GPSstatus", "0", live.gpsstatus);
    readlenient("GPSserial", "1", live.gpsserial);
    readlenient("GPSspeed", "4800", live.gpsspeed);
    readlenient("GPSunit", "1", live.gpsunit);
    live.gpslog = getsetting("GPSlog", "GPS.TXT");
    live.gpsudp = getsetting("GPSudp", "231.31.31.31");
    readlenient("GPSport", "3500", live.gpsport);
    readlenient("GPSTTL", "2", live.gpsttl);
    readlenient("GPStx", "10", live.gpstx);
    readlenient("GPSdraw", "10", live.gpsdraw);
    readlenient("GPSplay", "2", live.gpsplay);
}

void storesession()
{
    writesetting("DrawFontName", session.drawfontname);
    writesetting("DrawFontSize", std::int32_t{session.drawfontsize});
    writesetting("DrawFontBold", session.drawfontbold);
    writesetting("DrawFontItalic", session.drawfontitalic);
    writesetting("DrawTransparent", session.drawtransparent);
    writesetting("DrawObject", session.drawobject);
    writesetting("AdrgDrive", session.adrgdrive);
    writesetting("ObjectDrive", session.objectdrive);
    writesetting("Def_h1", session.defh1);
    writesetting("Def_h2", session.defh2);
    const LiveSettings& live = session.live;
    writesetting("GPSstatus", live.gpsstatus);
    writesetting("GPSserial", std::int32_t{live.gpsserial});
    writesetting("GPSspeed", std::int32_t{live.gpsspeed});
    writesetting("GPSunit", std::int32_t{live.gpsunit});
    writesetting("GPSlog", live.gpslog);
    writesetting("GPSudp", live.gpsudp);
    writesetting("GPSport", live.gpsport);
    writesetting("GPSTTL", std::int32_t{live.gpsttl});
    writesetting("GPStx", live.gpstx);
    writesetting("GPSdraw", live.gpsdraw);
    writesetting("GPSplay", live.gpsplay);
    for (std::size_t i = 0; i < session.recent.size(); ++i)
        writesetting("Previous" + std::to_string(i), session.recent[i]);
    settingsstore.flush();
}
