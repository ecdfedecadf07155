#include "duplicate/plan/DiskContent.h"

#include "foundation/SizeText.h"
#include "platform/Host.h"
#include "platform/VolumeFiles.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace orvana
{

namespace
{

using platform::FileType;
using platform::Links;
using platform::Want;
using Clock = std::chrono::steady_clock;

constexpr const char *MadeByTheFormat = "lost+found";

/// The part of one disk that the survey's thread looks at.
struct DiskToSurvey
{
    std::vector<std::string> mountPoints;
    DiskContent known; ///< from the records alone
};

DiskToSurvey diskToSurvey(const ORVHddInfo &disk)
{
    DiskToSurvey survey;
    const auto &volumes = disk.bsdPathArray();
    survey.known.isBlank = volumes.empty() && disk.isUnFormated() && !disk.hasOtherPartitions();
    survey.known.isKnown =
        survey.known.isBlank || (!volumes.empty() && !disk.hasOtherPartitions() && !disk.isRaidFormated());
    for (const auto &volume : volumes) {
        if (volume->mountPoint() && !volume->mountPoint()->empty()) {
            survey.mountPoints.push_back(*volume->mountPoint());
            survey.known.usedBytes += bytesOfBlocks(volume->usedSize());
        } else {
            survey.known.isKnown = false;
        }
    }
    return survey;
}

} // namespace

/// The state that the survey and its thread share. It lives as long as either of them.
struct DiskSurvey::Shared
{
    std::vector<DiskToSurvey> disks;
    Clock::time_point end = Clock::now() + TimeToCount;
    std::atomic<bool> isCalledOff{false};

    mutable std::mutex mutex;
    mutable std::condition_variable changed;
    std::vector<DiskContent> contents;
    bool isDone = false;

    bool isTimeOver() const { return isCalledOff || Clock::now() >= end; }

    void run(platform::VolumeFiles &files);
    bool countVolume(platform::VolumeFiles &files, const std::string &point, std::size_t index,
                     bool &isEmpty);
    bool countFolder(platform::Folder &volume, const std::string &path, std::size_t index,
                     std::vector<std::string> &folders);
};

// Returns false when the time was over, or something could not be read.
bool DiskSurvey::Shared::countFolder(platform::Folder &volume, const std::string &path, std::size_t index,
                                     std::vector<std::string> &folders)
{
    const auto folder = volume.openFolder(path);
    auto names = folder ? (*folder)->list(".") : tl::unexpected(folder.error());
    if (!names || names->error())
        return false;
    while (!names->empty()) {
        if (isTimeOver())
            return false;
        const std::string name(names->takeNext());
        const auto attributes = (*folder)->attributes(name, Links::DoNotFollow, Want::Basics);
        if (attributes && attributes->type == FileType::Folder) {
            folders.push_back(std::string(path).append("/").append(name));
        } else {
            const std::lock_guard lock(mutex);
            ++contents[index].files;
        }
    }
    return true;
}

bool DiskSurvey::Shared::countVolume(platform::VolumeFiles &files, const std::string &point,
                                     std::size_t index, bool &isEmpty)
{
    const auto volume = files.openFolder(point, platform::Reach::Beneath);
    auto names = volume ? (*volume)->list(".") : tl::unexpected(volume.error());
    if (!names || names->error()) {
        const std::lock_guard lock(mutex);
        contents[index].isKnown = false;
        isEmpty = false;
        return false;
    }
    while (!names->empty())
        isEmpty = names->takeNext() == MadeByTheFormat && isEmpty;
    std::vector<std::string> folders{"."};
    bool isComplete = true;
    while (!folders.empty() && !isTimeOver()) {
        const auto folder = std::move(folders.back());
        folders.pop_back();
        isComplete = countFolder(**volume, folder, index, folders) && isComplete;
    }
    return isComplete && folders.empty();
}

void DiskSurvey::Shared::run(platform::VolumeFiles &files)
{
    for (std::size_t i = 0; i < disks.size(); ++i) {
        bool isEmpty = !disks[i].mountPoints.empty();
        bool isComplete = !disks[i].mountPoints.empty();
        for (const auto &point : disks[i].mountPoints)
            isComplete = countVolume(files, point, i, isEmpty) && isComplete;
        const std::lock_guard lock(mutex);
        auto &content = contents[i];
        content.isBlank = disks[i].known.isBlank || (isEmpty && content.isKnown);
        content.isCountComplete = isComplete;
    }
    const std::lock_guard lock(mutex);
    isDone = true;
    changed.notify_all();
}

DiskSurvey::DiskSurvey(platform::Host &host, const std::vector<std::shared_ptr<ORVHddInfo>> &disks)
    : m_shared(std::make_shared<Shared>())
{
    for (const auto &disk : disks) {
        m_shared->disks.push_back(diskToSurvey(*disk));
        m_shared->contents.push_back(m_shared->disks.back().known);
    }
    const auto survey = [shared = m_shared, &files = host.volumeFiles()] { shared->run(files); };
    try {
        std::thread(survey).detach();
    } catch (const std::system_error &) {
        survey(); // the system has no thread; the survey's time is limited
    }
}

DiskSurvey::~DiskSurvey()
{
    constexpr std::chrono::seconds PatienceAtTheEnd{10};
    m_shared->isCalledOff = true;
    std::unique_lock lock(m_shared->mutex);
    m_shared->changed.wait_for(lock, PatienceAtTheEnd, [this] { return m_shared->isDone; });
}

bool DiskSurvey::isOver() const
{
    return waitUntilOver(std::chrono::milliseconds(0));
}

bool DiskSurvey::waitUntilOver(std::chrono::milliseconds limit) const
{
    std::unique_lock lock(m_shared->mutex);
    const auto end = std::min(Clock::now() + limit, m_shared->end);
    return m_shared->changed.wait_until(lock, end, [&] { return m_shared->isDone; }) ||
           Clock::now() >= m_shared->end;
}

std::vector<DiskContent> DiskSurvey::results() const
{
    const std::lock_guard lock(m_shared->mutex);
    return m_shared->contents;
}

std::string contentText(const DiskContent &content)
{
    if (content.isBlank)
        return "nothing";
    if (!content.isKnown)
        return content.usedBytes > 0 ? sizeText(content.usedBytes) + ", and something that is not mounted"
                                     : "something that is not mounted, or cannot be read";
    const auto count = std::to_string(content.files) + (content.files == 1 ? " file" : " files");
    const std::string atLeast = content.isCountComplete ? "" : "at least ";
    // The listing counts in blocks: less than a block shows as no bytes at all.
    return (content.usedBytes > 0 ? sizeText(content.usedBytes) + " in " : "") + atLeast + count;
}

} // namespace orvana
