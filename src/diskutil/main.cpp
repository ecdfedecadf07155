#include "diskutil/Program.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    using namespace orvana::diskutil;
    const QCoreApplication application(argc, argv);
    leave(runProgram({argv + 1, argv + argc}, knownDisk));
}
