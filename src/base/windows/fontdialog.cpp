#include "base/windows/boxes.h"
#include "base/windows/choosers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

namespace
{
/// Asks for what the settings keep of a font, and no more.
class FontDialog : public QDialog
{
public:
    FontDialog(const FontChoice& start, QWidget* parent);

    FontChoice choice() const
    {
        return {name->currentText(), points->value(), bold->isChecked(), italic->isChecked()};
    }

private:
    void fill(const FontChoice& start);
    void connectfields();
    QHBoxLayout* makebuttons();
    void showsample();

    QComboBox* name;
    QSpinBox* points;
    QCheckBox *bold, *italic;
    QLabel* sample;
};

FontDialog::FontDialog(const FontChoice& start, QWidget* parent)
    : QDialog(parent), name(new QComboBox(this)), points(new QSpinBox(this)),
      bold(new QCheckBox(QStringLiteral("Gras"), this)),
      italic(new QCheckBox(QStringLiteral("Italique"), this)),
      sample(new QLabel(QStringLiteral("Station 01  ABC abc 123"), this))
{
    setObjectName(QStringLiteral("fontdialog"));
    setWindowTitle(QStringLiteral("Police"));
    name->setObjectName(QStringLiteral("name"));
    points->setObjectName(QStringLiteral("points"));
    bold->setObjectName(QStringLiteral("bold"));
    italic->setObjectName(QStringLiteral("italic"));
    fill(start);
    auto* form = new QFormLayout(this);
    form->addRow(QStringLiteral("Nom"), name);
    form->addRow(QStringLiteral("Taille (points)"), points);
    form->addRow(bold);
    form->addRow(italic);
    form->addRow(sample);
    form->addRow(makebuttons());
    connectfields();
    showsample();
}

/// The system's fonts, and the present one in front where it is none of them.
void FontDialog::fill(const FontChoice& start)
{
    constexpr int leastpoints = 4;
    constexpr int mostpoints = 96;
    for (const QString& family : QFontDatabase::families())
        if (!QFontDatabase::isPrivateFamily(family))
            name->addItem(family);
    if (name->findText(start.name, Qt::MatchExactly) < 0)
        name->insertItem(0, start.name);
    name->setCurrentIndex(name->findText(start.name, Qt::MatchExactly));
    points->setRange(qMin(leastpoints, start.points), qMax(mostpoints, start.points));
    points->setValue(start.points);
    bold->setChecked(start.bold);
    italic->setChecked(start.italic);
}

void FontDialog::connectfields()
{
    connect(name, &QComboBox::currentTextChanged, this, &FontDialog::showsample);
    connect(points, &QSpinBox::valueChanged, this, &FontDialog::showsample);
    connect(bold, &QCheckBox::toggled, this, &FontDialog::showsample);
    connect(italic, &QCheckBox::toggled, this, &FontDialog::showsample);
}

QHBoxLayout* FontDialog::makebuttons()
{
    auto* row = new QHBoxLayout;
    auto* accepting = namedbutton(QStringLiteral("ok"), QStringLiteral("OK"), this);
    auto* leaving = namedbutton(QStringLiteral("cancel"), QStringLiteral("Annuler"), this);
    accepting->setDefault(true);
    row->addStretch();
    row->addWidget(accepting);
    row->addWidget(leaving);
    connect(accepting, &QPushButton::clicked, this, &QDialog::accept);
    connect(leaving, &QPushButton::clicked, this, &QDialog::reject);
    return row;
}

void FontDialog::showsample()
{
    const FontChoice chosen = choice();
    QFont font(chosen.name, chosen.points, chosen.bold ? QFont::Bold : QFont::Normal,
               chosen.italic);
    font.setStyleHint(QFont::SansSerif);
    sample->setFont(font);
}
} // namespace

std::optional<FontChoice> fontdialog(const FontChoice& start, QWidget* parent)
{
    FontDialog dialog(start, parent);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.choice()) : std::nullopt;
}
