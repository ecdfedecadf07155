#pragma once

#include "duplicate/report/RunProblems.h"
#include "duplicate/report/RunSummary.h"

#include <string>
#include <utility>
#include <vector>

namespace orvana
{

/// A line of a certificate's table that only its caller knows: a title, and a text that may hold anything.
using CertificateRow = std::pair<std::string, std::string>;

/// Returns the certificates of a run as one HTML document that needs nothing else: a page for each
/// destination that says what was copied to it, from where, and what is known about the copy. With `only`,
/// just the page of that destination. `rows` are added to the table of each page.
///
/// The document is in English like the run's log and report, so that one can hand it to anybody.
std::string certificateHtml(const RunSummary &summary, const std::vector<ProblemGroup> &problems,
                            const DestinationSummary *only = nullptr,
                            const std::vector<CertificateRow> &rows = {});

} // namespace orvana
