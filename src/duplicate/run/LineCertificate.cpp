#include "duplicate/run/LineCertificate.h"

#include "duplicate/line/LineStore.h"
#include "duplicate/report/CertificatePage.h"
#include "duplicate/report/ReportJson.h"
#include "foundation/DisplayPath.h"
#include "platform/SmallFiles.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace orvana
{

namespace
{

constexpr std::uint32_t ReadableByAll = 0644;

Json jsonOf(const LineHead &head, std::int64_t number, const LineResult &result, const RunSummary &summary,
            std::size_t destination)
{
    Json json;
    json["version"] = 1;
    json["id"] = idOf(head, number);
    json["line"] = head.name;
    json["number"] = number;
    json["wanted"] = head.wanted;
    json["verdict"] = wordOf(result.verdict);
    putPath(json, "reason", result.reason);
    putPath(json, "health", result.health);
    putPath(json, "source", summary.source);
    json["started"] = summary.started;
    json["ended"] = summary.ended;
    json["disk"] = destinationsJson(summary)[destination];
    return json;
}

} // namespace

tl::expected<std::string, std::string> writeLineCertificate(platform::VolumeFiles &files,
                                                            const LineHead &head, std::int64_t number,
                                                            const LineResult &result,
                                                            const RunSummary &summary, Bay bay,
                                                            const std::vector<ProblemGroup> &problems)
{
    const auto &all = summary.destinations;
    const auto found = std::find_if(all.begin(), all.end(), [&](const DestinationSummary &destination) {
        return destination.disk.bay == slotNameOf(bay);
    });
    if (found == all.end())
        return std::string();
    const auto failed = [&](const std::string &what, const std::string &reason) {
        return tl::unexpected(displayPath(what) + ": " + reason);
    };
    std::error_code error;
    std::filesystem::create_directories(head.certificates, error);
    const auto folder = files.openFolder(head.certificates, platform::Reach::Beneath);
    if (!folder)
        return failed(head.certificates, folder.error().reason());
    const auto name = certificateNameOf(head, number);
    auto verdict = std::string(wordOf(result.verdict));
    if (!result.reason.empty())
        verdict += ": " + result.reason;
    const auto html =
        certificateHtml(summary, problems, &*found,
                        {{"Line", head.name},
                         {"Number", std::to_string(number) + " of " + std::to_string(head.wanted)},
                         {"Id", idOf(head, number)},
                         {"Verdict of the line", verdict},
                         {"Health of the disk", result.health.empty() ? "not asked" : result.health}});
    const auto json = jsonOf(head, number, result, summary, static_cast<std::size_t>(found - all.begin()));
    for (const auto &[file, text] :
         {std::pair(name + ".html", html), std::pair(name + ".json", json.dump(2) + "\n")}) {
        if (const auto written = platform::replaceSmallFile(**folder, file, text, ReadableByAll); !written) {
            removeCertificate(head, number);
            return failed(head.certificates + "/" + file, written.error().reason());
        }
    }
    return name + ".html";
}

} // namespace orvana
