#pragma once

#include "duplicate/journal/JournalFile.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// The subject of a journal: the source of its run, and the destinations whose copies it lists.
struct JournalHead
{
    struct Destination
    {
        std::size_t number = 0;
        JournalPlace place;
    };

    std::string name; ///< of its files, without their endings
    JournalPlace source;
    std::string job;                       ///< the run as a job; empty if it is none, or a very long one
    std::vector<Destination> destinations; ///< without those that were ended
    std::size_t nextNumber = 0;            ///< no destination has had this number

    /// Returns the destination that `place` is, or null.
    const Destination *find(const JournalPlace &place) const;
};

/// The journals of a station, one for each run that did not come to a good end. A journal consists of two
/// files: "<name>.head" says what it is about, "<name>.copies" lists the copies that are on their disks.
class Journals
{
public:
    /// Opens the folder of the journals, which is made if it is not there. Fails with the reason.
    static tl::expected<Journals, std::string> open(platform::VolumeFiles &files, const std::string &folder);

    /// Returns the newest journal with this source and at least one of the destinations.
    std::optional<JournalHead> find(const JournalPlace &source,
                                    const std::vector<JournalPlace> &destinations) const;

    /// Returns what all journals are about, the oldest first.
    std::vector<JournalHead> heads() const;

    /// Makes a journal. `job` is the run as a job, or empty. Older journals than the newest few are removed.
    platform::Expected<JournalHead>
    create(const JournalPlace &source, const std::vector<JournalPlace> &destinations, const std::string &job);

    /// Adds a destination to the journal and returns its number.
    platform::Expected<std::size_t> addDestination(JournalHead &head, const JournalPlace &place) const;

    platform::Expected<JournalFile> openCopies(const JournalHead &head) const;

    /// Voids what the journals, besides the one called `except`, say of these places. To be called before
    /// anything is written there. A journal that has no destination any more is removed.
    void end(const std::vector<JournalPlace> &places, const std::string &except) const;

    void remove(const std::string &name) const;

private:
    explicit Journals(std::unique_ptr<platform::Folder> folder) : m_folder(std::move(folder)) {}

    std::optional<JournalHead> headOf(const std::string &name) const;
    void prune() const;

    std::unique_ptr<platform::Folder> m_folder;
};

} // namespace orvana
