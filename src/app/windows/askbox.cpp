#include "app/windows/askbox.h"

#include "app/windows/frmMain.h"
#include "base/session.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <vector>

/// A button of the boxes: its French text, whatever the desktop's language.
struct BoxButton {
    Answer answer;
    const char* text;
    QMessageBox::ButtonRole role;
};

static std::vector<BoxButton> boxbuttons(Question::Buttons buttons)
{
    const BoxButton yes{Answer::yes, "&Oui", QMessageBox::YesRole};
    const BoxButton no{Answer::no, "&Non", QMessageBox::NoRole};
    switch (buttons) {
    case Question::Buttons::yesno:
        return {yes, no};
    case Question::Buttons::yesnocancel:
        return {yes, no, {Answer::cancel, "Annuler", QMessageBox::RejectRole}};
    case Question::Buttons::abortretryignore:
        return {{Answer::ignore, "&Ignorer", QMessageBox::AcceptRole},
                {Answer::retry, "&Réessayer", QMessageBox::AcceptRole},
                {Answer::abort, "&Abandonner", QMessageBox::RejectRole}};
    case Question::Buttons::ok:
        break;
    }
    return {{Answer::ok, "OK", QMessageBox::AcceptRole}};
}

/// A box over the window that the user looks at; a hidden or disabled one can't own it.
static QWidget* boxowner()
{
    QWidget* window = QApplication::activeModalWidget();
    if (!window)
        window = QApplication::activeWindow();
    if (!window)
        window = mainwindow;
    return window && window->isVisible() && window->isEnabled() ? window : nullptr;
}

Answer askbox(const Question& question)
{
    QMessageBox box(boxowner());
    box.setObjectName(QStringLiteral("askbox"));
    box.setWindowTitle(QString::fromUtf8(apptitle));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(question.text));
    box.setIcon(question.icon == Question::Icon::question ? QMessageBox::Question
                                                          : QMessageBox::Warning);
    const std::vector<BoxButton> choices = boxbuttons(question.buttons);
    std::vector<QPushButton*> buttons;
    buttons.reserve(choices.size());
    for (const BoxButton& choice : choices)
        buttons.push_back(box.addButton(QString::fromUtf8(choice.text), choice.role));
    box.setDefaultButton(buttons.front());
    box.setEscapeButton(buttons.back()); // the way out that changes least
    box.exec();
    for (std::size_t i = 0; i < choices.size(); ++i)
        if (box.clickedButton() == buttons[i])
            return choices[i].answer;
    return choices.back().answer;
}
