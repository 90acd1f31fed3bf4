#include "app/windows/ending.h"

#include "app/windows/cleannet.h"
#include "app/windows/endsignals.h"
#include "app/windows/frmMain.h"
#include "app/windows/geometry.h"
#include "app/windows/recovery.h"
#include "app/windows/sessionstore.h"
#include "app/windows/shellhooks.h"
#include "base/hooks.h"
#include "base/operation.h"
#include "base/session.h"

#include <QElapsedTimer>
#include <QTimer>

/// Handles pending events for a while, so that ports and sockets wind down.
static void winddown(double seconds)
{
    QElapsedTimer clock;
    clock.start();
    while (double(clock.elapsed()) < seconds * 1000)
        pumpslowly();
}

bool queryending(frmMain& window)
{
    if (opbusy != 0) {
        opbusy = 0;
        return false;
    }
    const std::string text = std::string("Terminer l'exécution du logiciel ") + apptitle + "?";
    if (!endingquietly() &&
        hooks.askuser({text, Question::Buttons::yesno, Question::Icon::question}) != Answer::yes)
        return false;
    window.timer->stop();
    storeplace(window);
    storesession();
    bool cancel = false;
    CleanNet(cancel);
    if (cancel) {
        window.timer->start();
        return false;
    }
    if (!endingquietly()) // else nobody has decided what becomes of the network
        endrecovery();
    window.hide();
    winddown(window.winddown_s);
    return true;
}
