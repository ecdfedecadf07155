#include "platform/linux/MadeUpMachine.h"

#include <gtest/gtest.h>
#include <iostream>

// The thread checks do not work with the library that makes up the devices, nor with the library that reads
// them: neither was built for these checks.
extern "C" const char *__tsan_default_suppressions();
extern "C" const char *__tsan_default_suppressions()
{
    return "called_from_lib:libglib-2.0.so\ncalled_from_lib:libgio-2.0.so\ncalled_from_lib:libumockdev.so\n"
           "mutex:libgobject-2.0.so\nrace:libudev.so\n";
}

int main(int argc, char **argv)
{
    if (!orvana::test::hasMadeUpDevices())
        orvana::test::startWithMadeUpDevices(argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
