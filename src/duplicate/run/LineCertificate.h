#pragma once

#include "duplicate/line/LineEntry.h"
#include "duplicate/plan/RunChoice.h"
#include "duplicate/report/RunProblems.h"
#include "duplicate/report/RunSummary.h"

#include <string>
#include <tl/expected.hpp>

namespace orvana::platform
{
class VolumeFiles;
}

namespace orvana
{

/// Writes the certificate of a disk of a line as HTML and as JSON into the line's folder of certificates,
/// which is made if it is not there. Returns the name of the HTML file; empty for a disk that got no copy.
/// Fails with the file and the reason.
tl::expected<std::string, std::string> writeLineCertificate(platform::VolumeFiles &files,
                                                            const LineHead &head, std::int64_t number,
                                                            const LineResult &result,
                                                            const RunSummary &summary, Bay bay,
                                                            const std::vector<ProblemGroup> &problems);

} // namespace orvana
