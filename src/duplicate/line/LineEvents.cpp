#include "duplicate/line/LineEvents.h"

#include "foundation/JsonFields.h"

namespace orvana
{

namespace
{

constexpr std::int64_t Version = 1;

Json jsonOf(const LineHead &head)
{
    return {{"version", Version},
            {"id", head.id},
            {"station", head.station},
            {"name", head.name},
            {"job", head.job},
            {"wanted", head.wanted},
            {"pattern", head.pattern},
            {"certificates", head.certificates},
            {"needsSerial", head.needsSerial},
            {"begun", head.begun}};
}

LineHead headFrom(JsonFields &fields)
{
    if (fields.requiredNumber("version") != Version)
        rejectEntry("/version", "must be 1");
    LineHead head;
    head.id = fields.requiredText("id");
    head.station = fields.requiredText("station");
    head.name = fields.requiredText("name");
    head.job = fields.requiredText("job");
    head.wanted = fields.requiredNumber("wanted");
    head.pattern = fields.requiredText("pattern");
    head.certificates = fields.requiredText("certificates");
    head.needsSerial = fields.flag("needsSerial", true);
    head.begun = fields.requiredText("begun");
    return head;
}

// Returns the bytes of a text that `putPath` has put there.
std::string bytesFrom(JsonFields &fields, const std::string &key)
{
    auto text = fields.requiredText(key.c_str());
    const auto bytes = fields.text((key + "Bytes").c_str());
    const auto decoded = bytes ? fromBase64(*bytes) : std::nullopt;
    return decoded.value_or(std::move(text));
}

Json jsonOf(const LineDisk &disk)
{
    Json json{{"number", disk.number}, {"bay", disk.bay}, {"size", disk.size}, {"began", disk.began}};
    putPath(json, "name", disk.name);
    putPath(json, "serial", disk.serial);
    putPath(json, "model", disk.model);
    return json;
}

LineDisk diskFrom(JsonFields &fields)
{
    LineDisk disk;
    disk.number = fields.requiredNumber("number");
    disk.bay = fields.requiredText("bay");
    disk.size = fields.requiredNumber("size");
    disk.began = fields.requiredText("began");
    disk.name = bytesFrom(fields, "name");
    disk.serial = bytesFrom(fields, "serial");
    disk.model = bytesFrom(fields, "model");
    return disk;
}

Json jsonOf(const LineEnd &end)
{
    const auto &result = end.result;
    Json json{{"number", end.number},  {"verdict", wordOf(result.verdict)},
              {"ended", result.ended}, {"files", result.files},
              {"bytes", result.bytes}, {"manifest", result.manifest}};
    putPath(json, "reason", result.reason);
    putPath(json, "health", result.health);
    putPath(json, "certificate", result.certificate);
    return json;
}

LineEnd endFrom(JsonFields &fields)
{
    LineEnd end;
    end.number = fields.requiredNumber("number");
    const auto verdict = lineVerdictOf(fields.requiredText("verdict"));
    if (!verdict)
        rejectEntry("/end/verdict", "unknown");
    end.result.verdict = *verdict;
    end.result.ended = fields.requiredText("ended");
    end.result.files = fields.requiredNumber("files");
    end.result.bytes = static_cast<std::uint64_t>(fields.requiredNumber("bytes"));
    end.result.manifest = fields.requiredText("manifest");
    end.result.reason = bytesFrom(fields, "reason");
    end.result.health = bytesFrom(fields, "health");
    end.result.certificate = bytesFrom(fields, "certificate");
    return end;
}

LineState stateFrom(const std::string &word)
{
    for (const auto state : {LineState::Open, LineState::Paused, LineState::Ended}) {
        if (word == wordOf(state))
            return state;
    }
    rejectEntry("/state", "unknown");
}

LineEvent eventFrom(const Json &json)
{
    JsonFields event(json, {});
    if (const auto *line = event.value("line")) {
        JsonFields fields(*line, "/line");
        return headFrom(fields);
    }
    if (const auto *begin = event.value("begin")) {
        JsonFields fields(*begin, "/begin");
        return diskFrom(fields);
    }
    if (const auto *end = event.value("end")) {
        JsonFields fields(*end, "/end");
        return endFrom(fields);
    }
    return stateFrom(event.requiredText("state"));
}

} // namespace

std::string textOfEvent(const LineEvent &event)
{
    Json json;
    if (const auto *head = std::get_if<LineHead>(&event))
        json["line"] = jsonOf(*head);
    else if (const auto *disk = std::get_if<LineDisk>(&event))
        json["begin"] = jsonOf(*disk);
    else if (const auto *end = std::get_if<LineEnd>(&event))
        json["end"] = jsonOf(*end);
    else
        json["state"] = wordOf(std::get<LineState>(event));
    return json.dump();
}

std::optional<LineEvent> parseEvent(std::string_view text)
{
    const auto json = parseJson(text);
    if (!json || !json->is_object())
        return std::nullopt;
    try {
        return eventFrom(*json);
    } catch (const WrongJsonEntry &) {
        return std::nullopt;
    }
}

} // namespace orvana
