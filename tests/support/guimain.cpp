// main() of the window tests: an offscreen screen, a home of their own, one application.

#include <QApplication>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Test discovery starts the program without the environment of a test run.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("data")).toLocal8Bit());
    qunsetenv("VELMORA_HOME");

    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Velmora"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    return RUN_ALL_TESTS();
}
