#pragma once

#include "duplicate/evidence/DiskVerification.h"

#include <string>
#include <vector>

namespace orvana
{

/// Returns the verdict on a disk as readable lines. The first is the verdict itself: "whole: 12 files, 3 GB
/// (3221225472 bytes) read, by ascmhl/0001_CARD_2026-11-21_193912Z.mhl, which agrees with this machine's
/// copy".
std::vector<std::string> linesOf(const DiskVerdict &verdict);

/// "changed: Clips/A001.mov"
std::string textOf(const Finding &finding);

/// Returns why the files can be trusted as far as the list can: "by the disk's own list".
std::string nameOf(StationCopy copy);

} // namespace orvana
