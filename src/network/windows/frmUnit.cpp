#include "network/windows/frmUnit.h"

#include "base/hooks.h"
#include "base/windows/colourbutton.h"
#include "base/windows/numberfield.h"
#include "coordinates/dmsfields.h"
#include "coordinates/positiontexts.h"
#include "coordinates/windows/frmDMS.h"
#include "network/gazetteer.h"
#include "network/moveunit.h"
#include "network/unsaved.h"
#include "network/windows/frmCity.h"
#include "network/windows/lists.h"
#include "network/windows/samplelabel.h"
#include "terrain/mapproperties.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSlider>

#include <algorithm>

UnitWindowHooks unitwindowhooks;

/// True while it lives.
struct Flagged {
    explicit Flagged(bool& which) : flag(which) { flag = true; }
    ~Flagged() { flag = false; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;
    bool& flag;
};

frmUnit::frmUnit(QWidget* parent) : QDialog(parent), icons(unitwindowhooks.icons())
{
    setObjectName(QStringLiteral("frmUnit"));
    setWindowTitle(QStringLiteral("Propriétés des stations"));
    setAttribute(Qt::WA_DeleteOnClose);
    unitwindowhooks.clearpictures();
    makewidgets();
    fillstations(*list);
    connectfields();
    list->setCurrentRow(std::clamp<int>(selection.curunit, 1, MAXUNIT) - 1);
    place();
    name->setFocus();
}

/// Beside the pictures: at the right of the main window.
void frmUnit::place()
{
    constexpr int margin = 24; // pixels
    adjustSize();
    const QWidget* main = parentWidget();
    if (main == nullptr)
        return;
    const QRect room = main->screen()->availableGeometry();
    const QPoint wanted = main->geometry().topRight() + QPoint(-width() - margin, 3 * margin);
    QWidget::move(
        std::clamp(wanted.x(), room.left(), std::max(room.left(), room.right() - width())),
        std::clamp(wanted.y(), room.top(), std::max(room.top(), room.bottom() - height())));
}

int frmUnit::unit() const
{
    return std::max(list->currentRow(), 0) + 1;
}

void frmUnit::choose(int number)
{
    list->setCurrentRow(number - 1);
}

void frmUnit::followstation(int number)
{
    showline(number);
    if (number == unit())
        updatefields();
    else if (number == selection.curunit)
        choose(number);
}

void frmUnit::refill()
{
    for (int number = 1; number <= MAXUNIT; ++number)
        showline(number);
    updatefields();
}

void frmUnit::showline(int number)
{
    showstation(*list->item(number - 1), number);
}

void frmUnit::takestation()
{
    settle();
    selection.curunit = static_cast<std::int16_t>(unit());
    undocopy = record();
    updatefields();
}

void frmUnit::updatefields()
{
    const Flagged writing(filling);
    const Unit& shown = record();
    const QString text = QString::fromStdString(shown.name.text());
    if (name->text().trimmed() != text)
        name->setText(text);
    elevation->setnumber(shown.elevation);
    enabled->setChecked(shown.enabled != 0);
    transparent->setChecked(shown.transparent != 0);
    forecolour->setcolour(shown.forecolour);
    backcolour->setcolour(shown.backcolour);
    const int icon = network.icon(unit());
    iconbar->setValue(icon == noicon ? 0 : std::min(icon + 1, iconbar->maximum()));
    showicon();
    showsample();
    showposition();
    showline(unit());
}

void frmUnit::showsample()
{
    const Unit& shown = record();
    sample->setlook({QString::fromStdString(shown.name.text()), unitwindowhooks.labelfont(),
                     shown.forecolour, shown.backcolour, shown.transparent != 0});
    sample->setEnabled(shown.enabled != 0);
}

void frmUnit::showicon()
{
    const int at = iconbar->value();
    if (at == 0) {
        iconcaption->setText(QStringLiteral("Aucun &icône"));
        iconimage->clear();
        return;
    }
    const QImage& icon = icons[static_cast<std::size_t>(at - 1)];
    iconcaption->setText(
        QStringLiteral("&Icône %1x%2 pixels").arg(icon.width()).arg(icon.height()));
    const bool large = icon.width() > iconimage->width() || icon.height() > iconimage->height();
    iconimage->setPixmap(QPixmap::fromImage(
        large ? icon.scaled(iconimage->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)
              : icon));
}

void frmUnit::showposition()
{
    float lon = record().lon; // the texts bring their own copies into range
    float lat = record().lat;
    locatorline->setText(QString::fromStdString(locator(lon, lat)));
    const std::string lontext = dmslon(lon);
    position->setText(QString::fromStdString(lontext + " " + dmslat(lat)));
}

/// The station's look is another one.
void frmUnit::changed()
{
    markedited();
    showline(unit());
    showsample();
    unitwindowhooks.redrawstation(unit());
}

/// The station's name as the menu tells an action on it.
static QString unitname(const Unit& unit)
{
    return QString::fromStdString(unit.name.text());
}

void frmUnit::edit(const QWidget* field, const QString& what)
{
    if (edited == field)
        return;
    settle();
    editing.emplace(what + unitname(record()));
    edited = field;
}

void frmUnit::settle()
{
    if (editing)
        editing->done();
    if (edited == elevation)
        moved = true; // the links are evaluated anew
    editing.reset();
    edited = nullptr;
}

void frmUnit::act(const QString& what, const std::function<void()>& action)
{
    settle();
    TablesEdit step(what + unitname(record()));
    action();
    step.done();
}

void frmUnit::takename(const QString& text)
{
    if (filling)
        return;
    edit(name, QStringLiteral("renommer "));
    record().name.assign(text.toStdString());
    changed();
}

void frmUnit::takeelevation()
{
    if (filling)
        return;
    edit(elevation, QStringLiteral("changer l'altitude de "));
    record().elevation = static_cast<float>(elevation->value());
    changed();
}

void frmUnit::takeenabled(bool on)
{
    if (filling)
        return;
    act(on ? QStringLiteral("activer ") : QStringLiteral("désactiver "),
        [&] { record().enabled = on ? -1 : 0; });
    changed();
    unitwindowhooks.drawnets();
}

void frmUnit::taketransparent(bool on)
{
    if (filling)
        return;
    act(QStringLiteral("changer l'étiquette de "), [&] { record().transparent = on ? -1 : 0; });
    changed();
}

void frmUnit::takecolours()
{
    act(QStringLiteral("changer les couleurs de "), [this] {
        record().forecolour = forecolour->colour();
        record().backcolour = backcolour->colour();
    });
    changed();
}

void frmUnit::takeicon(int at)
{
    if (filling)
        return;
    edit(iconbar, QStringLiteral("changer l'icône de "));
    network.icon(unit()) = static_cast<std::uint8_t>(at == 0 ? noicon : at - 1);
    showicon();
    changed();
}

bool frmUnit::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        settle();
    return QDialog::eventFilter(watched, event);
}

void frmUnit::gotostation()
{
    unitwindowhooks.movecursor(record().lon, record().lat);
}

void frmUnit::move(float lon, float lat)
{
    selection.curunit = static_cast<std::int16_t>(unit());
    moveunit(lon, lat);
    markedited();
    updatefields();
}

void frmUnit::gotocursor()
{
    float lon = record().lon;
    float lat = record().lat;
    unitwindowhooks.cursorposition(lon, lat);
    act(QStringLiteral("déplacer "), [&] { move(lon, lat); });
}

void frmUnit::enterposition()
{
    picklon = record().lon;
    picklat = record().lat;
    if (frmDMS(this).exec() == QDialog::Accepted)
        act(QStringLiteral("déplacer "), [this] { move(picklon, picklat); });
}

void frmUnit::importtown()
{
    const MapRecord kept = mapedit; // a map may be under edit beside this window
    frmCity(this).exec();
    const float lon = mapedit.maplon0;
    const float lat = mapedit.maplat0;
    mapedit = kept;
    if (cityname.empty())
        return;
    act(QStringLiteral("importer une ville dans "), [&] {
        record().name.assign(cityname);
        move(lon, lat);
    });
}

void frmUnit::exporttown()
{
    const std::string caption = exportbutton->text().remove(QLatin1Char('&')).toStdString();
    const Answer answer = hooks.askuser({record().name.text() + "\n" + caption + "?",
                                         Question::Buttons::yesno, Question::Icon::question});
    if (answer == Answer::yes)
        appendtown(record());
}

void frmUnit::undo()
{
    const Unit before = record();
    act(QStringLiteral("défaire "), [this] { record() = undocopy; });
    markedited();
    updatefields();
    if (before.lon != undocopy.lon || before.lat != undocopy.lat)
        hooks.unitmoved(unit());
    else
        unitwindowhooks.redrawstation(unit());
    moved = true; // its links are evaluated anew
}

void frmUnit::done(int result)
{
    settle();
    QDialog::done(result);
    unitwindowhooks.drawnets();
}

frmUnit* unitwindow(const QWidget* parent)
{
    const auto windows = parent->findChildren<frmUnit*>(QString(), Qt::FindDirectChildrenOnly);
    const auto open = std::find_if(windows.begin(), windows.end(), [](const frmUnit* window) {
        return window->isVisible(); // one that was closed is still there for a moment
    });
    return open == windows.end() ? nullptr : *open;
}

frmUnit* showunits(QWidget* parent)
{
    frmUnit* window = unitwindow(parent);
    if (window == nullptr)
        window = new frmUnit(parent);
    window->choose(selection.curunit);
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}
