#include "app/windows/sessionstore.h"
#include "app/windows/shelltest.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"

#include <QSettings>

#include <gmock/gmock.h>

using testing::ElementsAre;

class SessionStore : public ShellTest
{
protected:
    QString inipath() const { return folder.filePath(QStringLiteral("settings.ini")); }
    std::string stored(const char* key)
    {
        QSettings file(inipath(), QSettings::IniFormat);
        return file.value(QStringLiteral("Settings/") + QString::fromLatin1(key))
            .toString()
            .toStdString();
    }
};

TEST_F(SessionStore, AnEmptyStoreGivesTheDefaults)
{
    readsession();
    readlivesession();
    EXPECT_EQ(session.netfile, "Default.net");
    EXPECT_EQ(session.adrgdrive, "C");
    EXPECT_EQ(session.objectdrive, "C");
    EXPECT_EQ(session.drawfontname, "MS Sans Serif");
    EXPECT_EQ(session.drawfontsize, 8);
    EXPECT_TRUE(session.drawfontbold);
    EXPECT_FALSE(session.drawfontitalic);
    EXPECT_TRUE(session.drawtransparent);
    EXPECT_TRUE(session.drawobject);
    EXPECT_EQ(session.defh1, 2);
    EXPECT_EQ(session.defh2, 2);
    EXPECT_THAT(session.drvpath, ElementsAre("C", "C", "C"));
    EXPECT_EQ(session.live.gpsstatus, 0);
    EXPECT_EQ(session.live.gpsserial, 1);
    EXPECT_EQ(session.live.gpsspeed, 4800);
    EXPECT_EQ(session.live.gpsunit, 1);
    EXPECT_EQ(session.live.gpslog, "GPS.TXT");
    EXPECT_EQ(session.live.gpsudp, "231.31.31.31");
    EXPECT_EQ(session.live.gpsport, 3500);
    EXPECT_EQ(session.live.gpsttl, 2);
    EXPECT_EQ(session.live.gpstx, 10);
    EXPECT_EQ(session.live.gpsdraw, 10);
    EXPECT_EQ(session.live.gpsplay, 2);
}

TEST_F(SessionStore, KeepsEverythingFromRunToRun)
{
    session.adrgdrive = "/cartes, numérisées";
    session.drawfontname = "DejaVu Sans";
    session.drawfontsize = 11;
    session.drawfontbold = false;
    session.drawfontitalic = true;
    session.drawtransparent = false;
    session.defh1 = 12.5F;
    session.live.gpsstatus = 41;
    session.live.gpsport = 65535;
    session.live.gpstx = 2.5F;
    storesession();
    usesettingsfile(inipath());
    session = Session();
    readsession();
    readlivesession();
    EXPECT_EQ(session.adrgdrive, "/cartes, numérisées");
    EXPECT_EQ(session.drawfontname, "DejaVu Sans");
    EXPECT_EQ(session.drawfontsize, 11);
    EXPECT_FALSE(session.drawfontbold);
    EXPECT_TRUE(session.drawfontitalic);
    EXPECT_FALSE(session.drawtransparent);
    EXPECT_EQ(session.defh1, 12.5F);
    EXPECT_EQ(session.live.gpsstatus, 41);
    EXPECT_EQ(session.live.gpsport, 65535);
    EXPECT_EQ(session.live.gpstx, 2.5F);
}

TEST_F(SessionStore, KeysAreOneWhateverTheirCase)
{
    writesetting("DrawFontbold", false);
    writesetting("DrawFontBold", true);
    bool bold = false;
    readsetting("drawfontBOLD", false, bold);
    EXPECT_TRUE(bold);
    storesession();
    QSettings file(inipath(), QSettings::IniFormat);
    file.beginGroup(QStringLiteral("Settings"));
    EXPECT_EQ(file.childKeys().filter(QStringLiteral("drawfontbold"), Qt::CaseInsensitive).size(),
              1);
}

TEST_F(SessionStore, AValueThatDoesNotConvertLeavesTheVariable)
{
    writesetting("DrawFontSize", "grand");
    writesetting("DrawTransparent", "peut-être");
    writesetting("Def_h1", "2 m");
    session.drawfontsize = 9;
    session.drawtransparent = false;
    session.defh1 = 7;
    readsession();
    EXPECT_EQ(session.drawfontsize, 9);
    EXPECT_FALSE(session.drawtransparent);
    EXPECT_EQ(session.defh1, 7);
}

TEST_F(SessionStore, LiveNumbersTakeTheLeadingNumber)
{
    writesetting("GPSspeed", "9600 bps");
    writesetting("GPSserial", "aucun");
    writesetting("GPStx", "2.5s");
    readlivesession();
    EXPECT_EQ(session.live.gpsspeed, 9600);
    EXPECT_EQ(session.live.gpsserial, 0);
    EXPECT_EQ(session.live.gpstx, 2.5F);
}

TEST_F(SessionStore, ALiveNumberBeyondItsTypeLeavesTheVariable)
{
    writesetting("GPSunit", "70000");
    writesetting("GPSport", "1e300");
    readlivesession();
    EXPECT_EQ(session.live.gpsunit, 1);
    EXPECT_EQ(session.live.gpsport, 3500);
}

TEST_F(SessionStore, RecentNetworksComeBackReversedWithoutThoseThatWent)
{
    for (const char* name : {"a.net", "b.net", "c.net"})
        ASSERT_TRUE(writefile(path(name), "x"));
    session.recent = {path("a.net"), path("gone.net"), path("b.net"), path("c.net")};
    storesession();
    EXPECT_EQ(stored("Previous1"), path("gone.net"));
    session = Session();
    readrecent();
    EXPECT_THAT(session.recent, ElementsAre(lowercase(path("c.net")), lowercase(path("b.net")),
                                            lowercase(path("a.net")), ""));
}
