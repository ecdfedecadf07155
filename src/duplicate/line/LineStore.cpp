#include "duplicate/line/LineStore.h"

#include "duplicate/journal/CheckedLine.h"
#include "duplicate/line/LedgerText.h"
#include "duplicate/line/LineEvents.h"
#include "foundation/Clock.h"
#include "foundation/DisplayPath.h"
#include "platform/SmallFiles.h"
#include "platform/posix/PrivateFolder.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>

namespace orvana
{

using platform::FileProblem;

namespace
{

constexpr const char *Events = "events";
constexpr const char *Wish = "wish";
constexpr const char *Station = "station";
constexpr const char *LinesFolder = "/lines";

// A line of a thousand disks has some 600 kB of events.
constexpr std::size_t LargestText = 67'108'864;
constexpr std::size_t IdLength = 8;

std::string randomDigits(std::size_t count)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::random_device random;
    std::string text;
    while (text.size() < count)
        text += Digits[random() % Digits.size()];
    return text;
}

bool isId(std::string_view text)
{
    return text.size() == IdLength && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

platform::Expected<std::string> textOfFile(const platform::Folder &folder, const std::string &name)
{
    return platform::readSmallFile(folder, name, LargestText);
}

tl::expected<std::unique_ptr<platform::Folder>, std::string> openPrivate(platform::VolumeFiles &files,
                                                                         const std::string &path)
{
    if (auto made = platform::makePrivateFolder(path); !made)
        return tl::unexpected(made.error());
    auto folder = files.openFolder(path, platform::Reach::Beneath);
    if (!folder)
        return tl::unexpected(displayPath(path) + ": " + folder.error().reason());
    return std::move(*folder);
}

} // namespace

const char *wordOf(LineState state)
{
    switch (state) {
    case LineState::Open:
        return "open";
    case LineState::Paused:
        return "paused";
    case LineState::Ended:
        return "ended";
    }
    return "";
}

tl::expected<std::string, std::string> stationId(platform::VolumeFiles &files, const std::string &path)
{
    const auto folder = openPrivate(files, path);
    if (!folder)
        return tl::unexpected(folder.error());
    auto text = textOfFile(**folder, Station);
    if (text && isId(*text))
        return *text;
    // An id is never replaced because its file cannot be read: rows of two stations would look like one's.
    if (!text && text.error().problem != FileProblem::NotFound)
        return tl::unexpected(displayPath(path) + "/" + Station + ": " + text.error().reason());
    auto id = randomDigits(IdLength);
    if (const auto written = platform::replaceSmallFile(**folder, Station, id); !written)
        return tl::unexpected(displayPath(path) + "/" + Station + ": " + written.error().reason());
    return id;
}

void removeCertificate(const LineHead &head, std::int64_t number)
{
    for (const char *ending : {".html", ".json"}) {
        std::error_code ignored;
        std::filesystem::remove(head.certificates + "/" + certificateNameOf(head, number) + ending, ignored);
    }
}

std::string LineStore::failure(const std::string &name, const platform::FileError &error) const
{
    return displayPath(m_path) + "/" + name + ": " + error.reason();
}

tl::expected<LineStore, std::string> LineStore::create(platform::VolumeFiles &files,
                                                       const std::string &folder, LineHead head)
{
    auto station = stationId(files, folder);
    if (!station)
        return tl::unexpected(station.error());
    head.station = std::move(*station);
    head.id = localTime(std::chrono::system_clock::now(), "%Y%m%d-%H%M%S-") + randomDigits(4);
    const auto lines = folder + LinesFolder;
    if (const auto made = openPrivate(files, lines); !made)
        return tl::unexpected(made.error());
    const auto path = lines + "/" + head.id;
    if (head.certificates.empty())
        head.certificates = path + "/certificates";
    auto own = openPrivate(files, path);
    if (!own)
        return tl::unexpected(own.error());
    LineStore store(path, std::move(*own));
    auto lock = files.lockFolder(path, platform::Sharing::Exclusive);
    if (!lock)
        return tl::unexpected(displayPath(path) + ": " + lock.error().reason());
    store.m_lock = std::move(*lock);
    auto events = JournalFile::create(*store.m_folder, Events);
    if (!events)
        return tl::unexpected(store.failure(Events, events.error()));
    store.m_events = std::move(*events);
    store.m_head = std::move(head);
    if (const auto noted = store.note(textOfEvent(store.m_head)); !noted)
        return tl::unexpected(noted.error());
    if (const auto repaired = store.repairLedgers(); !repaired)
        return tl::unexpected(repaired.error());
    // The folders are to be there after a power cut, too.
    if (const auto synced = store.m_folder->syncVolume(); !synced)
        return tl::unexpected(store.failure(Events, synced.error()));
    return store;
}

tl::expected<LineStore, std::string> LineStore::open(platform::VolumeFiles &files, const std::string &folder,
                                                     const std::string &id, Use use)
{
    const auto path = folder + LinesFolder + "/" + id;
    if (id.empty() || id.find('/') != std::string::npos || id.starts_with('.'))
        return tl::unexpected(displayPath(id) + ": no line of this station");
    auto own = files.openFolder(path, platform::Reach::Beneath);
    if (!own)
        return tl::unexpected(displayPath(id) + ": no line of this station");
    LineStore store(path, std::move(*own));
    if (use == Use::Run) {
        auto lock = files.lockFolder(path, platform::Sharing::Exclusive);
        if (!lock)
            return tl::unexpected(displayPath(id) + ": another program runs this line");
        store.m_lock = std::move(*lock);
    }
    if (const auto loaded = store.load(use); !loaded)
        return tl::unexpected(loaded.error());
    if (use == Use::Run)
        (void)store.takeWish(); // it was meant for the program that ran the line before
    return store;
}

std::vector<std::string> LineStore::idsIn(platform::VolumeFiles &files, const std::string &folder)
{
    std::vector<std::string> ids;
    const auto lines = files.openFolder(folder + LinesFolder, platform::Reach::Beneath);
    if (!lines)
        return ids;
    auto entries = (*lines)->list("");
    while (entries && !entries->empty())
        ids.emplace_back(entries->takeNext());
    std::sort(ids.begin(), ids.end());
    return ids;
}

tl::expected<void, std::string> LineStore::load(Use use)
{
    const auto text = textOfFile(*m_folder, Events);
    if (!text)
        return tl::unexpected(failure(Events, text.error()));
    for (std::size_t start = 0; start < text->size();) {
        const auto end = std::min(text->find('\n', start), text->size());
        if (const auto body = bodyOfLine(std::string_view(*text).substr(start, end - start)))
            take(*body);
        start = end + 1;
    }
    if (m_head.id.empty())
        return tl::unexpected(displayPath(m_path) + "/" + Events + ": says nothing of a line");
    if (use == Use::Look)
        return {};
    auto events = JournalFile::open(*m_folder, Events, JournalFile::Use::Append);
    if (!events)
        return tl::unexpected(failure(Events, events.error()));
    m_events = std::move(*events);
    if (auto ended = endDisksInWork(); !ended)
        return ended;
    return repairLedgers();
}

// Takes an event. One that does not fit to those before changes nothing.
void LineStore::take(std::string_view body)
{
    const auto event = parseEvent(body);
    if (!event)
        return;
    if (const auto *head = std::get_if<LineHead>(&*event)) {
        m_head = *head;
    } else if (const auto *disk = std::get_if<LineDisk>(&*event)) {
        m_entries.push_back({*disk, std::nullopt});
        m_nextNumber = std::max(m_nextNumber, disk->number + 1);
    } else if (const auto *end = std::get_if<LineEnd>(&*event)) {
        for (auto &entry : m_entries) {
            if (entry.disk.number == end->number && !entry.result)
                entry.result = end->result;
        }
    } else {
        m_state = std::get<LineState>(*event);
    }
}

tl::expected<void, std::string> LineStore::note(const std::string &body)
{
    if (!m_events)
        return tl::unexpected(displayPath(m_path) + ": is only looked at");
    if (const auto written = m_events->append(checkedLine(body)); !written)
        return tl::unexpected(failure(Events, written.error()));
    take(body);
    return {};
}

const LineEntry *LineStore::entryOf(const std::string &serial) const
{
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(), [&](const LineEntry &entry) {
        return !serial.empty() && entry.disk.serial == serial;
    });
    return found == m_entries.rend() ? nullptr : &*found;
}

tl::expected<void, std::string> LineStore::begin(const LineDisk &disk)
{
    return note(textOfEvent(disk));
}

tl::expected<void, std::string> LineStore::end(std::int64_t number, const LineResult &result)
{
    if (auto noted = note(textOfEvent(LineEnd{number, result})); !noted)
        return noted;
    for (const auto &entry : m_entries) {
        if (entry.disk.number != number)
            continue;
        if (const auto added = platform::appendToSmallFile(*m_folder, "ledger.csv", csvRow(m_head, entry));
            !added)
            return tl::unexpected(failure("ledger.csv", added.error()));
        if (const auto added = platform::appendToSmallFile(*m_folder, "ledger.jsonl", jsonRow(m_head, entry));
            !added)
            return tl::unexpected(failure("ledger.jsonl", added.error()));
    }
    return {};
}

tl::expected<void, std::string> LineStore::setState(LineState state)
{
    return note(textOfEvent(state));
}

// The disks may hold anything, and nobody knows more of them.
tl::expected<void, std::string> LineStore::endDisksInWork()
{
    LineResult result;
    result.reason = "the program ended while the disk was in work";
    result.ended = localTime(std::chrono::system_clock::now(), "%Y-%m-%dT%H:%M:%S%z");
    for (const auto &entry : std::vector(m_entries)) {
        if (entry.result)
            continue;
        removeCertificate(m_head, entry.disk.number); // it may have been written just before the end
        if (auto noted = note(textOfEvent(LineEnd{entry.disk.number, result})); !noted)
            return noted;
    }
    return {};
}

// A crash may have left out the last row, or torn it. Rows are added as disks end; a ledger that is written
// anew has them by number.
tl::expected<void, std::string> LineStore::repairLedgers() const
{
    std::string csv = ledgerHeading();
    std::string json;
    for (const auto &entry : m_entries) {
        if (!entry.result)
            continue;
        csv += csvRow(m_head, entry);
        json += jsonRow(m_head, entry);
    }
    for (const auto &[name, text] :
         {std::pair<std::string, std::string &>("ledger.csv", csv), {"ledger.jsonl", json}}) {
        const auto present = textOfFile(*m_folder, name);
        if (present && *present == text)
            continue;
        if (const auto written = platform::replaceSmallFile(*m_folder, name, text); !written)
            return tl::unexpected(failure(name, written.error()));
    }
    return {};
}

tl::expected<void, std::string> LineStore::wish(LineWish wish) const
{
    constexpr std::array Words{"", "pause", "resume", "end"};
    const auto written = platform::replaceSmallFile(*m_folder, Wish, Words[static_cast<std::size_t>(wish)]);
    if (!written)
        return tl::unexpected(failure(Wish, written.error()));
    return {};
}

LineWish LineStore::takeWish() const
{
    const auto text = textOfFile(*m_folder, Wish);
    if (!text)
        return LineWish::None;
    (void)m_folder->remove(Wish);
    if (*text == "pause")
        return LineWish::Pause;
    if (*text == "resume")
        return LineWish::Resume;
    return *text == "end" ? LineWish::End : LineWish::None;
}

bool LineStore::isRunning(platform::VolumeFiles &files) const
{
    const auto lock = files.lockFolder(m_path, platform::Sharing::Exclusive);
    return !lock && lock.error().problem == FileProblem::Busy;
}

} // namespace orvana
