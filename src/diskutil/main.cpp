#include "diskutil/Program.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return orvana::diskutil::runProgram({argv + 1, argv + argc}, orvana::diskutil::knownDisk);
}
