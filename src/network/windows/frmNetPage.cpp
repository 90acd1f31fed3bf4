#include "network/windows/frmNetPage.h"

#include "base/numbers.h"
#include "base/windows/numberfield.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>

NetPage::NetPage(TableActions& record, QWidget* parent) : QWidget(parent), actions(record) {}

Net& NetPage::shownnet()
{
    return netat(selection.curnet);
}

QString NetPage::subject() const
{
    return QString::fromStdString(shownnet().name.text());
}

/// Puts a field into the next row of a grid, between its caption and its hint.
static void addrow(QGridLayout& grid, QLineEdit& field, const FieldTexts& texts)
{
    const int row = grid.count() == 0 ? 0 : grid.rowCount();
    const QString caption = QString::fromUtf8(texts.caption);
    auto* label = new QLabel(caption, field.parentWidget());
    label->setObjectName(field.objectName() + QStringLiteral("label"));
    label->setBuddy(&field);
    field.setAccessibleName(caption.simplified());
    grid.addWidget(label, row, 0);
    grid.addWidget(&field, row, 1);
    if (*texts.hint == '\0')
        return;
    auto* hint = new QLabel(QString::fromUtf8(texts.hint), field.parentWidget());
    hint->setObjectName(field.objectName() + QStringLiteral("hint"));
    field.setAccessibleDescription(hint->text().trimmed());
    grid.addWidget(hint, row, 2);
}

QLineEdit* NetPage::addname(QGridLayout& grid, const FieldTexts& texts)
{
    constexpr int namelength = 30;
    auto* field = new QLineEdit(this);
    field->setObjectName(QString::fromLatin1(texts.name));
    field->setMaxLength(namelength);
    addrow(grid, *field, texts);
    return field;
}

NumberField* NetPage::addnumber(QGridLayout& grid, const FieldTexts& texts, const Bounds& limits)
{
    auto* field = new NumberField(QString::fromLatin1(texts.name), limits.low, limits.high, this);
    addrow(grid, *field, texts);
    if (*texts.hint == '\0')
        hintbounds(*field, limits);
    return field;
}

void NetPage::follow(QLineEdit& field, std::function<void()> take)
{
    connect(&field, &QLineEdit::textChanged, this, [this, &field, take = std::move(take)] {
        if (filling)
            return;
        actions.type(&field,
                     QStringLiteral("modifier %1 : %2").arg(subject(), field.accessibleName()));
        take();
    });
    connect(&field, &QLineEdit::editingFinished, this, [this] { actions.settle(); });
}

void NetPage::choose(const QString& caption, const std::function<void()>& change)
{
    actions.choose(QStringLiteral("modifier %1 : %2").arg(subject(), caption), change);
}

void hintbounds(QLineEdit& field, const Bounds& limits)
{
    const auto number = [](double bound) { return QString::fromStdString(generalnumber(bound)); };
    const QString hint = number(limits.low) + QStringLiteral(" à ") + number(limits.high);
    field.setToolTip(hint);
    field.setAccessibleDescription(hint);
}

QListWidget* titledlist(const QString& name, const QString& title, int width, QVBoxLayout& column,
                        QWidget* parent)
{
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setAccessibleName(title);
    list->setUniformItemSizes(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setFixedWidth(list->fontMetrics().averageCharWidth() * width);
    auto* label = new QLabel(title, parent);
    label->setBuddy(list);
    column.addWidget(label);
    column.addWidget(list, 1);
    return list;
}

void mark(QButtonGroup& group, int number)
{
    if (QAbstractButton* button = group.button(number)) {
        button->setChecked(true);
        return;
    }
    group.setExclusive(false); // an exclusive group lets no button be unmarked
    for (QAbstractButton* button : group.buttons())
        button->setChecked(false);
    group.setExclusive(true);
}
