// Walks through the first steps that the manual tells, and keeps a picture of each.
//   manualpictures SOURCES FOLDER

#include "app/windows/frmMain.h"
#include "app/windows/sessionstore.h"
#include "app/windows/shellhooks.h"
#include "app/windows/startup.h"
#include "base/hooks.h"
#include "base/paths.h"
#include "base/session.h"
#include "netoverlay/paint/overlay.h"
#include "network/netfile.h"
#include "network/windows/frmNet.h"
#include "network/windows/frmUnit.h"
#include "pictures/georeference.h"
#include "pictures/windows/frmPic.h"
#include "relief/paint/drawmap.h"
#include "terrain/mapfile.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleFactory>
#include <QTabWidget>

namespace
{

constexpr QSize mainsize(1000, 680);

/// A picture of the main window, with what stands beside it.
class Shot
{
public:
    explicit Shot(const QString& folder, QWidget& main) : target(folder), frame(main) {}

    /// The main window, with other windows of the program at these places over it.
    void take(const char* name, const std::vector<std::pair<QWidget*, QPoint>>& others = {}) const
    {
        QApplication::processEvents();
        QPixmap picture = frame.grab();
        QPainter painter(&picture);
        for (const auto& [window, at] : others)
            painter.drawPixmap(at, framed(*window));
        painter.end();
        picture.save(target + QStringLiteral("/premiers-%1.png").arg(QString::fromLatin1(name)));
    }

private:
    /// A window with the frame that a desktop gives it; a menu has its own.
    static QPixmap framed(QWidget& window)
    {
        constexpr int title = 26; // pixels
        const QPixmap content = window.grab();
        if (qobject_cast<QMenu*>(&window) != nullptr)
            return content;
        QPixmap whole(content.width() + 2, content.height() + title + 1);
        whole.fill(QColor(90, 100, 112));
        QPainter painter(&whole);
        QFont font = window.font();
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(QRect(10, 0, whole.width(), title), Qt::AlignVCenter,
                         window.windowTitle());
        painter.drawPixmap(1, title, content);
        return whole;
    }

    QString target;
    QWidget& frame;
};

/// The picture window fills the main window, at its middle.
QWidget* showmap(frmMain& main)
{
    OpenPicture* picture = drawmap(nullptr, true);
    auto* window = windowof(*picture);
    qobject_cast<QMdiSubWindow*>(window->parentWidget())->showMaximized();
    QApplication::processEvents();
    window->showmiddle();
    main.updatemenus();
    return window->findChild<QWidget*>(QStringLiteral("Picture1"));
}

QMenu* rightclick(QWidget& surface, const QPoint& at)
{
    QMouseEvent press(QEvent::MouseButtonPress, at, surface.mapToGlobal(QPointF(at)),
                      Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&surface, &press);
    QApplication::processEvents();
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void placenext(QWidget& surface, const QPoint& at)
{
    QMenu* menu = rightclick(surface, at);
    menu->findChild<QAction*>(QStringLiteral("placehere"))->trigger();
    menu->close();
    QApplication::processEvents();
}

/// The first net gets a system and the three stations; its dialog shows them.
std::unique_ptr<frmNet> editnet(frmMain& main)
{
    auto dialog = std::make_unique<frmNet>(&main);
    dialog->show();
    auto* predefined = dialog->findChild<QComboBox*>(QStringLiteral("predefined"));
    emit predefined->activated(predefined->findText(QStringLiteral("25"), Qt::MatchContains));
    auto* pages = dialog->findChild<QTabWidget*>(QStringLiteral("pages"));
    constexpr int memberspage = 3;
    pages->setCurrentIndex(memberspage);
    auto* members = pages->currentWidget()->findChild<QListWidget*>();
    for (const int row : {0, 1, 2})
        members->item(row)->setCheckState(Qt::Checked);
    members->setCurrentRow(0);
    dialog->resize(dialog->minimumSizeHint().expandedTo({880, 500}));
    return dialog;
}

void walk(frmMain& main, const QString& sources, const QString& folder)
{
    const Shot shot(folder, main);
    shot.take("pas");
    loadmap((sources + QStringLiteral("/demo/cumberland.map")).toStdString());
    QWidget& surface = *showmap(main);
    const QPoint origin(-surface.x(), -surface.y()); // of what is seen
    const QPoint spots[] = {{230, 190}, {760, 250}, {480, 430}};
    placenext(surface, origin + spots[0]);
    QMenu* menu = rightclick(surface, origin + spots[1]);
    menu->setActiveAction(menu->actions().constFirst());
    shot.take("placer", {{menu, surface.mapTo(&main, origin + spots[1])}});
    menu->close();
    placenext(surface, origin + spots[1]);
    placenext(surface, origin + spots[2]);
    for (const int unit : {1, 2, 3}) {
        unitat(unit).name.assign(unit == 1 ? "Ouest" : unit == 2 ? "Est" : "Relais");
        network.icon(unit) = unit == 3 ? 2 : 0;
    }
    frmUnit* editor = showunits(&main);
    editor->choose(1);
    drawnets();
    shot.take("stations", {{editor, QPoint(main.width() - editor->width() - 12, 90)}});
    editor->close();
    shot.take("reseau", {{&*editnet(main), QPoint(20, 60)}});
    drawnets();
    shot.take("liens");
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (argc != 3)
        return 1;
    const QString sources = QString::fromLocal8Bit(argv[1]);
    const QString folder = QString::fromLocal8Bit(argv[2]);
    setshippedfolder((sources + QStringLiteral("/data/")).toStdString());
    usesettingsfile(folder + QStringLiteral("/settings.ini"));
    fillhooks();
    hooks.askuser = [](const Question&) { return Answer::no; };
    StartOptions options;
    options.splash_s = 0;
    const auto window = startup("", options);
    window->setWindowState(Qt::WindowNoState);
    window->resize(mainsize);
    newnet(true);
    walk(*window, sources, folder);
    while (!openpictures.empty())
        closepicture(*openpictures.back());
    return 0;
}
