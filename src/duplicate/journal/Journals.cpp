#include "duplicate/journal/Journals.h"

#include "platform/posix/PrivateFolder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace orvana
{

using platform::Expected;

namespace
{

constexpr std::string_view HeadEnding = ".head";
constexpr std::string_view CopiesEnding = ".copies";

// A journal stays after a run that left something undone, and the disks of that run may never come back.
constexpr std::size_t MostJournals = 16;

std::string nameNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%020lld",
                  static_cast<long long>(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count()));
    return text.data();
}

} // namespace

const JournalHead::Destination *JournalHead::find(const JournalPlace &place) const
{
    const auto found = std::find_if(destinations.begin(), destinations.end(), [&](const auto &destination) {
        return isSamePlace(destination.place, place);
    });
    return found == destinations.end() ? nullptr : &*found;
}

tl::expected<Journals, std::string> Journals::open(platform::VolumeFiles &files, const std::string &folder)
{
    if (auto made = platform::makePrivateFolder(folder); !made)
        return tl::unexpected(made.error());
    auto opened = files.openFolder(folder, platform::Reach::Beneath);
    if (!opened)
        return tl::unexpected(opened.error().reason());
    return Journals(std::move(*opened));
}

std::optional<JournalHead> Journals::headOf(const std::string &name) const
{
    const auto file = JournalFile::open(*m_folder, name + std::string(HeadEnding), JournalFile::Use::Read);
    if (!file)
        return std::nullopt;
    JournalHead head;
    bool isJournal = false;
    file->read(0, [&](const JournalLine &line, std::uint64_t) {
        if (line.kind == JournalLine::Kind::Opening) {
            head.source = line.place;
            isJournal = true;
        } else if (line.kind == JournalLine::Kind::Job) {
            head.job = line.job;
        } else if (line.kind == JournalLine::Kind::Destination) {
            head.destinations.push_back({line.destination, line.place});
            head.nextNumber = std::max(head.nextNumber, line.destination + 1);
        } else if (line.kind == JournalLine::Kind::End) {
            std::erase_if(head.destinations,
                          [&](const auto &destination) { return destination.number == line.destination; });
        }
        return isJournal;
    });
    head.name = name;
    return isJournal ? std::optional(std::move(head)) : std::nullopt;
}

std::vector<JournalHead> Journals::heads() const
{
    std::vector<std::string> names;
    auto entries = m_folder->list("");
    while (entries && !entries->empty()) {
        const auto entry = entries->takeNext();
        if (entry.ends_with(HeadEnding))
            names.emplace_back(entry.substr(0, entry.size() - HeadEnding.size()));
    }
    std::sort(names.begin(), names.end());
    std::vector<JournalHead> heads;
    for (const auto &name : names) {
        if (auto head = headOf(name))
            heads.push_back(std::move(*head));
    }
    return heads;
}

std::optional<JournalHead> Journals::find(const JournalPlace &source,
                                          const std::vector<JournalPlace> &destinations) const
{
    auto all = heads();
    const auto found = std::find_if(all.rbegin(), all.rend(), [&](const JournalHead &head) {
        return isSamePlace(head.source, source) &&
               std::any_of(destinations.begin(), destinations.end(),
                           [&](const JournalPlace &place) { return head.find(place) != nullptr; });
    });
    return found == all.rend() ? std::nullopt : std::optional(std::move(*found));
}

Expected<JournalHead> Journals::create(const JournalPlace &source,
                                       const std::vector<JournalPlace> &destinations, const std::string &job)
{
    prune();
    JournalHead head;
    head.name = nameNow();
    head.source = source;
    // The copies come first, so that there is no head without them.
    const auto copies = JournalFile::create(*m_folder, head.name + std::string(CopiesEnding));
    if (!copies)
        return tl::unexpected(copies.error());
    auto file = JournalFile::create(*m_folder, head.name + std::string(HeadEnding));
    if (!file)
        return tl::unexpected(file.error());
    auto lines = openingLine(source);
    if (!job.empty() && job.size() <= LongestJob) {
        head.job = job;
        lines += jobLine(job);
    }
    for (const auto &place : destinations) {
        lines += destinationLine(head.nextNumber, place);
        head.destinations.push_back({head.nextNumber++, place});
    }
    if (const auto written = file->append(lines); !written)
        return tl::unexpected(written.error());
    return head;
}

Expected<std::size_t> Journals::addDestination(JournalHead &head, const JournalPlace &place) const
{
    auto file = JournalFile::open(*m_folder, head.name + std::string(HeadEnding), JournalFile::Use::Append);
    if (!file)
        return tl::unexpected(file.error());
    if (const auto written = file->append(destinationLine(head.nextNumber, place)); !written)
        return tl::unexpected(written.error());
    head.destinations.push_back({head.nextNumber, place});
    return head.nextNumber++;
}

Expected<JournalFile> Journals::openCopies(const JournalHead &head) const
{
    return JournalFile::open(*m_folder, head.name + std::string(CopiesEnding), JournalFile::Use::Append);
}

void Journals::end(const std::vector<JournalPlace> &places, const std::string &except) const
{
    for (const auto &head : heads()) {
        if (head.name == except)
            continue;
        std::string lines;
        std::size_t ended = 0;
        for (const auto &destination : head.destinations) {
            if (std::none_of(places.begin(), places.end(), [&](const JournalPlace &place) {
                    return mayBeSamePlace(destination.place, place);
                }))
                continue;
            lines += endLine(destination.number);
            ++ended;
        }
        if (ended == head.destinations.size()) {
            remove(head.name);
            continue;
        }
        if (ended == 0)
            continue;
        auto file =
            JournalFile::open(*m_folder, head.name + std::string(HeadEnding), JournalFile::Use::Append);
        // A journal that cannot be written to must not be believed.
        if (!file || !file->append(lines))
            remove(head.name);
    }
}

void Journals::remove(const std::string &name) const
{
    // The head goes first, so that there is never a head without its copies.
    (void)m_folder->remove(name + std::string(HeadEnding));
    (void)m_folder->remove(name + std::string(CopiesEnding));
}

void Journals::prune() const
{
    const auto all = heads();
    for (std::size_t i = 0; i + MostJournals <= all.size(); ++i)
        remove(all[i].name);
}

} // namespace orvana
