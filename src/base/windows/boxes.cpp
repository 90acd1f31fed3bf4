#include "base/windows/boxes.h"

QPushButton* namedbutton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QGroupBox* formbox(const QString& title, QFormLayout*& form, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return box;
}
