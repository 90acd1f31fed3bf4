#include "network/windows/chooseunit.h"

#include "base/windows/boxes.h"
#include "network/moveunit.h"
#include "network/windows/lists.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QListWidget>

#include <algorithm>

static QListWidget* makelist(QDialog& dialog)
{
    constexpr int lines = 16;
    constexpr int letters = 26;
    auto* list = new QListWidget(&dialog);
    list->setObjectName(QStringLiteral("list"));
    list->setAccessibleName(QStringLiteral("Stations"));
    fillstations(*list);
    list->setMinimumSize(list->fontMetrics().averageCharWidth() * letters + 40,
                         list->fontMetrics().lineSpacing() * lines);
    list->setCurrentRow(std::max(unplacedunit(), 1) - 1);
    return list;
}

int chooseunit(const QString& title, const QString& action, QWidget* parent)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("chooseunit"));
    dialog.setWindowTitle(title);
    QListWidget* list = makelist(dialog);
    QPushButton* take = namedbutton(QStringLiteral("apply"), action, &dialog);
    take->setDefault(true);
    QPushButton* cancel =
        namedbutton(QStringLiteral("cancel"), QStringLiteral("A&nnuler"), &dialog);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(take);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(list, 1);
    column->addLayout(buttons);
    QObject::connect(take, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    return dialog.exec() == QDialog::Accepted ? list->currentRow() + 1 : 0;
}
