#include "cli/program.h"

int main(int argc, char** argv)
{
    return runprogram(argc, argv);
}
