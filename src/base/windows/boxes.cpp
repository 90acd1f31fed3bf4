#include "base/windows/boxes.h"

QPushButton* namedbutton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QCheckBox* namedcheck(const QString& name, const QString& caption, QWidget* parent)
{
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    return box;
}

QComboBox* namedlist(const QString& name, QWidget* parent)
{
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    return list;
}

QGroupBox* formbox(const QString& title, QFormLayout*& form, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return box;
}
