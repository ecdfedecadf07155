#include "MadeUpMachine.h"

#include <gtest/gtest.h>
#include <iostream>

int main(int argc, char **argv)
{
    if (!orvana::test::hasMadeUpDevices())
        orvana::test::startWithMadeUpDevices(argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
