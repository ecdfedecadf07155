#include "faults/MountedVolume.h"

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    orvana::test::enterOwnMountNamespace();
    return RUN_ALL_TESTS();
}
