// The desktop program. Everything it does begins in startup().

#include "app/base/paths.h"
#include "app/base/session.h"
#include "app/windows/frmMain.h"
#include "app/windows/sessionstore.h"
#include "app/windows/shellhooks.h"
#include "app/windows/startup.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

/// The file that the command line names, empty for none. A relative name counts from the folder in
/// which the program was started, before the network's folder becomes the current one.
static std::string namedfile(const QStringList& arguments)
{
    const std::string name = unquoted(arguments.join(QLatin1Char(' ')).toStdString());
    if (name.empty())
        return {};
    return QFileInfo(QString::fromStdString(name)).absoluteFilePath().toStdString();
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QString::fromUtf8(apptitle));
    QApplication::setApplicationVersion(QString::fromStdString(appversion()));
    QApplication::setDesktopFileName(QStringLiteral("velmora"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Planification de réseaux radio sur le relief réel."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("fichier"),
                                 QStringLiteral("Image (bmp, gif, jpg), carte (map) ou réseau."),
                                 QStringLiteral("[fichier]"));
    parser.process(application);

    // The toolkit's own texts (file dialogs, window menus) in the language of the program.
    QTranslator french;
    if (french.load(QStringLiteral("qtbase_fr"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&french);

    usesettingsfile();
    fillhooks();
    const std::unique_ptr<frmMain> window = startup(namedfile(parser.positionalArguments()));
    return window ? QApplication::exec() : 1;
}
