#pragma once

#include "duplicate/journal/JournalFile.h"
#include "duplicate/line/LineEntry.h"
#include "platform/VolumeFiles.h"

#include <memory>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// How far a line has come.
enum class LineState {
    Open,
    Paused, ///< no new disk is taken
    Ended,
};

/// "open", "paused", "ended"
const char *wordOf(LineState state);

/// The wish of another program to the program that runs a line.
enum class LineWish { None, Pause, Resume, End };

/// A line on the station's disk: a folder of its own with what happened so far and the ledger in both
/// formats. What happened is the truth; a ledger that lacks something is written anew from it. After each
/// call that adds something, it is on the station's disk. Main thread only.
///
/// Only one program at a time may run a line. Others may look at it and leave a wish.
class LineStore
{
public:
    enum class Use { Look, Run };

    /// Makes a line, to be run by this program. `head.id` and `head.station` are filled in. `folder` is the
    /// station's state folder. Errors name the folder or file and the reason.
    static tl::expected<LineStore, std::string> create(platform::VolumeFiles &files,
                                                       const std::string &folder, LineHead head);

    /// Opens the line with this id. With Use::Run, disks that were in work when the program ended get the
    /// verdict "failed"; fails when another program runs the line.
    static tl::expected<LineStore, std::string> open(platform::VolumeFiles &files, const std::string &folder,
                                                     const std::string &id, Use use);

    /// Returns the ids of the station's lines, the oldest first.
    static std::vector<std::string> idsIn(platform::VolumeFiles &files, const std::string &folder);

    const LineHead &head() const { return m_head; }
    const std::vector<LineEntry> &entries() const { return m_entries; }
    LineCounts counts() const { return countsOf(m_head.wanted, m_entries); }
    LineState state() const { return m_state; }

    /// Returns the newest entry of the disk with this serial number, or null.
    const LineEntry *entryOf(const std::string &serial) const;

    /// Returns the number that the next disk gets.
    std::int64_t nextNumber() const { return m_nextNumber; }

    /// Notes that the disk is about to be written. Its number must be `nextNumber()`.
    tl::expected<void, std::string> begin(const LineDisk &disk);

    /// Notes the end of a disk that was begun, and adds its row to the ledgers.
    tl::expected<void, std::string> end(std::int64_t number, const LineResult &result);

    tl::expected<void, std::string> setState(LineState state);

    /// Leaves a wish for the program that runs the line. An earlier wish is replaced.
    tl::expected<void, std::string> wish(LineWish wish) const;

    /// Returns the wish that was left, and forgets it.
    LineWish takeWish() const;

    /// The line's own folder, and the ledgers in it.
    const std::string &path() const { return m_path; }
    std::string csvPath() const { return m_path + "/ledger.csv"; }

    /// True when another program runs the line. Only for a line that was opened with Use::Look.
    bool isRunning(platform::VolumeFiles &files) const;

private:
    LineStore(std::string path, std::unique_ptr<platform::Folder> folder)
        : m_path(std::move(path)), m_folder(std::move(folder))
    {
    }

    tl::expected<void, std::string> load(Use use);
    void take(std::string_view body);
    tl::expected<void, std::string> note(const std::string &body);
    tl::expected<void, std::string> endDisksInWork();
    tl::expected<void, std::string> repairLedgers() const;
    std::string failure(const std::string &name, const platform::FileError &error) const;

    std::string m_path;
    std::unique_ptr<platform::Folder> m_folder;
    std::unique_ptr<platform::FolderLock> m_lock;
    std::optional<JournalFile> m_events;
    LineHead m_head;
    std::vector<LineEntry> m_entries;
    LineState m_state = LineState::Open;
    std::int64_t m_nextNumber = 1;
};

/// Removes the certificate of a disk from the line's folder of certificates, if there is one.
void removeCertificate(const LineHead &head, std::int64_t number);

/// Returns the id of this station: eight hexadecimal digits that were drawn once and are kept in its state
/// folder.
tl::expected<std::string, std::string> stationId(platform::VolumeFiles &files, const std::string &folder);

} // namespace orvana
