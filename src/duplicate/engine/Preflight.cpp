#include "duplicate/engine/Preflight.h"

#include "duplicate/engine/NameRules.h"
#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/SelectionWalk.h"
#include "foundation/SizeText.h"
#include "foundation/WorkerThread.h"

#include <algorithm>

namespace orvana
{

using platform::Attributes;
using platform::FileProblem;
using platform::FileType;
using platform::Links;
using platform::VolumeFamily;
using platform::Want;

Preflight::Preflight(RunContext &run) : m_run(run)
{
    for (auto &target : run.targets()) {
        if (target.destination.isOpen())
            m_rooms.push_back({&target, target.destination.traits(), 0, false, {}});
    }
}

void Preflight::look()
{
    if (m_run.manner().preflight == PreflightAction::Off)
        return;
    const auto visit = [this](const std::string &path, const Attributes &attributes) {
        WorkerThread::exitIfCancelled();
        lookAt(path, attributes);
    };
    SelectionWalk(m_run.setup().host, m_run.setup().includeHidden, visit, [] {
        return false;
    }).visit(m_run.job());
    for (auto &room : m_rooms)
        lookAtSpace(room);
    decide();
}

void Preflight::lookAt(const std::string &path, const Attributes &attributes)
{
    if (path == m_run.job().SrcDiskPath)
        return;
    auto folder = path.substr(0, path.rfind('/'));
    if (folder != m_folder) {
        m_folder = std::move(folder);
        for (auto &room : m_rooms)
            room.keys.clear();
    }
    for (auto &room : m_rooms)
        lookAt(room, path, attributes);
}

void Preflight::lookAt(Room &room, const std::string &path, const Attributes &attributes)
{
    const auto family = room.traits.family;
    const auto name = std::string_view(path).substr(path.rfind('/') + 1);
    if (const auto fault = faultOfName(name, family))
        tell(room, path, *fault);
    else if (auto key = keyOfName(name, family); key != name && !room.keys.insert(std::move(key)).second)
        tell(room, path, "The volume does not tell it from another name of its folder");
    const auto block = std::max<std::uint64_t>(room.traits.blockSize, 1);
    if (attributes.type == FileType::Folder) {
        room.needed += block;
        return;
    }
    if (attributes.type != FileType::Regular)
        return;
    if (const auto largest = largestFileOf(family); largest && attributes.size > *largest)
        tell(room, path, "The file is larger than the volume can hold: " + sizeText(attributes.size));
    const bool keepsHoles = m_run.keeper().keepsAll() && family == VolumeFamily::Unix;
    const auto size = keepsHoles ? std::min(attributes.size, attributes.allocated) : attributes.size;
    const auto taken = (size + block - 1) / block * block;
    room.needed += taken - std::min(taken, takenBy(room, path));
}

// An existing copy is written over in its place.
std::uint64_t Preflight::takenBy(const Room &room, const std::string &path) const
{
    auto &destination = room.target->destination;
    const auto copy = m_run.copyOf(*room.target, path);
    const auto place = destination.placeOf(copy);
    if (!place)
        return 0;
    const auto there = destination.volume()->attributes(*place, Links::Follow, Want::Basics);
    return there ? there->allocated : 0;
}

void Preflight::lookAtSpace(Room &room)
{
    const auto free = room.target->destination.volume()->freeBytes();
    if (free && room.needed > *free)
        tell(room, m_run.job().SrcDiskPath,
             sizeText(room.needed - *free) + " of space are missing for the selection");
}

void Preflight::tell(Room &room, const std::string &path, const std::string &reason)
{
    room.isLacking = true;
    m_run.report().cannotHold(room.target->index, path, reason);
}

void Preflight::decide()
{
    const auto action = m_run.manner().preflight;
    const bool isAnyLacking =
        std::any_of(m_rooms.begin(), m_rooms.end(), [](const Room &room) { return room.isLacking; });
    if (action == PreflightAction::GoOn || !isAnyLacking)
        return;
    for (const auto &room : m_rooms) {
        if (room.isLacking)
            m_run.leaveOutTarget(*room.target, FileProblem::CannotHold);
        else if (action == PreflightAction::Stop)
            m_run.leaveOutTarget(*room.target, FileProblem::NotStarted);
    }
}

} // namespace orvana
