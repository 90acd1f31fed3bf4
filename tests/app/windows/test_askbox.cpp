#include "app/windows/askbox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gmock/gmock.h>

/// Asks, and hands the open box to the test.
static Answer ask(const Question& question, const std::function<void(QMessageBox&)>& use)
{
    QTimer::singleShot(0, [&use] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        use(*box);
        if (box->isVisible())
            box->reject();
    });
    return askbox(question);
}

static std::vector<std::string> captions(const QMessageBox& box)
{
    std::vector<std::string> texts;
    for (const QAbstractButton* button : box.buttons())
        texts.push_back(button->text().remove(QLatin1Char('&')).toStdString());
    return texts;
}

static void press(QMessageBox& box, const QString& caption)
{
    for (QAbstractButton* button : box.buttons())
        if (button->text().remove(QLatin1Char('&')) == caption)
            QTest::mouseClick(button, Qt::LeftButton);
}

using testing::UnorderedElementsAre;

TEST(AskBox, HasTheProgramsTitleTheTextAndTheIcon)
{
    ask({"50 % <b>?", Question::Buttons::yesno, Question::Icon::question}, [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Velmora"));
        EXPECT_EQ(box.text(), QStringLiteral("50 % <b>?"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
    });
    ask({"Non", Question::Buttons::ok, Question::Icon::exclamation},
        [](QMessageBox& box) { EXPECT_EQ(box.icon(), QMessageBox::Warning); });
}

TEST(AskBox, ButtonsAreFrench)
{
    const auto shown = [](Question::Buttons buttons) {
        std::vector<std::string> texts;
        ask({"?", buttons, Question::Icon::question},
            [&texts](QMessageBox& box) { texts = captions(box); });
        return texts;
    };
    EXPECT_THAT(shown(Question::Buttons::ok), UnorderedElementsAre("OK"));
    EXPECT_THAT(shown(Question::Buttons::yesno), UnorderedElementsAre("Oui", "Non"));
    EXPECT_THAT(shown(Question::Buttons::yesnocancel),
                UnorderedElementsAre("Oui", "Non", "Annuler"));
    EXPECT_THAT(shown(Question::Buttons::abortretryignore),
                UnorderedElementsAre("Abandonner", "Réessayer", "Ignorer"));
}

TEST(AskBox, GivesTheButtonThatIsPressed)
{
    const auto answer = [](Question::Buttons buttons, const char* caption) {
        return ask({"?", buttons, Question::Icon::question},
                   [caption](QMessageBox& box) { press(box, QString::fromUtf8(caption)); });
    };
    EXPECT_EQ(answer(Question::Buttons::ok, "OK"), Answer::ok);
    EXPECT_EQ(answer(Question::Buttons::yesno, "Oui"), Answer::yes);
    EXPECT_EQ(answer(Question::Buttons::yesno, "Non"), Answer::no);
    EXPECT_EQ(answer(Question::Buttons::yesnocancel, "Annuler"), Answer::cancel);
    EXPECT_EQ(answer(Question::Buttons::abortretryignore, "Abandonner"), Answer::abort);
    EXPECT_EQ(answer(Question::Buttons::abortretryignore, "Réessayer"), Answer::retry);
    EXPECT_EQ(answer(Question::Buttons::abortretryignore, "Ignorer"), Answer::ignore);
}

TEST(AskBox, EscapeIsTheCautiousAnswer)
{
    const auto escape = [](Question::Buttons buttons) {
        return ask({"?", buttons, Question::Icon::question},
                   [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    };
    EXPECT_EQ(escape(Question::Buttons::ok), Answer::ok);
    EXPECT_EQ(escape(Question::Buttons::yesno), Answer::no);
    EXPECT_EQ(escape(Question::Buttons::yesnocancel), Answer::cancel);
    EXPECT_EQ(escape(Question::Buttons::abortretryignore), Answer::abort);
}
