#include "app/windows/frmAbout.h"
#include "app/windows/frmMain.h"
#include "app/windows/frmSplash.h"
#include "app/windows/shelltest.h"
#include "base/paths.h"
#include "base/session.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class About : public ShellTest
{
protected:
    void SetUp() override { oldpath = qgetenv("PATH"); }
    void TearDown() override { qputenv("PATH", oldpath); }
    QByteArray oldpath;
};

TEST_F(About, ShowsTitleAndVersionModally)
{
    start();
    bool seen = false;
    QTimer::singleShot(0, [&seen] {
        auto* about = qobject_cast<frmAbout*>(QApplication::activeModalWidget());
        ASSERT_NE(about, nullptr);
        EXPECT_EQ(about->findChild<QLabel*>(QStringLiteral("title"))->text(),
                  QStringLiteral("Velmora"));
        EXPECT_EQ(about->findChild<QLabel*>(QStringLiteral("version"))->text().toStdString(),
                  "Version " + appversion());
        seen = true;
        QTest::keyClick(about, Qt::Key_Escape);
    });
    choose("mnuHelpAbout");
    EXPECT_TRUE(seen);
}

TEST_F(About, OffersTheSystemInformationToolOnlyWhenThereIsOne)
{
    qputenv("PATH", folder.path().toLocal8Bit());
    EXPECT_EQ(frmAbout(nullptr).findChild<QPushButton*>(QStringLiteral("systeminfo")), nullptr);

    const std::string tool = path("hardinfo");
    ASSERT_TRUE(writefile(tool, "#!/bin/sh\n/bin/touch \"" + path("started") + "\"\n"));
    QFile::setPermissions(QString::fromStdString(tool),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    frmAbout about(nullptr);
    auto* button = about.findChild<QPushButton*>(QStringLiteral("systeminfo"));
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_TRUE(QTest::qWaitFor([this] { return findfile(path("started")).has_value(); }, 5000));
}

TEST_F(About, TheSplashIsPaintedWithTheProgramsColours)
{
    frmSplash splash(nullptr);
    const QImage picture = splash.grab().toImage();
    const QColor sky = picture.pixelColor(picture.width() - 2, 1);
    const QColor ground = picture.pixelColor(picture.width() - 2, picture.height() - 2);
    EXPECT_GT(sky.blue(), sky.green());
    EXPECT_GT(ground.green(), ground.blue());
}
