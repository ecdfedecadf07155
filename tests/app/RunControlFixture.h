#pragma once

#include "app/WindowFixture.h"

namespace orvana
{

/// Runs of a window whose bay D is empty.
class RunTest : public WindowTest
{
protected:
    // Takes the blank disk out, because it would turn erase on.
    RunTest() { bay(3)["attached"] = false; }

    void untilCompleted()
    {
        untilSheet("File Copy Completed");
        EXPECT_EQ(sheetText(), "All files have been copied successfully.");
    }

    // Makes every write to the volume slow, so that a test can act in the middle of a run.
    void makeSlow(std::size_t bayNumber)
    {
        bay(bayNumber)["volumes"][0]["faults"] = {{"delayMilliseconds", 40}};
    }
};

} // namespace orvana
