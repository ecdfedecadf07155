#pragma once

#include "duplicate/engine/JournalOrder.h"
#include "duplicate/engine/WriteOutPump.h"
#include "duplicate/journal/JournalIndex.h"
#include "duplicate/journal/Journals.h"

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

struct Target;

/// The facts that a journal must know of a copy, so that nothing of it is done again.
struct CopyDemand
{
    std::string digestName; ///< the journal must know this digest; empty for none
    platform::Keep keep = platform::Keep::Nothing;
};

/// What a run has done for a copy besides writing it.
struct CopyCare
{
    std::string digest; ///< "xxh128:..."; empty for none
    CopyCheck check = CopyCheck::None;
    platform::Keep keep = platform::Keep::Nothing;
};

/// The journal of a run: which copies are on their disks. It also says what is left to be done when a run
/// goes on.
///
/// The copy thread calls its functions; pumps call their listeners. A journal that cannot be written is told
/// in the system log, and the run goes on without one.
class RunJournal
{
public:
    /// Opens the journal. Ends what other journals say of the destinations. Targets that are not open have no
    /// part in it.
    RunJournal(const JournalOrder &order, platform::VolumeFiles &files, std::deque<Target> &targets);
    ~RunJournal();
    RunJournal(const RunJournal &) = delete;
    RunJournal &operator=(const RunJournal &) = delete;

    /// Decides what is to be done for the copy of the file in hand at `place` below the target, and notes it
    /// in the target. `source` are the attributes of its source.
    void decide(Target &target, std::string_view place, const platform::Attributes &source,
                const CopyDemand &demand) const;

    /// Notes that the copy of the file in hand is complete. It comes into the journal once it is on the disk.
    void note(Target &target, std::string_view place, const platform::Attributes &source,
              const CopyCare &care);

    /// Ends the records of a target whose disk has lost data.
    void breakOff(const Target &target);

    /// Ends the run. The journal of a run that came to a good end is removed. No pump may be at work.
    void end(bool isWhole);

    /// The name of the folder's journal; empty without one.
    const std::string &name() const { return m_head.name; }

private:
    class Lane;

    bool hasJournal(const JournalOrder &order, const std::vector<JournalPlace> &places);
    void joinTargets(const JournalOrder &order, std::deque<Target> &targets, bool goesOn);
    void write(const std::string &lines);

    std::optional<Journals> m_journals;
    JournalHead m_head;
    std::optional<JournalFile> m_copies;
    std::optional<JournalIndex> m_index; ///< of the run that this one goes on with
    bool m_isSourceNamed = false;
    std::optional<std::uint64_t> m_sourceDevice; ///< if its files keep their inode numbers
    std::mutex m_writing;
    bool m_hasFailed = false;
    std::vector<std::unique_ptr<Lane>> m_lanes; ///< one for each target; null for one without a part
};

} // namespace orvana
