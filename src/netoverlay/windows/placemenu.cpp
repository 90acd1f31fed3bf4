#include "netoverlay/windows/placemenu.h"

#include "netoverlay/paint/movestation.h"
#include "network/moveunit.h"
#include "network/windows/chooseunit.h"
#include "network/windows/netundo.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/windows/picturetool.h"

#include <QMenu>
#include <QMouseEvent>

namespace
{

/// A name as a menu shows it: its "&" is no shortcut's mark.
QString menuname(int unit)
{
    return QString::fromStdString(unitat(unit).name.text())
        .replace(QLatin1Char('&'), QStringLiteral("&&"));
}

/// Places a station; one action of the user.
void place(int unit, float lon, float lat)
{
    TablesEdit step(QStringLiteral("placer ") + QString::fromStdString(unitat(unit).name.text()));
    placestation(unit, lon, lat);
    step.done();
}

void placeother(float lon, float lat, QWidget* view)
{
    const int unit = chooseunit(QStringLiteral("Placer une autre station"),
                                QStringLiteral("&Placer ici"), view->window());
    if (unit != 0)
        place(unit, lon, lat);
}

QMenu* makemenu(float lon, float lat, QWidget* view)
{
    auto* menu = new QMenu(view);
    menu->setObjectName(QStringLiteral("placemenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // What an entry does may handle events: it waits until the menu has gone.
    const auto add = [menu, view](const char* name, const QString& text, auto action) {
        QAction* entry = menu->addAction(text);
        entry->setObjectName(QString::fromLatin1(name));
        QObject::connect(entry, &QAction::triggered, view, action, Qt::QueuedConnection);
        return entry;
    };
    const int next = unplacedunit();
    const QString here = QStringLiteral("&Placer ici");
    add("placehere", next == 0 ? here : here + QStringLiteral(" : ") + menuname(next), [=] {
        place(next, lon, lat);
    })->setEnabled(next != 0);
    add("placeother", QStringLiteral("Placer une &autre station..."),
        [=] { placeother(lon, lat, view); });
    menu->addSeparator();
    add("cursorhere", QStringLiteral("Déplacer le &curseur ici"), [=] { movecursor(lon, lat); });
    return menu;
}

class PlaceMenu : public PictureTool
{
public:
    PlaceMenu(OpenPicture& picture, QWidget* view) : shown(picture), surface(view) {}

    bool pressed(const QMouseEvent& event) override;
    bool doubleclicked(const QMouseEvent& event) override { return pressed(event); }
    bool dragged(const QMouseEvent&) override { return false; }
    bool released(const QMouseEvent&) override { return false; }
    bool escape() override { return false; }
    void settle() override {}
    bool showpointer(const QPointF&) override { return false; }

private:
    bool onselection(const QPoint& at) const;

    OpenPicture& shown;
    QWidget* surface;
};

bool PlaceMenu::onselection(const QPoint& at) const
{
    return shown.marks.Shape2 && shown.marks.selection.adjusted(0, 0, 1, 1).contains(at);
}

bool PlaceMenu::pressed(const QMouseEvent& event)
{
    const bool right =
        event.button() == Qt::RightButton && !event.modifiers().testFlag(Qt::ShiftModifier);
    const bool carries = shown.data.isplaced() && !shown.data.isworld() && !shown.data.isstereo();
    const QPointF at = event.position();
    float lon = 0;
    float lat = 0;
    if (!right || !carries || onselection(at.toPoint()) ||
        !pic2ll(shown.data, static_cast<float>(at.x()), static_cast<float>(at.y()), lon, lat))
        return false;
    makemenu(lon, lat, surface)->popup(event.globalPosition().toPoint());
    return true;
}

} // namespace

void connectplacemenu()
{
    picturetoolmakers.emplace_back([](OpenPicture& picture, QWidget* view) {
        return std::make_unique<PlaceMenu>(picture, view);
    });
}
