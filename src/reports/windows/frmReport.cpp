#include "reports/windows/frmReport.h"

#include "base/windows/boxes.h"
#include "reports/paint/reportpaint.h"

#include <QButtonGroup>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QScrollArea>

namespace
{
constexpr double screenpoints = 10;
constexpr int areamargin = 10; // pixels
} // namespace

ReportArea::ReportArea(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("area"));
    setFont(reportfont(screenpoints));
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    QPalette white = palette();
    white.setColor(QPalette::Base, Qt::white);
    setPalette(white);
}

void ReportArea::setreport(ReportLines report)
{
    lines = std::move(report);
    const QFontMetricsF metrics(font(), this);
    const double width = reportwidth(lines) * metrics.horizontalAdvance(QLatin1Char('0'));
    const double height = static_cast<double>(lines.size()) * metrics.lineSpacing();
    setMinimumSize(static_cast<int>(width) + 2 * areamargin,
                   static_cast<int>(height) + 2 * areamargin);
    update();
}

void ReportArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(font());
    paintreport(painter, QPointF(areamargin, areamargin), lines, 0, lines.size(), true);
}

frmReport::frmReport(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmReport"));
    setWindowTitle(QStringLiteral("Rapport de performance"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(makechoices());
    auto* scroll = new QScrollArea(this);
    area = new ReportArea(scroll);
    scroll->setWidget(area);
    scroll->setWidgetResizable(true);
    column->addWidget(scroll, 1);
    resize(860, 460);

    evalnets(true);
    for (std::size_t n = 1; n <= MAXNET; ++n)
        netlist->addItem(QString::fromStdString(network.nets[n].name.text()));
    netlist->setCurrentIndex(selection.curnet - 1);
    scales->button(static_cast<int>(ReportScale::retransmissions))->setChecked(true);
    connect(netlist, &QComboBox::currentIndexChanged, this, &frmReport::redraw);
    connect(scales, &QButtonGroup::idClicked, this, &frmReport::redraw);
    redraw();
}

QWidget* frmReport::makechoices()
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(new QLabel(QStringLiteral("Réseau"), row));
    netlist = namedlist(QStringLiteral("netlist"), row);
    line->addWidget(netlist);
    line->addSpacing(16);
    scales = new QButtonGroup(row);
    const QStringList captions{QStringLiteral("Liens directs (dB)"),
                               QStringLiteral("Avec retransmissions"),
                               QStringLiteral("Liens directs (S-unit)")};
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new QRadioButton(captions[i], row);
        button->setObjectName(QStringLiteral("scale%1").arg(i));
        scales->addButton(button, i);
        line->addWidget(button);
    }
    line->addStretch();
    const auto add = [&](const char* name, const QString& caption, auto action) {
        auto* button = namedbutton(QString::fromLatin1(name), caption, row);
        connect(button, &QPushButton::clicked, this, action);
        line->addWidget(button);
    };
    add("print", QStringLiteral("Imprime"), [this] { askprinter(); });
    add("file", QStringLiteral("Fichier"), [this] { netreport(1, MAXNET, scale()); });
    return row;
}

ReportScale frmReport::scale() const
{
    return static_cast<ReportScale>(scales->checkedId());
}

void frmReport::redraw()
{
    const int net = netlist->currentIndex() + 1;
    area->setreport(netreportlines(reportsources(), net, net, scale(), ReportTarget::screen));
}

void frmReport::print(QPagedPaintDevice& device) const
{
    printreport(device, [this](int columns) {
        return netreportlines(reportsources(), 1, MAXNET, scale(), ReportTarget::printer, columns);
    });
}

void frmReport::askprinter()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        print(printer);
}

void showreport(QWidget* parent)
{
    frmReport dialog(parent);
    dialog.exec();
}
