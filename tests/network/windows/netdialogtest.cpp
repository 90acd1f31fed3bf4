#include "network/windows/netdialogtest.h"

#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>

NetDialogTest::NetDialogTest()
{
    resethooks();
    setprogramfolder((folder.path() + QLatin1Char('/')).toStdString());
    network = defaulttables();
    selection = Selection();
    netdirty = false;
    opbusy = 0;
}

NetDialogTest::~NetDialogTest()
{
    dialog.reset();
    network = defaulttables();
    selection = Selection();
    netdirty = false;
    resethooks();
}

void NetDialogTest::open(int page)
{
    dialog = std::make_unique<frmNet>();
    dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    showpage(page);
}

void NetDialogTest::showpage(int page) const
{
    auto* pages = find<QTabWidget>("pages");
    QTest::mouseClick(pages->tabBar(), Qt::LeftButton, Qt::NoModifier,
                      pages->tabBar()->tabRect(page).center());
    ASSERT_EQ(pages->currentIndex(), page);
}

std::string NetDialogTest::text(const char* field) const
{
    return find(field)->text().toStdString();
}

std::string NetDialogTest::label(const char* name) const
{
    return find<QLabel>(name)->text().toStdString();
}

void NetDialogTest::type(const char* field, const char* typed) const
{
    ASSERT_TRUE(find(field)->isEnabled()) << field;
    QTest::mouseClick(find(field), Qt::LeftButton);
    find(field)->selectAll();
    QTest::keyClick(find(field), Qt::Key_Delete);
    for (const QChar letter : QString::fromUtf8(typed)) // each with its text: letters have accents
        QTest::sendKeyEvent(QTest::Click, find(field), Qt::Key_unknown, letter, Qt::NoModifier);
}

bool NetDialogTest::isred(const char* field) const
{
    const QColor colour = find(field)->palette().color(QPalette::Text);
    return colour.red() > 150 && colour.green() < 60 && colour.blue() < 60;
}

void NetDialogTest::click(const char* button) const
{
    auto* widget = find<QAbstractButton>(button);
    ASSERT_TRUE(widget->isEnabled()) << button;
    const QPoint left(8, widget->height() / 2); // check boxes and radio buttons react on their text
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, left);
}

bool NetDialogTest::checked(const char* button) const
{
    return find<QAbstractButton>(button)->isChecked();
}

bool NetDialogTest::enabled(const char* widget) const
{
    return find<QWidget>(widget)->isEnabled();
}

void NetDialogTest::clickrow(const char* list, int row) const
{
    auto* widget = find<QListWidget>(list);
    widget->scrollToItem(widget->item(row));
    const QRect place = widget->visualItemRect(widget->item(row));
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(place.right() - 10, place.center().y()));
}

void NetDialogTest::choose(const char* box, int entry) const
{
    auto* widget = find<QComboBox>(box);
    ASSERT_TRUE(widget->isEnabled()) << box;
    widget->setFocus();
    while (widget->currentIndex() < entry)
        QTest::keyClick(widget, Qt::Key_Down);
    while (widget->currentIndex() > entry)
        QTest::keyClick(widget, Qt::Key_Up);
}

std::string NetDialogTest::rowtext(const char* list, int row) const
{
    return find<QListWidget>(list)->item(row)->text().toStdString();
}

Net& NetDialogTest::net(int number)
{
    return netat(number);
}

RadioSystem& NetDialogTest::system(int number)
{
    return systemat(number);
}
