#pragma once

#include "network/tables.h"
#include "network/windows/frmNet.h"

#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>
#include <string>

/// The network dialog over a new network, driven by mouse and keyboard.
class NetDialogTest : public testing::Test
{
protected:
    NetDialogTest();
    ~NetDialogTest() override;

    /// Opens the dialog on one of its pages, 0 to 4.
    void open(int page = 0);
    void showpage(int page) const;
    template <typename Widget = QLineEdit> Widget* find(const char* name) const
    {
        auto* widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    std::string text(const char* field) const;
    std::string label(const char* name) const;
    /// Types over what stands in a field.
    void type(const char* field, const char* typed) const;
    bool isred(const char* field) const;
    /// Clicks on a button that must be enabled.
    void click(const char* button) const;
    bool checked(const char* button) const;
    bool enabled(const char* widget) const;
    /// Clicks on a line of a list.
    void clickrow(const char* list, int row) const;
    /// Takes an entry of a list box as the keyboard does: from its first entry down.
    void choose(const char* box, int entry) const;
    std::string rowtext(const char* list, int row) const;

    static Net& net(int number);
    static RadioSystem& system(int number);

    QTemporaryDir folder;
    std::unique_ptr<frmNet> dialog;
};
