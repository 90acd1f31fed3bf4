#include "base/temporaryfile.h"
#include "cli/program.h"

#include <csignal>

int main(int argc, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN); // a limit on files is met as a full disk is: the write fails
    cleanuponsignals();
    return runprogram(argc, argv);
}
