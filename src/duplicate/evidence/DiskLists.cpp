#include "duplicate/evidence/DiskLists.h"

#include "duplicate/evidence/ChecksumLine.h"
#include "duplicate/evidence/IgnorePatterns.h"
#include "duplicate/evidence/SortKey.h"
#include "foundation/DisplayPath.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <utility>

namespace orvana
{

using platform::Access;
using platform::FileType;
using platform::Folder;
using platform::Links;
using platform::Want;

namespace
{

constexpr std::size_t ReadAtOnce = 64UL * 1024;
constexpr std::size_t LongestLine = 1UL << 20U;

std::string inLowerCase(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char letter) {
        return static_cast<char>(letter < 0x80 ? std::tolower(letter) : letter);
    });
    return lower;
}

// The format that the name of a checksum file gives away.
std::optional<DigestFormat> formatIn(std::string_view name)
{
    const auto lower = inLowerCase(name);
    for (const auto format : AllDigestFormats) {
        const std::string known(nameOf(format));
        if (lower.ends_with("." + known) || lower.starts_with(known + "sum"))
            return format;
    }
    return std::nullopt;
}

std::string stampOf(const std::string &name)
{
    constexpr std::size_t StampSize = 18;
    const auto end = name.rfind('.');
    return name.substr(end - StampSize, StampSize);
}

struct Entries
{
    bool hasHistory = false;
    std::vector<std::string> sums;
    std::vector<std::string> folders;
};

// A folder that cannot be read may have a list, so it is an error.
tl::expected<Entries, ListError> entriesOf(const Folder &disk, const std::string &folder)
{
    Entries entries;
    const auto cannotBeRead = [](const std::string &path, const platform::FileError &error) {
        return tl::unexpected(ListError{path, {0, "cannot be read: " + error.reason()}});
    };
    auto names = disk.list(folder);
    const auto error = names ? names->error() : std::optional(names.error());
    if (error)
        return cannotBeRead(folder, *error);
    while (!names->empty()) {
        std::string name(names->takeNext());
        const auto there = disk.attributes(joined(folder, name), Links::DoNotFollow, Want::Basics);
        if (!there && there.error().problem == platform::FileProblem::NotFound)
            continue; // it has gone meanwhile
        if (!there)
            return cannotBeRead(joined(folder, name), there.error());
        if (there->type == FileType::Folder && name == HistoryFolder)
            entries.hasHistory = true;
        else if (there->type == FileType::Folder)
            entries.folders.push_back(std::move(name));
        else if (there->type == FileType::Regular && isNameOfSums(name))
            entries.sums.push_back(std::move(name));
    }
    std::sort(entries.folders.begin(), entries.folders.end());
    return entries;
}

// The checksum file of a folder: the newest of ours, else the only one.
tl::expected<std::optional<DiskList>, ListError> sumsOf(const std::string &folder,
                                                        const std::vector<std::string> &names)
{
    std::optional<std::string> newest;
    for (const auto &name : names) {
        if (isNameOfOurSums(name) && (!newest || stampOf(*newest) < stampOf(name)))
            newest = name;
    }
    if (!newest && names.size() > 1)
        return tl::unexpected(
            ListError{joined(folder, names.front()),
                      {0, "there is " + displayPath(names[1]) + " as well; say which one is meant"}});
    if (!newest && names.empty())
        return std::nullopt;
    DiskList list;
    list.kind = ListKind::Sums;
    list.folder = folder;
    list.file = joined(folder, newest ? *newest : names.front());
    return list;
}

/// Calls `take` with each line and its number, until it returns an error.
template <class Take>
std::optional<ManifestError> readLines(platform::File &file, Take take)
{
    std::string rest;
    std::vector<char> block(ReadAtOnce);
    int number = 0;
    for (std::uint64_t offset = 0;;) {
        const auto count = file.read(std::as_writable_bytes(std::span(block)), offset);
        if (!count)
            return ManifestError{0, "cannot be read: " + count.error().reason()};
        offset += *count;
        rest.append(block.data(), *count);
        std::size_t start = 0;
        for (auto end = rest.find('\n'); end != std::string::npos; end = rest.find('\n', start)) {
            if (auto error = take(std::string_view(rest).substr(start, end - start), ++number))
                return error;
            start = end + 1;
        }
        rest.erase(0, start);
        if (rest.size() > LongestLine)
            return ManifestError{number + 1, "is too long"};
        if (*count < block.size())
            return rest.empty() ? std::nullopt : take(rest, number + 1);
    }
}

std::optional<ManifestError> readSums(platform::File &file, const std::string &name, KnownFiles &known)
{
    const auto expected = formatIn(name);
    std::size_t lines = 0;
    auto error = readLines(file, [&](std::string_view text, int number) -> std::optional<ManifestError> {
        auto line = readChecksumLine(text, expected);
        if (!line)
            return ManifestError{number, line.error()};
        if (!*line)
            return std::nullopt;
        ++lines;
        ManifestEntry entry;
        entry.path = (*line)->path;
        entry.digests.push_back({(*line)->format, (*line)->digest, DigestAction::Original});
        known.add(entry);
        return std::nullopt;
    });
    if (!error && lines == 0)
        error = ManifestError{0, "holds no line"};
    return error;
}

std::optional<ListError> readOneHistory(const Folder &disk, const std::string &folder, DiskList *list,
                                        KnownFiles &known)
{
    known.setFolder(folder);
    auto history = readHistory(disk, folder, known);
    if (!history)
        return ListError{joined(folder, history.error().file), history.error().detail};
    if (list) {
        const auto &newest = history->newest();
        list->file = joined(folder, joined(HistoryFolder, newest.name));
        list->digest = newest.c4;
        list->ignored = history->ignored();
        list->manifests = history->chain;
    }
    // What a history refers to must be there: nothing else would notice that it was taken away.
    for (const auto &reference : history->newest().facts.references) {
        const auto path = joined(folder, reference.path);
        const auto c4 = digestOfFile(disk, path, DigestFormat::C4);
        if (!c4 || *c4 != reference.c4)
            return ListError{path,
                             {0, (c4 ? "was changed: " : "is missing, but ") +
                                     displayPath(history->newest().name) + " refers to it"}};
    }
    return std::nullopt;
}

std::optional<ListError> readFile(const Folder &files, DiskList &list, KnownFiles &known)
{
    const auto file = files.openFile(list.file, Access::Read);
    if (!file)
        return ListError{list.file, {0, "cannot be opened: " + file.error().reason()}};
    known.setFolder(list.folder);
    if (list.kind == ListKind::Sums) {
        if (auto error = readSums(**file, std::string(nameIn(list.file)), known))
            return ListError{list.file, *error};
    } else {
        const auto facts = readMhl(**file, [&](const ManifestEntry &entry) { known.add(entry); });
        if (!facts)
            return ListError{list.file, facts.error()};
        list.ignored = facts->ignored;
    }
    if (const auto digest = digestOfFile(files, list.file, DigestFormat::C4))
        list.digest = *digest;
    list.manifests = {{std::string(nameIn(list.file)), list.digest}};
    return std::nullopt;
}

} // namespace

std::string ListError::text() const
{
    return displayPath(file) + ": " + detail.text();
}

// Our own checksum files are called after the folder and the time of the run.
bool isNameOfOurSums(std::string_view name)
{
    constexpr std::string_view Shape = "_0000-00-00_000000Z";
    const auto end = name.rfind('.');
    if (end == std::string_view::npos || end < Shape.size())
        return false;
    const auto stamp = name.substr(end - Shape.size(), Shape.size());
    return formatIn(name) &&
           std::equal(stamp.begin(), stamp.end(), Shape.begin(), [](char letter, char shape) {
               return shape == '0' ? letter >= '0' && letter <= '9' : letter == shape;
           });
}

bool isNameOfSums(std::string_view name)
{
    return formatIn(name).has_value() && !name.starts_with('.');
}

tl::expected<std::vector<DiskList>, ListError> findLists(const Folder &disk, const std::stop_token &token)
{
    std::vector<DiskList> lists;
    // A list instead of a recursion: a tree may be deeper than the stack allows.
    std::vector<std::string> waiting{std::string()};
    while (!waiting.empty() && !token.stop_requested()) {
        const auto folder = std::move(waiting.back());
        waiting.pop_back();
        auto read = entriesOf(disk, folder);
        if (!read)
            return tl::unexpected(read.error());
        auto &entries = *read;
        if (entries.hasHistory) {
            lists.push_back({});
            lists.back().folder = folder;
            continue;
        }
        auto sums = sumsOf(folder, entries.sums);
        if (!sums)
            return tl::unexpected(sums.error());
        if (*sums) {
            lists.push_back(std::move(**sums));
            continue;
        }
        for (auto name = entries.folders.rbegin(); name != entries.folders.rend(); ++name)
            waiting.push_back(joined(folder, *name));
    }
    return lists;
}

DiskList listFromFile(const std::string &path)
{
    DiskList list;
    list.kind = inLowerCase(path).ends_with(".mhl") ? ListKind::Manifest : ListKind::Sums;
    list.file = path;
    return list;
}

std::optional<ListError> readNestedHistory(const Folder &disk, const std::string &folder, KnownFiles &known)
{
    return readOneHistory(disk, folder, nullptr, known);
}

std::optional<ListError> readList(const Folder &disk, const Folder &files, DiskList &list, KnownFiles &known)
{
    auto error = list.kind == ListKind::History
                     ? readOneHistory(disk, list.folder, &list, known)
                     : readFile(list.file.starts_with('/') ? files : disk, list, known);
    if (!error && !known.finish())
        error = ListError{list.file, {0, "there is no room to keep what was read of it"}};
    if (list.ignored.empty())
        list.ignored = IgnorePatterns::defaults();
    return error;
}

} // namespace orvana
