#include "duplicate/engine/RunJournal.h"

#include "duplicate/engine/Target.h"
#include "foundation/SystemLog.h"

#include <algorithm>
#include <utility>

namespace orvana
{

using platform::Attributes;
using platform::FileType;
using platform::Links;
using platform::Want;

namespace
{

// Bytes that a file counts besides its content, so that many empty files make a group, too.
constexpr std::uint64_t WeightOfAFile = 4096;

// On a volume without a disk nothing is synced. Its records still come in groups, because the station's disk
// is waited for after each.
constexpr std::uint64_t GroupInMemory = 16'777'216;

} // namespace

/// The records of one target that are not in the journal yet.
class RunJournal::Lane final : public SyncListener
{
public:
    Lane(RunJournal &journal, std::size_t number, JournalIndex::Last last, bool goesOn)
        : m_journal(journal), m_number(number), m_last(last), m_goesOn(goesOn)
    {
    }

    std::size_t number() const { return m_number; }

    /// True when an earlier run has recorded copies of this destination.
    bool goesOn() const { return m_goesOn; }

    void add(JournalRecord record)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_isBroken)
            m_waiting.push_back(std::move(record));
    }

    /// True when enough has come together for a group. `bytes` are those of the copy that was added.
    bool isGroupFull(std::uint64_t bytes)
    {
        m_weight += bytes + WeightOfAFile;
        if (m_weight < GroupInMemory)
            return false;
        m_weight = 0;
        return true;
    }

    void breakOff()
    {
        const std::lock_guard lock(m_mutex);
        m_isBroken = true;
        m_waiting.clear();
        m_underWay.clear();
    }

    void syncStarts() override
    {
        const std::lock_guard lock(m_mutex);
        m_underWay.insert(m_underWay.end(), std::make_move_iterator(m_waiting.begin()),
                          std::make_move_iterator(m_waiting.end()));
        m_waiting.clear();
    }

    void syncEnded(bool isOnDisk) override
    {
        if (!isOnDisk)
            return breakOff();
        std::string lines;
        {
            const std::lock_guard lock(m_mutex);
            if (m_underWay.empty())
                return;
            ++m_last.group;
            for (auto &record : m_underWay) {
                record.destination = m_number;
                record.group = m_last.group;
                record.bytes = m_last.bytes += record.copy.size;
                lines += lineOf(record);
            }
            m_underWay.clear();
        }
        m_journal.write(lines);
    }

private:
    RunJournal &m_journal;
    const std::size_t m_number;
    JournalIndex::Last m_last;
    const bool m_goesOn;
    std::uint64_t m_weight = 0; ///< of the copies since the last group; only without a pump
    std::mutex m_mutex;
    bool m_isBroken = false;
    std::vector<JournalRecord> m_waiting;  ///< for the next sync
    std::vector<JournalRecord> m_underWay; ///< of the running sync
};

RunJournal::RunJournal(const JournalOrder &order, platform::VolumeFiles &files, std::deque<Target> &targets)
{
    m_lanes.resize(targets.size());
    auto opened = Journals::open(files, order.folder);
    if (!opened) {
        systemLog("There is no journal of this run: " + opened.error());
        return;
    }
    m_journals.emplace(std::move(*opened));
    std::vector<JournalPlace> places;
    for (const auto &target : targets) {
        if (target.destination.isOpen() && target.index < order.destinations.size())
            places.push_back(order.destinations[target.index]);
    }
    const auto earlier = order.resume ? m_journals->find(order.source, places) : std::nullopt;
    if (earlier)
        m_head = *earlier;
    m_journals->end(places, m_head.name);
    if (places.empty() || !hasJournal(order, places))
        return;
    m_isSourceNamed = isNamed(order.source);
    if (const auto source = files.openFolder(order.source.root, platform::Reach::Beneath);
        source && (*source)->traits().hasStableInodes)
        m_sourceDevice = (*source)->traits().device;
    joinTargets(order, targets, earlier.has_value());
}

RunJournal::~RunJournal() = default;

bool RunJournal::hasJournal(const JournalOrder &order, const std::vector<JournalPlace> &places)
{
    const bool goesOn = !m_head.name.empty();
    if (!goesOn) {
        auto made = m_journals->create(order.source, places, order.job);
        if (made)
            m_head = std::move(*made);
    }
    auto copies = m_journals->openCopies(m_head);
    if (!copies) {
        systemLog("There is no journal of this run: " + copies.error().reason());
        m_head.name.clear();
        return false;
    }
    m_copies.emplace(std::move(*copies));
    if (goesOn) {
        m_index.emplace(*m_copies, order.folder);
        write(resumedLine());
    }
    return true;
}

void RunJournal::joinTargets(const JournalOrder &order, std::deque<Target> &targets, bool goesOn)
{
    for (auto &target : targets) {
        if (!target.destination.isOpen() || target.index >= order.destinations.size())
            continue;
        const auto &place = order.destinations[target.index];
        const auto *known = m_head.find(place);
        const auto number = known ? tl::expected<std::size_t, platform::FileError>(known->number)
                                  : m_journals->addDestination(m_head, place);
        if (!number)
            continue;
        auto &lane = m_lanes[target.index];
        lane = std::make_unique<Lane>(
            *this, *number, m_index ? m_index->lastOf(*number) : JournalIndex::Last(), goesOn && known);
        if (target.pump)
            target.pump->setListener(lane.get());
    }
}

void RunJournal::decide(Target &target, std::string_view place, const Attributes &source,
                        const CopyDemand &demand) const
{
    const auto *lane = m_lanes[target.index].get();
    if (!lane || !lane->goesOn())
        return;
    // The earlier run may have begun this copy. So it is compared, unless the journal vouches for it.
    target.work = CopyWork::Compare;
    const auto found = m_index->find(lane->number(), place);
    if (!found || found->isRecent || !target.destination.traits().hasStableInodes)
        return;
    const auto &record = found->record;
    auto marks = marksOf(source);
    const bool keepsInodes = m_sourceDevice && source.device == *m_sourceDevice;
    if (!keepsInodes)
        marks.inode = record.source.inode;
    if (!(keepsInodes || m_isSourceNamed) || record.source != marks || record.keep < demand.keep ||
        !(demand.digestName.empty() || record.digest.starts_with(demand.digestName + ":")))
        return;
    const auto copy = target.destination.volume()->attributes(place, Links::DoNotFollow, Want::Basics);
    if (!copy || copy->type != FileType::Regular || marksOf(*copy) != record.copy ||
        copy->size != source.size)
        return;
    target.work = CopyWork::None;
    target.copyInHand = *copy;
    target.isVerifiedBefore = record.check == CopyCheck::FromDisk;
    target.digestBefore = record.digest;
}

void RunJournal::note(Target &target, std::string_view place, const Attributes &source, const CopyCare &care)
{
    auto *lane = m_lanes[target.index].get();
    const auto &traits = target.destination.traits();
    // On other volumes a later run could not tell that the copy is unchanged.
    if (!lane || !target.copyInHand || !traits.hasStableInodes || !(target.pump || traits.isMemory))
        return;
    JournalRecord record;
    record.check = care.check;
    record.keep = care.keep;
    record.source = marksOf(source);
    record.copy = marksOf(*target.copyInHand);
    record.digest = care.digest;
    record.path = place;
    lane->add(std::move(record));
    if (target.pump) {
        target.pump->noteWritten(WeightOfAFile);
    } else if (lane->isGroupFull(target.copyInHand->size)) {
        lane->syncStarts();
        lane->syncEnded(true);
    }
}

void RunJournal::breakOff(const Target &target)
{
    if (auto *lane = m_lanes[target.index].get())
        lane->breakOff();
}

void RunJournal::write(const std::string &lines)
{
    const std::lock_guard lock(m_writing);
    if (m_hasFailed)
        return;
    const auto written = m_copies->append(lines);
    if (written)
        return;
    m_hasFailed = true;
    systemLog("The journal of this run ends here: " + written.error().reason());
}

void RunJournal::end(bool isWhole)
{
    // Only volumes without a disk have records left; the others were synced before.
    for (auto &lane : m_lanes) {
        if (lane && !isWhole) {
            lane->syncStarts();
            lane->syncEnded(true);
        }
    }
    if (isWhole && !m_head.name.empty())
        m_journals->remove(m_head.name);
}

} // namespace orvana
