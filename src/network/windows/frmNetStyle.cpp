#include "network/windows/frmNetStyle.h"

#include "base/windows/boxes.h"
#include "base/windows/numberfield.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

StylePage::StylePage(TableActions& record, QWidget* parent) : NetPage(record, parent)
{
    auto* grid = new QGridLayout;
    makerules(*grid);
    auto* note = new QLabel(
        QStringLiteral(
            "Noter que si la topologie est du type essaim et que le nombre de "
            "retransmissions>0 , alors la couleur jaune n'est pas affichée et les seuils "
            "pour le vert et le rouge sont mis a zéro."),
        this);
    note->setObjectName(QStringLiteral("note"));
    note->setWordWrap(true);
    QPushButton* button = namedbutton(QStringLiteral("apply"), QStringLiteral("Appliquer"), this);
    connect(button, &QPushButton::clicked, this, &StylePage::apply);
    auto* column = new QVBoxLayout(this);
    column->addLayout(grid);
    column->addSpacing(12);
    column->addWidget(note);
    column->addSpacing(12);
    column->addWidget(button, 0, Qt::AlignLeft);
    column->addStretch();
}

void StylePage::makerules(QGridLayout& grid)
{
    const auto add = [&](const char* name, const char* caption) {
        auto* rule = new QCheckBox(QString::fromUtf8(caption), this);
        rule->setObjectName(QString::fromLatin1(name));
        grid.addWidget(rule, grid.count() == 0 ? 0 : grid.rowCount(), 0);
        return rule;
    };
    grid.setHorizontalSpacing(12);
    grid.setColumnStretch(2, 1);
    green = add("green", "Dessiner une ligne verte si le signal RX (dB) is >=");
    greenlevel = makelevel("greenlevel", *green);
    grid.addWidget(greenlevel, 0, 1);
    yellow = add("yellow", "Sinon dessiner une ligne jaune si le signal RX (dB) is >=");
    yellowlevel = makelevel("yellowlevel", *yellow);
    grid.addWidget(yellowlevel, 1, 1);
    red = add("red", "Sinon dessiner un ligne rouge");
    opaque = add("opaque", "Dessiner avec fond opaque");
}

NumberField* StylePage::makelevel(const char* name, const QCheckBox& rule)
{
    auto* field = new NumberField(QString::fromLatin1(name), bounds::linelevel.low,
                                  bounds::linelevel.high, this);
    field->setAccessibleName(rule.text());
    hintbounds(*field, bounds::linelevel);
    return field;
}

void StylePage::apply()
{
    selection.linestyle =
        linestylebytes({red->isChecked(), yellow->isChecked(), green->isChecked(),
                        opaque->isChecked(), yellowlevel->value(), greenlevel->value()});
    emit applied();
}

void StylePage::fill()
{
    const LineRules rules = linerules(selection.linestyle);
    red->setChecked(rules.red);
    yellow->setChecked(rules.yellow);
    green->setChecked(rules.green);
    opaque->setChecked(rules.opaque);
    yellowlevel->setnumber(static_cast<float>(rules.yellow_db));
    greenlevel->setnumber(static_cast<float>(rules.green_db));
}
