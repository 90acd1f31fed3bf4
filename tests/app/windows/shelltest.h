#pragma once

#include "app/windows/startup.h"
#include "base/hooks.h"

#include <QTemporaryDir>

#include <deque>
#include <gtest/gtest.h>
#include <memory>
#include <string>

class QWidget;
class frmMain;

/// The whole program over an empty folder of its own. A question or a file dialog that a test has
/// not announced fails it; so does an announced one that never comes.
class ShellTest : public testing::Test
{
protected:
    ShellTest();
    ~ShellTest() override;

    /// The next question must have this text, and gets this answer.
    void expectquestion(const std::string& text, Answer answer);
    /// The next file dialog must have this title, and gets this name (empty: given up).
    void expectfilename(const std::string& title, const std::string& name);

    /// Starts the program without a splash time.
    void start(const std::string& commandline = "", StartOptions options = {});
    /// A full path in the test's folder.
    std::string path(const std::string& name) const;
    /// A child window of the frame, a picture of this file name.
    QWidget* addpicture(const std::string& filename);
    /// Chooses a menu entry that must be enabled.
    void choose(const char* name);
    std::string label1() const;
    std::string label2() const;

    QTemporaryDir folder;
    std::unique_ptr<frmMain> window;

private:
    struct Expected {
        std::string text;
        Answer answer;
    };
    std::deque<Expected> questions;
    std::deque<std::pair<std::string, std::string>> filenames;
    QString startfolder;
};
