#include <QDir>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace
{

constexpr int longest_ms = 20000;

/// A screen without a monitor, with the clipboard that its programs share.
class SharedClipboard : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* tool : {"Xvfb", "xclip"})
            if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
                GTEST_SKIP() << tool << " is not installed; scripts/deps.sh test installs it";
        server.start(QStringLiteral("Xvfb"),
                     {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                      QStringLiteral("0"), QStringLiteral("1024x768x24"),
                      QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        ASSERT_TRUE(server.waitForReadyRead(longest_ms)) << "the screen did not come up";
        const QString display = QString::fromLatin1(server.readLine()).trimmed();
        environment.insert(QStringLiteral("DISPLAY"), QLatin1Char(':') + display);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        environment.insert(QStringLiteral("VELMORA_HOME"), folder.path());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.path());
    }
    void TearDown() override
    {
        server.kill();
        server.waitForFinished();
    }

    QString file(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    /// Runs another program to its end; what it writes.
    QByteArray run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.path());
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(longest_ms)) << program.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }
    /// What the clipboard has of a kind, as another program gets it.
    QByteArray clipboard(const char* kind)
    {
        return run(QStringLiteral("xclip"),
                   {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-t"),
                    QString::fromLatin1(kind), QStringLiteral("-o")});
    }

    QTemporaryDir folder;
    QProcess server;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString host = QStringLiteral(CLIPBOARD_HOST);
};

} // namespace

TEST_F(SharedClipboard, GivesImageAndPlaceToOtherPrograms)
{
    QProcess copying;
    copying.setProcessEnvironment(environment);
    copying.setWorkingDirectory(folder.path());
    copying.start(host, {QStringLiteral("copy")});
    ASSERT_TRUE(copying.waitForReadyRead(longest_ms));
    const QImage image = QImage::fromData(clipboard("image/png"));
    ASSERT_EQ(image.size(), QSize(60, 40));
    EXPECT_EQ(image.pixelColor(29, 20), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(30, 20), QColor(Qt::blue));
    const std::string place = "007.00000\t45.00000\t008.00000\t45.00000\t008.00000\t44.00000\t"
                              "007.00000\t44.00000\t01\tété.map\t";
    EXPECT_EQ(clipboard("UTF8_STRING").toStdString(), place);

    // Another running copy of the program gets the picture with its place.
    const QByteArray told = run(host, {QStringLiteral("paste"), file("pasted.png")});
    EXPECT_EQ(told.toStdString(), place + "\n");
    const QImage pasted(file("pasted.png"));
    EXPECT_EQ(pasted.convertToFormat(QImage::Format_RGB32),
              image.convertToFormat(QImage::Format_RGB32));
    copying.closeWriteChannel();
    EXPECT_TRUE(copying.waitForFinished(longest_ms));
}

TEST_F(SharedClipboard, TakesAnImageOfAnotherProgram)
{
    QImage image(33, 22, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    ASSERT_TRUE(image.save(file("other.png")));
    QProcess giver; // stays as long as it owns the clipboard
    giver.setProcessEnvironment(environment);
    giver.start(QStringLiteral("xclip"),
                {QStringLiteral("-quiet"), QStringLiteral("-selection"),
                 QStringLiteral("clipboard"), QStringLiteral("-t"), QStringLiteral("image/png"),
                 QStringLiteral("-i"), file("other.png")});
    ASSERT_TRUE(giver.waitForStarted(longest_ms));
    giver.setReadChannel(QProcess::StandardError);
    ASSERT_TRUE(giver.waitForReadyRead(longest_ms)) << "it tells that it waits for requests";
    const QByteArray told = run(host, {QStringLiteral("paste"), file("pasted.png")});
    EXPECT_THAT(told.toStdString(), testing::HasSubstr("000.00000\t00.00000\t02\tImage collée\t"));
    EXPECT_EQ(QImage(file("pasted.png")).convertToFormat(QImage::Format_RGB32), image);
    giver.kill();
    giver.waitForFinished();
}
