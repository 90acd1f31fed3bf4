#include "coordinates/windows/frmDMS.h"

#include "base/windows/boxes.h"
#include "base/windows/numberfield.h"
#include "coordinates/dmsfields.h"
#include "coordinates/geosys.h"
#include "coordinates/mgrs.h"
#include "coordinates/positiontexts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QShowEvent>

static bool gridmode()
{
    return !geosys.name.empty();
}

/// A field whose text the dialog writes: it is selected whole, ready to be replaced by what is
/// typed, as soon as the keyboard is there.
class PreparedField : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    void prepare(const QString& text)
    {
        setText(text);
        prepared = !hasFocus();
        if (!prepared)
            selectAll();
    }

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        QLineEdit::focusInEvent(event);
        if (prepared)
            selectAll();
        prepared = false;
    }

private:
    bool prepared = false;
};

frmDMS::frmDMS(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmDMS"));
    setWindowTitle(QStringLiteral("Coordonnées WGS"));
    makewidgets();
}

QWidget* frmDMS::makeaxis(const char* name, std::array<PreparedField*, 3>& fields,
                          QPushButton*& letter)
{
    static const std::array<QString, 3> parts{QStringLiteral("degrees"), QStringLiteral("minutes"),
                                              QStringLiteral("seconds")};
    static const std::array<QString, 3> marks{QStringLiteral("°"), QStringLiteral("'"),
                                              QStringLiteral("\"")};
    static constexpr std::array<int, 3> digits{5, 4, 4};
    const QString axis = QString::fromLatin1(name);
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields[i] = new PreparedField(row);
        fields[i]->setObjectName(axis + parts[i]);
        fields[i]->setAlignment(Qt::AlignRight);
        fields[i]->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits[i] +
                                 18);
        connect(fields[i], &QLineEdit::textChanged, this, &frmDMS::fieldchanged);
        line->addWidget(fields[i]);
        line->addWidget(new QLabel(marks[i], row));
        line->addSpacing(4);
    }
    letter = namedbutton(axis + QStringLiteral("letter"), QString(), row);
    letter->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('O')) + 26);
    line->addWidget(letter);
    line->addStretch();
    return row;
}

void frmDMS::makewidgets()
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(10);
    grid->addWidget(new QLabel(QStringLiteral("Longitude"), this), 0, 0);
    grid->addWidget(makeaxis("lon", lonfields, lonletter), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Latitude"), this), 1, 0);
    grid->addWidget(makeaxis("lat", latfields, latletter), 1, 1);
    combinedlabel = new QLabel(this);
    combinedlabel->setObjectName(QStringLiteral("combinedlabel"));
    combined = new PreparedField(this);
    combined->setObjectName(QStringLiteral("combined"));
    grid->addWidget(combinedlabel, 2, 0);
    grid->addWidget(combined, 2, 1);

    auto* applybutton = namedbutton(QStringLiteral("apply"), QStringLiteral("Appliquer"), this);
    applybutton->setDefault(true);
    auto* cancelbutton = namedbutton(QStringLiteral("cancel"), QStringLiteral("Annuler"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(applybutton);
    buttons->addWidget(cancelbutton);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(16);
    column->addLayout(grid);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);

    connect(lonletter, &QPushButton::clicked, this,
            [this] { flip(lonletter, QLatin1Char('E'), QLatin1Char('O')); });
    connect(latletter, &QPushButton::clicked, this,
            [this] { flip(latletter, QLatin1Char('N'), QLatin1Char('S')); });
    connect(combined, &QLineEdit::textChanged, this, &frmDMS::combinedchanged);
    connect(applybutton, &QPushButton::clicked, this, &frmDMS::apply);
    connect(cancelbutton, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDMS::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    lon = picklon;
    lat = picklat;
    update();
    updatell();
    combinedlabel->setText(gridmode() ? QStringLiteral("MGRS") : QStringLiteral("QRA"));
    lonfields[0]->setFocus();
}

void frmDMS::update()
{
    updating = true;
    const DmsFields fields = ll2fields(lon, lat);
    for (std::size_t i = 0; i < lonfields.size(); ++i) {
        lonfields[i]->prepare(QString::fromStdString(fields.lon[i]));
        latfields[i]->prepare(QString::fromStdString(fields.lat[i]));
    }
    lonletter->setText(QChar::fromLatin1(fields.lonletter));
    latletter->setText(QChar::fromLatin1(fields.latletter));
    updating = false;
}

static char letterof(const QPushButton* button)
{
    return button->text().at(0).toLatin1();
}

void frmDMS::updatell()
{
    updating = true;
    DmsFields fields;
    for (std::size_t i = 0; i < lonfields.size(); ++i) {
        fields.lon[i] = lonfields[i]->text().toStdString();
        fields.lat[i] = latfields[i]->text().toStdString();
    }
    fields.lonletter = letterof(lonletter);
    fields.latletter = letterof(latletter);
    fields2ll(fields, lon, lat);
    combined->prepare(QString::fromStdString(locator(lon, lat)));
    showinred(*combined, false);
    updating = false;
}

void frmDMS::updateqra()
{
    updating = true;
    const std::string text = combined->text().toStdString();
    if (gridmode()) {
        showinred(*combined, !mgrs2ll(text, lon, lat));
    } else {
        locator2ll(text, lon, lat);
    }
    updating = false;
    update();
}

void frmDMS::flip(QPushButton* button, QChar one, QChar other)
{
    button->setText(button->text() == one ? other : one);
    fieldchanged();
}

void frmDMS::fieldchanged()
{
    if (!updating)
        updatell();
}

void frmDMS::combinedchanged()
{
    if (!updating)
        updateqra();
}

void frmDMS::apply()
{
    picklon = lon;
    picklat = lat;
    accept();
}
