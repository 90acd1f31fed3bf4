// Edits, copies and saves a network without end, until it is killed. It tells on its output what is
// on the disk for certain.
//   arguments: a folder

#include "base/numbers.h"
#include "base/session.h"
#include "network/netfile.h"
#include "network/recovery.h"
#include "network/unsaved.h"

#include <string>
#include <unistd.h>

/// Every station carries the number of the edit, so that a mixture would show.
static void edit(int number)
{
    for (Unit& unit : network.units) {
        unit.lon = unit.lat = 1;
        unit.name.assign(std::to_string(number));
    }
    markedited();
}

static void tell(const char* what, int number)
{
    const std::string line = std::string(what) + " " + std::to_string(number) + "\n";
    if (::write(STDOUT_FILENO, line.data(), line.size()) < 0)
        ::_exit(1);
}

int main(int argc, char** argv)
{
    if (argc != 2)
        return 1;
    const std::string folder = argv[1];
    newnet(false);
    session.netfile = folder + "work.net";
    RecoveryKeeper keeper(folder + "recovery/");
    double now_s = 0;
    tell("ready", 0);
    for (int i = 1;; ++i) {
        edit(i);
        now_s += RecoveryKeeper::quietdelay_s;
        keeper.step(now_s, true);
        if (i % 3 == 0 && keeper.writenow())
            tell("copied", i);
        if (i % 7 == 0 && savenet(session.netfile))
            tell("saved", i);
    }
}
