// The desktop program. Everything it does begins in startup().

#include "app/windows/endsignals.h"
#include "app/windows/frmMain.h"
#include "app/windows/sessionstore.h"
#include "app/windows/shellhooks.h"
#include "app/windows/startup.h"
#include "base/paths.h"
#include "base/session.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <csignal>
#include <string_view>

/// The file that the command line names, empty for none. A relative name counts from the folder in
/// which the program was started, before the network's folder becomes the current one.
static std::string namedfile(const QStringList& arguments)
{
    const std::string name = unquoted(arguments.join(QLatin1Char(' ')).toStdString());
    if (name.empty())
        return {};
    return QFileInfo(QString::fromStdString(name)).absoluteFilePath().toStdString();
}

/// True when the command line asks for a text only, which needs no screen.
static bool asksfortext(int argc, char** argv)
{
    static constexpr std::array<std::string_view, 4> options{"-h", "--help", "-v", "--version"};
    return std::any_of(argv + 1, argv + argc, [](const char* argument) {
        return std::find(options.begin(), options.end(), argument) != options.end();
    });
}

/// The toolkit's own texts (file dialogs, window menus) in the language of the program.
static void speakfrench(QTranslator& french)
{
    if (french.load(QStringLiteral("qtbase_fr"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&french);
}

/// Reads the command line; answers and ends the program where it asks for a text.
static std::string readcommandline(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Planification de réseaux radio sur le relief réel."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Afficher cette aide."));
    parser.addOption(help);
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("fichier"),
                                 QStringLiteral("Image (bmp, gif, jpg), carte (map) ou réseau."),
                                 QStringLiteral("[fichier]"));
    parser.process(application);
    if (parser.isSet(help))
        parser.showHelp();
    return namedfile(parser.positionalArguments());
}

int main(int argc, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN); // a limit on files is met as a full disk is: the write fails
    QCoreApplication::setApplicationName(QString::fromUtf8(apptitle));
    QCoreApplication::setApplicationVersion(QString::fromStdString(appversion()));
    QTranslator french;
    if (asksfortext(argc, argv)) {
        const QCoreApplication application(argc, argv);
        speakfrench(french);
        readcommandline(application);
        return 0;
    }
    const QApplication application(argc, argv);
    QApplication::setDesktopFileName(QStringLiteral("velmora"));
    speakfrench(french);
    const std::string file = readcommandline(application);
    usesettingsfile();
    fillhooks();
    endonsignals();
    const std::unique_ptr<frmMain> window = startup(file);
    return window ? QApplication::exec() : 1;
}
