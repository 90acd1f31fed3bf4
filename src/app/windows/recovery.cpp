#include "app/windows/recovery.h"

#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "network/netfile.h"
#include "network/recovery.h"

#include <QApplication>

#include <chrono>
#include <filesystem>
#include <fmt/chrono.h>
#include <memory>

static std::unique_ptr<RecoveryKeeper> keeper;

static std::string recoveryfolder()
{
    return userfolder() + "recovery/";
}

void startrecovery()
{
    keeper = std::make_unique<RecoveryKeeper>(recoveryfolder());
}

void keeprecovery()
{
    if (!keeper)
        return;
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    const bool failedbefore = keeper->failed();
    keeper->step(now.count(), QApplication::mouseButtons() == Qt::NoButton && opbusy == 0);
    if (keeper->failed() && !failedbefore)
        hooks.setlabel2("Copie de secours impossible à écrire");
}

static std::string offer(const LeftCopy& copy)
{
    return fmt::format("Un arrêt imprévu a laissé une copie de secours du réseau\n{}\n"
                       "du {:%Y-%m-%d à %H:%M:%S}, stations placées: {}.\n\n"
                       "L'ouvrir? \"Non\" l'efface, \"Annuler\" la garde pour plus tard.",
                       copy.net.netfile, fmt::localtime(copy.saved), copy.net.stations);
}

static void removecopy(const LeftCopy& copy)
{
    std::error_code error; // one that stays is offered again
    std::filesystem::remove(copy.file, error);
}

/// Opens a copy; it goes once this run has its own.
static void takecopy(const LeftCopy& copy)
{
    recovernet(copy.net.netfile, copy.net.bytes);
    if (keeper && keeper->writenow())
        removecopy(copy);
}

void offerrecovery()
{
    for (const LeftCopy& copy : leftcopies(recoveryfolder())) {
        const Answer answer =
            hooks.askuser({offer(copy), Question::Buttons::yesnocancel, Question::Icon::question});
        if (answer == Answer::yes) {
            takecopy(copy);
            return; // opening another one would replace it
        }
        if (answer == Answer::no)
            removecopy(copy);
    }
}

void saverecovery()
{
    if (keeper)
        keeper->writenow();
}

void endrecovery()
{
    if (keeper)
        keeper->drop();
    keeper.reset();
}
