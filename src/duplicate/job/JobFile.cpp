#include "duplicate/job/JobFile.h"

#include "foundation/DisplayPath.h"
#include "foundation/JsonFields.h"
#include "platform/posix/BoundedRead.h"
#include "platform/posix/Descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>

namespace orvana
{

namespace
{

constexpr std::int64_t Version = 1;

// A path below the root: not empty, not absolute, and without "." and "..".
void checkSelected(const std::string &path, const std::string &where)
{
    std::string rest = "/" + path + "/";
    for (const char *part : {"//", "/./", "/../"}) {
        if (rest.find(part) != std::string::npos)
            rejectEntry(where, "must be a path below the source, without \".\" and \"..\"");
    }
    if (path.find('\0') != std::string::npos)
        rejectEntry(where, "must not hold a zero byte");
}

std::string readSelected(const Json &json, const std::string &where)
{
    std::string path;
    if (json.is_string()) {
        path = json.get<std::string>();
    } else {
        JsonFields fields(json, where);
        path = fields.requiredText("path");
        if (const auto bytes = fields.text("pathBytes")) {
            const auto decoded = fromBase64(*bytes);
            if (!decoded)
                rejectEntry(where + "/pathBytes", "must be base64");
            path = *decoded;
        }
        fields.end();
    }
    checkSelected(path, where);
    return path;
}

PerBay<std::optional<std::string>> readNames(const Json &json, const std::string &where)
{
    PerBay<std::optional<std::string>> names;
    JsonFields fields(json, where);
    for (const auto bay : AllBays)
        names[bay] = fields.text(slotNameOf(bay).substr(5).c_str());
    fields.end();
    return names;
}

RunSettings readSettings(const Json &json, const std::string &where)
{
    RunSettings settings;
    JsonFields fields(json, where);
    for (const auto &setting : AllRunSettings)
        setting.of(settings) = fields.flag(setting.key, false);
    for (const auto &setting : AllListedRunSettings) {
        const auto value = fields.text(setting.key);
        if (!value)
            continue;
        setting.set(settings, *value);
        if (setting.get(settings) != *value)
            rejectEntry(where + "/" + setting.key, "is \"" + *value + "\", which this program does not know");
    }
    if (const auto conflict = conflictIn(settings))
        rejectEntry(where, *conflict);
    fields.end();
    return settings;
}

Job readAll(const Json &json)
{
    JsonFields fields(json, "");
    if (fields.requiredNumber("job") != Version)
        rejectEntry("/job", "is a version that this program does not know; it knows 1");
    Job job;
    const auto *source = fields.value("source");
    if (!source)
        rejectEntry("", "needs \"source\"");
    JsonFields sourceFields(*source, "/source");
    job.volumeId = sourceFields.requiredText("volume");
    if (job.volumeId.empty())
        rejectEntry("/source/volume", "must not be empty");
    job.sourceName = sourceFields.text("name").value_or("");
    job.isHome = sourceFields.flag("home", false);
    sourceFields.end();
    fields.list("selection", [&](const Json &entry, const std::string &where) {
        job.selection.push_back(readSelected(entry, where));
    });
    job.erase = fields.flag("erase", false);
    job.verify = fields.flag("verify", false);
    if (const auto *names = fields.value("names"))
        job.names = readNames(*names, "/names");
    if (const auto *options = fields.value("options"))
        job.settings = readSettings(*options, "/options");
    job.wanted = fields.number("wanted", 1);
    fields.end();
    return job;
}

} // namespace

tl::expected<Job, std::string> parseJob(std::string_view text)
{
    const auto json = parseJson(text);
    if (!json)
        return tl::unexpected(json.error());
    try {
        return readAll(*json);
    } catch (const WrongJsonEntry &entry) {
        return tl::unexpected(displayPath(entry.reason));
    }
}

std::string textOf(const Job &job)
{
    Json source{{"volume", job.volumeId}, {"name", displayPath(job.sourceName)}};
    if (job.isHome)
        source["home"] = true;
    Json json{{"job", Version}, {"source", std::move(source)}};
    json["selection"] = Json::array();
    for (const auto &path : job.selection) {
        Json entry = Json::object();
        putPath(entry, "path", path);
        json["selection"].push_back(entry.size() == 1 ? entry["path"] : entry);
    }
    json["erase"] = job.erase;
    json["verify"] = job.verify;
    for (const auto bay : AllBays) {
        if (const auto &name = job.names[bay])
            json["names"][slotNameOf(bay).substr(5)] = *name;
    }
    for (const auto &setting : AllRunSettings) {
        if (setting.isOn(job.settings))
            json["options"][setting.key] = true;
    }
    for (const auto &setting : AllListedRunSettings) {
        if (const auto value = setting.get(job.settings); !value.empty())
            json["options"][setting.key] = value;
    }
    if (job.wanted)
        json["wanted"] = *job.wanted;
    return json.dump(2) + "\n";
}

tl::expected<Job, std::string> readJob(const std::string &path)
{
    const auto failed = [&](const std::string &reason) {
        return tl::unexpected(displayPath(path) + ": " + reason);
    };
    // Without O_NONBLOCK a FIFO would be waited for.
    const platform::posix::Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen())
        return failed(std::generic_category().message(errno));
    const auto text = platform::posix::readAtMost(file.number(), LargestJob);
    if (!text)
        return failed(text.error().reason());
    if (!*text)
        return failed("has more than 16 MiB");
    auto job = parseJob(**text);
    if (!job)
        return failed(job.error());
    return job;
}

} // namespace orvana
