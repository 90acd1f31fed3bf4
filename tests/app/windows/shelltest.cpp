#include "app/windows/shelltest.h"

#include "app/windows/askfile.h"
#include "app/windows/frmMain.h"
#include "app/windows/sessionstore.h"
#include "app/windows/shellhooks.h"
#include "app/windows/statusbar.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "network/tables.h"
#include "network/unsaved.h"
#include "pictures/paint/openpictures.h"
#include "pictures/windows/frmPic.h"
#include "radio/link.h"
#include "terrain/mapgrid.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTest>

ShellTest::ShellTest() : startfolder(QDir::currentPath())
{
    QDir::setCurrent(folder.path());
    setprogramfolder((folder.path() + QStringLiteral("/program/")).toStdString());
    usesettingsfile(folder.filePath(QStringLiteral("settings.ini")));
    session = Session();
    network = defaulttables();
    mapdirty = false;
    marksaved();
    mapname = "default.map";
    opbusy = 0;
    interf = 0;
    resethooks();
    fillhooks();
    hooks.askuser = [this](const Question& question) {
        if (questions.empty() || questions.front().text != question.text) {
            ADD_FAILURE() << "unexpected question: " << question.text;
            return Answer::cancel;
        }
        const Answer answer = questions.front().answer;
        questions.pop_front();
        return answer;
    };
    askfilename = [this](const FileQuestion& question) {
        if (filenames.empty() || filenames.front().first != question.title) {
            ADD_FAILURE() << "unexpected file dialog: " << question.title;
            return std::string();
        }
        const std::string name = filenames.front().second;
        filenames.pop_front();
        return name;
    };
}

ShellTest::~ShellTest()
{
    for (const Expected& left : questions)
        ADD_FAILURE() << "this was not asked: " << left.text;
    for (const auto& left : filenames)
        ADD_FAILURE() << "this dialog did not come: " << left.first;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    while (!openpictures.empty())
        closepicture(*openpictures.back());
    window.reset();
    askfilename = filedialog;
    resethooks();
    resetsettings();
    opbusy = 0;
    QDir::setCurrent(startfolder);
}

void ShellTest::expectquestion(const std::string& text, Answer answer)
{
    questions.push_back({text, answer});
}

void ShellTest::expectfilename(const std::string& title, const std::string& name)
{
    filenames.emplace_back(title, name);
}

void ShellTest::start(const std::string& commandline, StartOptions options)
{
    if (getsetting("MainWidth", "").empty()) { // not maximised, whatever the screen
        writesetting("MainWidth", 4000);
        writesetting("MainHeight", 4000);
    }
    options.splash_s = 0;
    options.winddown_s = 0;
    window = startup(commandline, options);
    ASSERT_TRUE(window);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    mapdirty = false; // no map was found, which counts as a change
}

std::string ShellTest::path(const std::string& name) const
{
    return folder.filePath(QString::fromStdString(name)).toStdString();
}

QWidget* ShellTest::addpicture(const std::string& filename)
{
    OpenPicture* picture = openpic("", 0);
    picture->data.Filename = filename;
    resizepicture(*picture, 200, 100);
    QApplication::processEvents();
    return windowof(*picture);
}

void ShellTest::choose(const char* name)
{
    QAction* action = window->action(name);
    ASSERT_TRUE(action) << name;
    ASSERT_TRUE(action->isEnabled()) << name;
    action->trigger();
    QApplication::processEvents();
}

std::string ShellTest::label1() const
{
    return window->statusbar->place->text().toStdString();
}

std::string ShellTest::label2() const
{
    return window->statusbar->text->text().toStdString();
}
