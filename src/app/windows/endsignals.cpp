#include "app/windows/endsignals.h"

#include "app/windows/frmMain.h"
#include "base/hooks.h"
#include "base/operation.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace
{
/// A handler may do next to nothing; it writes into a pipe that the event loop reads.
std::array<int, 2> requests{-1, -1};
bool quiet = false;

extern "C" void requested(int)
{
    const int before = errno;
    const ssize_t put = ::write(requests[1], "x", 1);
    errno = put < 0 ? before : errno;
}

/// The window that keeps the main one from closing: the user is being asked something.
QWidget* intheway()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    return QApplication::activeModalWidget();
}

/// One thing at a time, as each has to unwind first: the operation, the dialogs, the main window.
void endstep()
{
    constexpr int again_ms = 20;
    if (mainwindow == nullptr)
        return;
    opbusy = 0;
    if (mainwindow->action("mnuStop")->isVisible())
        ; // the operation is on its way out
    else if (QWidget* window = intheway())
        window->close();
    else
        mainwindow->close();
    if (mainwindow != nullptr && mainwindow->isVisible())
        QTimer::singleShot(again_ms, mainwindow, endstep);
}

void endnow()
{
    std::array<char, 64> bytes{};
    const ssize_t got = ::read(requests[0], bytes.data(), bytes.size());
    if (got <= 0 || quiet)
        return;
    quiet = true;
    hooks.writerecovery();
    hooks.askuser = Hooks().askuser; // the cautious answers: nothing is saved over, nothing asked
    endstep();
}
} // namespace

bool endingquietly()
{
    return quiet;
}

void endonsignals()
{
    quiet = false;
    if (requests[0] < 0 && ::pipe2(requests.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    static QPointer<QSocketNotifier> notifier;
    if (!notifier) {
        notifier = new QSocketNotifier(requests[0], QSocketNotifier::Read, qApp);
        QObject::connect(notifier, &QSocketNotifier::activated, notifier, endnow);
    }
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue; // nohup wants the program to stay
        action = {};
        action.sa_handler = requested;
        action.sa_flags = SA_RESTART;
        ::sigemptyset(&action.sa_mask);
        ::sigaction(signal, &action, nullptr);
    }
}
