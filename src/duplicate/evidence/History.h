#pragma once

#include "duplicate/evidence/DiskSort.h"
#include "duplicate/evidence/MhlReader.h"

#include <array>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// The name of the folder that holds the history of the folder around it.
inline constexpr std::string_view HistoryFolder = "ascmhl";
inline constexpr std::string_view ChainName = "ascmhl_chain.xml";

/// What the generations of a history know of one path.
struct KnownFile
{
    std::string path; ///< below the folder of the history, or with it, see `KnownFiles::setFolder`
    bool isFolder = false;
    bool isMoved = false;                ///< a later generation knows the file under another name
    std::vector<ManifestDigest> digests; ///< of all generations, the oldest first; without failed ones

    /// The digest that the file is checked with: the first original one. Null if there is none.
    const ManifestDigest *toCheckWith() const;
    const ManifestDigest *inFormat(DigestFormat format) const;
};

/// What all generations of a history know, in order of the paths, in more entries than memory should hold.
class KnownFiles
{
public:
    /// Keeps what is too much for memory in a file without a name in `folder`.
    explicit KnownFiles(const std::string &folder);

    /// The folder of the history whose generations come next. The paths of the files begin with it. Empty to
    /// begin with.
    void setFolder(const std::string &folder) { m_folder = folder; }

    /// Generations are added in their order.
    void add(const ManifestEntry &entry);
    bool finish() { return m_sort.finish(); }

    /// True when at least one file has a digest of the format.
    bool holds(DigestFormat format) const { return m_formats[static_cast<std::size_t>(format)]; }
    bool hasDigests() const { return m_formats != decltype(m_formats){}; }

    class Reader;

private:
    DiskSort m_sort;
    std::string m_folder;
    std::uint64_t m_next = 0;
    std::array<bool, AllDigestFormats.size()> m_formats{};
};

/// Reads what is known, path by path, folders before their content.
class KnownFiles::Reader
{
public:
    explicit Reader(const KnownFiles &files) : m_cursor(files.m_sort) { next(); }

    /// True while there is a file.
    explicit operator bool() const { return m_isThere; }
    const KnownFile &file() const { return m_file; }
    void next();
    bool hasFailed() const { return m_cursor.hasFailed(); }

private:
    DiskSort::Cursor m_cursor;
    KnownFile m_file;
    bool m_isThere = false;
};

enum class HistoryProblem {
    NoHistory,
    NoChain,
    BadChain,
    ManifestMissing, ///< the chain names it
    ManifestChanged, ///< the chain has another digest of it
    BadManifest,
    NoSpace, ///< what was read could be kept neither in memory nor on the station's disk
};

/// Why a history is of no use.
struct HistoryError
{
    HistoryProblem problem = HistoryProblem::NoHistory;
    std::string file; ///< below the folder of the history
    ManifestError detail;

    /// "ascmhl/0001_CARD_2026-11-21_193912Z.mhl: line 12: the path is missing"
    std::string text() const;
};

struct Generation
{
    int number = 0;
    std::string name;       ///< file name of the manifest
    std::string c4;         ///< of the manifest as it is
    bool isInChain = false; ///< else it says nothing of the files
    ManifestFacts facts;
};

/// The generations of a folder's history.
struct History
{
    std::vector<Generation> generations; ///< in their order
    std::vector<MhlReference> chain;

    /// The newest generation that the chain names. There is one in every history that could be read.
    const Generation &newest() const;

    /// The patterns of the newest generation; those of every history if it has none.
    std::vector<std::string> ignored() const;
};

/// Reads the history of the folder `root` of the volume, checks every manifest against the chain, and adds
/// what the generations know to `known`. `root` is empty for the volume's own root.
tl::expected<History, HistoryError> readHistory(const platform::Folder &volume, const std::string &root,
                                                KnownFiles &known);

/// Returns the generation's number if the name is that of a manifest, as "0001_CARD_2026-11-21_193912Z.mhl".
std::optional<int> generationOf(std::string_view fileName);

/// Returns the digest of the whole file. Reads from the disk where the file system lets it.
platform::Expected<std::string> digestOfFile(const platform::Folder &volume, const std::string &path,
                                             DigestFormat format);

} // namespace orvana
