#include "network/windows/frmCity.h"

#include "base/busy.h"
#include "base/hooks.h"
#include "base/operation.h"
#include "base/windows/boxes.h"
#include "coordinates/positiontexts.h"
#include "terrain/mapproperties.h"

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QVBoxLayout>

/// The lines of the towns that are shown. A line's text is made when it comes into view.
class TownList : public QAbstractListModel
{
public:
    TownList(const Gazetteer& source, QObject* parent)
        : QAbstractListModel(parent), gazetteer(source)
    {
    }

    void show(std::vector<std::uint32_t> towns)
    {
        beginResetModel();
        shown = std::move(towns);
        endResetModel();
    }
    std::string line(int row) const
    {
        return townline(gazetteer.towns[shown[static_cast<std::size_t>(row)]]);
    }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(shown.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rowCount())
            return {};
        return QString::fromStdString(line(index.row()));
    }

private:
    const Gazetteer& gazetteer;
    std::vector<std::uint32_t> shown;
};

namespace
{

/// While it lives the file is being read, and nothing else reacts.
struct Reading {
    Reading() { opbusy = 1; }
    ~Reading() { opbusy = 0; }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    Busy busy;
};

bool movesinlist(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

} // namespace

frmCity::frmCity(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmCity"));
    setWindowTitle(QStringLiteral("Villes"));
    cityname.clear();
    makewidgets();
    read();
    wanted->setFocus();
}

void frmCity::makewidgets()
{
    wanted = new QLineEdit(this);
    wanted->setObjectName(QStringLiteral("search"));
    wanted->setPlaceholderText(QStringLiteral("Une partie du nom"));
    wanted->setClearButtonEnabled(true);
    wanted->installEventFilter(this);
    auto* label = new QLabel(QStringLiteral("&Chercher"), this);
    label->setBuddy(wanted);

    lines = new TownList(gazetteer, this);
    list = new QListView(this);
    list->setObjectName(QStringLiteral("list"));
    list->setAccessibleName(QStringLiteral("Villes"));
    list->setUniformItemSizes(true);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setModel(lines);
    constexpr int linewidth = 44 + 2; // characters, and the margins
    list->setMinimumWidth(QFontMetrics(list->font()).horizontalAdvance(QLatin1Char('0')) *
                              linewidth +
                          list->verticalScrollBar()->sizeHint().width());
    list->setMinimumHeight(QFontMetrics(list->font()).lineSpacing() * 18);
    picked = new QLabel(this);
    picked->setObjectName(QStringLiteral("picked"));
    picked->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(wanted, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 14, 14, 12);
    column->setSpacing(10);
    column->addLayout(top);
    column->addWidget(list, 1);
    column->addWidget(picked);
    column->addWidget(makebuttons());

    connect(wanted, &QLineEdit::textChanged, this, &frmCity::search);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmCity::pick);
    connect(list, &QListView::doubleClicked, this, &frmCity::apply);
}

QWidget* frmCity::makebuttons()
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    applybutton = namedbutton(QStringLiteral("apply"), QStringLiteral("&Appliquer"), row);
    applybutton->setDefault(true);
    applybutton->setEnabled(false);
    QPushButton* cancel = namedbutton(QStringLiteral("cancel"), QStringLiteral("A&nnuler"), row);
    count = new QLabel(row);
    count->setObjectName(QStringLiteral("count"));
    line->addWidget(count, 1);
    line->addWidget(applybutton);
    line->addWidget(cancel);
    connect(applybutton, &QPushButton::clicked, this, &frmCity::apply);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    return row;
}

void frmCity::read()
{
    const Reading reading;
    gazetteer = readgazetteer();
    search();
    hooks.pumpevents();
}

/// Shows the towns that have the typed text in their names, with the first of them picked.
void frmCity::search()
{
    const QString text = wanted->text().normalized(QString::NormalizationForm_C);
    lines->show(findtowns(gazetteer, text.toStdString()));
    const QString all = QString::number(gazetteer.lines) + QStringLiteral(" entrées");
    count->setText(
        text.isEmpty() ? all : QString::number(lines->rowCount()) + QStringLiteral(" sur ") + all);
    if (!text.isEmpty() && lines->rowCount() > 0)
        list->setCurrentIndex(lines->index(0));
    else
        pick();
}

void frmCity::pick()
{
    const QModelIndexList selected = list->selectionModel()->selectedIndexes();
    const auto found =
        selected.isEmpty() ? std::nullopt : picktown(lines->line(selected.constFirst().row()));
    applybutton->setEnabled(found.has_value());
    town = found.value_or(PickedTown());
    if (!found) {
        picked->clear();
        return;
    }
    PickedTown shown = town; // the texts bring their own copy into range
    const std::string lon = dmslon(shown.lon);
    picked->setText(QString::fromStdString(town.name + lon + " " + dmslat(shown.lat) + " " +
                                           locator(town.lon, town.lat)));
}

void frmCity::apply()
{
    mapedit.maplon0 = town.lon;
    mapedit.maplat0 = town.lat;
    cityname = town.name;
    accept();
}

/// The keys that walk a list do so from the field above it too.
bool frmCity::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == wanted && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (movesinlist(key->key())) {
            QCoreApplication::sendEvent(list, key);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
