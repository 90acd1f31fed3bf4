#include "radio/windows/stationcolumn.h"

#include "base/windows/boxes.h"
#include "base/windows/numberfield.h"

#include <QHBoxLayout>
#include <QLabel>

StationColumn::StationColumn(const QString& name, const QStringList& captions, QWidget* parent)
    : QGroupBox(parent)
{
    setObjectName(name);
    auto* form = new QFormLayout(this);
    form->setVerticalSpacing(3);
    for (const QString& caption : captions) {
        auto* value = new QLabel(this);
        value->setObjectName(name + QStringLiteral("row%1").arg(rows.size()));
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * 18);
        form->addRow(caption, value);
        rows.append(value);
    }
    height = new NumberField(name + QStringLiteral("height"), lowestantenna, highestantenna, this);
    height->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000.000")));
    QPushButton* button =
        namedbutton(name + QStringLiteral("apply"), QStringLiteral("Appliquer"), this);
    auto* line = new QHBoxLayout;
    line->addWidget(height);
    line->addWidget(button);
    line->addStretch();
    auto* caption = new QLabel(QStringLiteral("Hauteur d'antenne (m)"), this);
    caption->setBuddy(height);
    form->addRow(caption, line);
    const auto apply = [this] { emit applied(height->text()); };
    connect(button, &QPushButton::clicked, this, apply);
    connect(height, &QLineEdit::returnPressed, this, apply);
}

void StationColumn::showfields(const StationFields& fields)
{
    for (qsizetype i = 0; i < rows.size(); ++i)
        rows[i]->setText(QString::fromStdString(fields.rows.at(static_cast<std::size_t>(i))));
    height->setText(QString::fromStdString(fields.height));
    height->selectAll();
}
