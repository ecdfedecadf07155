#include "duplicate/evidence/History.h"

#include "duplicate/evidence/IgnorePatterns.h"
#include "duplicate/evidence/SortKey.h"
#include "foundation/DisplayPath.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <utility>

namespace orvana
{

using platform::Access;
using platform::Folder;

namespace
{

constexpr std::size_t Budget = 4UL * 1024 * 1024;
constexpr std::size_t ReadAtOnce = 1UL << 20U;
constexpr std::string_view ManifestEnd = ".mhl";

enum class Kind : char { File, FolderEntry, Moved };

using Failure = tl::unexpected<HistoryError>;

Failure failed(HistoryProblem problem, std::string file, ManifestError detail = {})
{
    return Failure(HistoryError{problem, std::move(file), std::move(detail)});
}

platform::Expected<std::vector<std::string>> manifestsIn(const Folder &volume, const std::string &folder)
{
    std::vector<std::string> found;
    auto names = volume.list(folder);
    const auto error = names ? names->error() : std::optional(names.error());
    if (error)
        return tl::unexpected(*error);
    while (!names->empty()) {
        std::string name(names->takeNext());
        if (generationOf(name))
            found.push_back(std::move(name));
    }
    std::sort(found.begin(), found.end(), [](const std::string &left, const std::string &right) {
        return std::pair(*generationOf(left), left) < std::pair(*generationOf(right), right);
    });
    return found;
}

// Reads one manifest. What the chain says of it is checked already.
tl::expected<Generation, HistoryError> readGeneration(const Folder &volume, const std::string &root,
                                                      const std::string &name, KnownFiles &known)
{
    const auto path = joined(HistoryFolder, name);
    const auto file = volume.openFile(joined(root, path), Access::Read);
    if (!file)
        return failed(HistoryProblem::BadManifest, path, {0, "cannot be opened: " + file.error().reason()});
    auto facts = readMhl(**file, [&](const ManifestEntry &entry) { known.add(entry); });
    if (!facts)
        return failed(HistoryProblem::BadManifest, path, facts.error());
    Generation generation;
    generation.number = *generationOf(name);
    generation.name = name;
    generation.facts = std::move(*facts);
    const auto c4 = digestOfFile(volume, joined(root, path), DigestFormat::C4);
    if (!c4)
        return failed(HistoryProblem::BadManifest, path, {0, "cannot be read: " + c4.error().reason()});
    generation.c4 = *c4;
    return generation;
}

std::optional<HistoryError> checkChain(const Folder &volume, const std::string &root,
                                       const std::vector<MhlReference> &chain)
{
    for (const auto &generation : chain) {
        const auto path = joined(HistoryFolder, generation.path);
        const auto c4 = digestOfFile(volume, joined(root, path), DigestFormat::C4);
        if (!c4 && c4.error().problem == platform::FileProblem::NotFound)
            return HistoryError{
                HistoryProblem::ManifestMissing, path, {0, "is missing, but the chain names it"}};
        if (!c4)
            return HistoryError{
                HistoryProblem::BadManifest, path, {0, "cannot be read: " + c4.error().reason()}};
        if (*c4 != generation.c4)
            return HistoryError{HistoryProblem::ManifestChanged,
                                path,
                                {0, "was changed: the chain has another digest of it"}};
    }
    return std::nullopt;
}

} // namespace

const ManifestDigest *KnownFile::toCheckWith() const
{
    const auto original = std::find_if(digests.begin(), digests.end(), [](const ManifestDigest &digest) {
        return digest.action == DigestAction::Original;
    });
    if (original != digests.end())
        return &*original;
    return digests.empty() ? nullptr : &digests.front();
}

const ManifestDigest *KnownFile::inFormat(DigestFormat format) const
{
    const auto found = std::find_if(digests.begin(), digests.end(),
                                    [&](const ManifestDigest &digest) { return digest.format == format; });
    return found == digests.end() ? nullptr : &*found;
}

KnownFiles::KnownFiles(const std::string &folder) : m_sort(folder, Budget) {}

void KnownFiles::add(const ManifestEntry &entry)
{
    const auto begin = [this](const std::string &path, Kind kind) {
        auto record = sortKey(joined(m_folder, path));
        for (int shift = 56; shift >= 0; shift -= 8)
            record += static_cast<char>(m_next >> static_cast<unsigned>(shift));
        ++m_next;
        return record += static_cast<char>(kind);
    };
    if (!entry.previousPath.empty() && entry.previousPath != entry.path)
        m_sort.add(begin(entry.previousPath, Kind::Moved));
    auto record = begin(entry.path, entry.isFolder ? Kind::FolderEntry : Kind::File);
    for (const auto &digest : entry.digests) {
        if (digest.action == DigestAction::Failed || entry.isFolder)
            continue;
        m_formats[static_cast<std::size_t>(digest.format)] = true;
        record += static_cast<char>(digest.format);
        record += static_cast<char>(digest.action);
        record += digest.text;
    }
    m_sort.add(record);
}

void KnownFiles::Reader::next()
{
    constexpr std::size_t NumberSize = 8;
    m_file = {};
    m_isThere = static_cast<bool>(m_cursor);
    if (!m_isThere)
        return;
    auto first = m_cursor.record();
    m_file.path = takeSortKey(first);
    for (; m_cursor; m_cursor.next()) {
        auto record = m_cursor.record();
        if (takeSortKey(record) != m_file.path)
            return;
        const auto kind = static_cast<Kind>(record[NumberSize]);
        m_file.isFolder = kind == Kind::FolderEntry || (m_file.isFolder && kind == Kind::Moved);
        m_file.isMoved = kind == Kind::Moved;
        for (record.remove_prefix(NumberSize + 1); record.size() > 2;) {
            ManifestDigest digest;
            digest.format = static_cast<DigestFormat>(record[0]);
            digest.action = static_cast<DigestAction>(record[1]);
            const auto length = lengthOf(digest.format);
            digest.text = record.substr(2, length);
            record.remove_prefix(2 + length);
            m_file.digests.push_back(std::move(digest));
        }
    }
}

std::string HistoryError::text() const
{
    return displayPath(file) + ": " + detail.text();
}

std::vector<std::string> History::ignored() const
{
    const auto &patterns = newest().facts.ignored;
    return patterns.empty() ? IgnorePatterns::defaults() : patterns;
}

const Generation &History::newest() const
{
    return *std::find_if(generations.rbegin(), generations.rend(),
                         [](const Generation &generation) { return generation.isInChain; });
}

std::optional<int> generationOf(std::string_view fileName)
{
    constexpr std::size_t FewestDigits = 4;
    if (!fileName.ends_with(ManifestEnd))
        return std::nullopt;
    int number = 0;
    const auto read = std::from_chars(fileName.data(), fileName.data() + fileName.size(), number);
    const auto digits = static_cast<std::size_t>(read.ptr - fileName.data());
    const auto rest = fileName.substr(digits);
    if (read.ec != std::errc() || number < 1 || digits < FewestDigits ||
        (rest != ManifestEnd && !rest.starts_with('_')))
        return std::nullopt;
    return number;
}

platform::Expected<std::string> digestOfFile(const Folder &volume, const std::string &path,
                                             DigestFormat format)
{
    const auto file = volume.openFile(path, Access::Read);
    if (!file)
        return tl::unexpected(file.error());
    (*file)->dropCached(0, platform::File::ToTheEnd);
    Digest digest(format);
    std::vector<char> block(ReadAtOnce);
    for (std::uint64_t offset = 0;;) {
        const auto count = (*file)->read(std::as_writable_bytes(std::span(block)), offset);
        if (!count)
            return tl::unexpected(count.error());
        digest.add(std::span(block).first(*count));
        if (*count < block.size())
            return digest.text();
        offset += *count;
    }
}

tl::expected<History, HistoryError> readHistory(const Folder &volume, const std::string &root,
                                                KnownFiles &known)
{
    const auto folder = joined(root, HistoryFolder);
    const auto chainPath = joined(HistoryFolder, ChainName);
    const auto there = volume.attributes(folder, platform::Links::DoNotFollow, platform::Want::Basics);
    if (!there || there->type != platform::FileType::Folder)
        return failed(HistoryProblem::NoHistory, std::string(HistoryFolder), {0, "is missing"});
    const auto chainFile = volume.openFile(joined(root, chainPath), Access::Read);
    if (!chainFile)
        return failed(HistoryProblem::NoChain, chainPath,
                      {0, "cannot be opened: " + chainFile.error().reason()});
    auto chain = readChain(**chainFile);
    if (!chain)
        return failed(HistoryProblem::BadChain, chainPath, chain.error());
    if (const auto error = checkChain(volume, root, *chain))
        return Failure(*error);
    History history;
    history.chain = std::move(*chain);
    const auto names = manifestsIn(volume, folder);
    if (!names)
        return failed(HistoryProblem::BadManifest, std::string(HistoryFolder),
                      {0, "cannot be read: " + names.error().reason()});
    KnownFiles unused((std::string()));
    for (const auto &name : *names) {
        const bool isInChain = std::any_of(history.chain.begin(), history.chain.end(),
                                           [&](const auto &named) { return named.path == name; });
        // What the chain does not name is unfinished, or not of this history. It says nothing of the files.
        auto generation = readGeneration(volume, root, name, isInChain ? known : unused);
        if (!generation)
            return Failure(generation.error());
        generation->isInChain = isInChain;
        history.generations.push_back(std::move(*generation));
    }
    if (!known.finish())
        return failed(HistoryProblem::NoSpace, std::string(HistoryFolder),
                      {0, "there is no room to keep what was read of it"});
    if (std::none_of(history.generations.begin(), history.generations.end(),
                     [](const Generation &generation) { return generation.isInChain; }))
        return failed(HistoryProblem::NoHistory, std::string(HistoryFolder),
                      {0, "holds no manifest that its chain names"});
    return history;
}

} // namespace orvana
