#include "platform/DeepFolder.h"

#include <algorithm>

namespace orvana::platform
{

namespace
{

constexpr std::size_t LongPath = 1024;    // bytes; a shorter one begins at the folder itself
constexpr std::size_t BetweenSteps = 512; // bytes of path
constexpr std::size_t MostSteps = 32;     // each is an open folder

bool isBelow(std::string_view path, std::string_view folder)
{
    return path.size() > folder.size() + 1 && path[folder.size()] == '/' && path.starts_with(folder);
}

} // namespace

const Folder &DeepFolder::folderBefore(std::size_t index) const
{
    return index == 0 ? m_start : *m_steps[index - 1].folder;
}

std::size_t DeepFolder::lengthBefore(std::size_t index) const
{
    return index == 0 ? 0 : m_steps[index - 1].length + 1; // and the slash behind it
}

// Notes whether a step is no longer where it was.
void DeepFolder::checkStep(std::size_t index) const
{
    if (m_moved)
        return;
    const auto &step = m_steps[index];
    const auto begin = lengthBefore(index);
    const auto name = std::string_view(m_path).substr(begin, step.length - begin);
    const auto there = folderBefore(index).attributes(name, Links::Follow, Want::Basics);
    const auto own = step.folder->attributes(".", Links::Follow, Want::Basics);
    if (own && (!there || there->device != own->device || there->inode != own->inode))
        m_moved = m_path.substr(0, step.length);
}

// Drops the steps that do not lie on the way to `path`. The last step lies below all others.
void DeepFolder::leaveStepsBeside(std::string_view path) const
{
    while (!m_steps.empty() && !isBelow(path, std::string_view(m_path).substr(0, m_steps.back().length))) {
        checkStep(m_steps.size() - 1);
        m_steps.pop_back();
    }
    m_path.resize(m_steps.empty() ? 0 : m_steps.back().length);
}

// Drops every second step of the upper half, so that the distances grow towards the top of the tree.
void DeepFolder::thinOut() const
{
    for (std::size_t index = m_steps.size() / 2; index-- > 0;) {
        if (index % 2 == 1)
            continue;
        checkStep(index);
        m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(index));
    }
}

DeepFolder::Place DeepFolder::nearest(std::string_view path) const
{
    if (path.size() < LongPath)
        return {nullptr, path};
    const std::lock_guard lock(m_mutex);
    leaveStepsBeside(path);
    for (;;) {
        const auto begin = lengthBefore(m_steps.size());
        auto rest = path.substr(begin);
        const auto end = rest.size() > BetweenSteps ? rest.rfind('/', BetweenSteps) : std::string_view::npos;
        // A name that is too long, or two slashes, are left to the system.
        if (end == std::string_view::npos || end == 0)
            break;
        auto opened = folderBefore(m_steps.size()).openFolder(rest.substr(0, end));
        if (!opened)
            break;
        m_path = path.substr(0, begin + end);
        m_steps.push_back({m_path.size(), std::move(*opened)});
        if (m_steps.size() > MostSteps)
            thinOut();
    }
    if (m_steps.empty())
        return {nullptr, path};
    return {m_steps.back().folder, path.substr(m_steps.back().length + 1)};
}

// A link may lead out of the step and still stay within the folder. So what leads out is asked again from the
// start.
template <typename Ask>
auto DeepFolder::asked(std::string_view path, Ask ask) const
{
    const auto place = nearest(path);
    if (!place.step)
        return ask(static_cast<const Folder &>(m_start), path);
    auto answer = ask(static_cast<const Folder &>(*place.step), place.rest);
    if (!answer && answer.error().problem == FileProblem::LeadsOutOfVolume)
        return ask(static_cast<const Folder &>(m_start), path);
    return answer;
}

std::optional<std::string> DeepFolder::movedFolder()
{
    const std::lock_guard lock(m_mutex);
    for (std::size_t index = m_steps.size(); index-- > 0;)
        checkStep(index);
    return m_moved;
}

Expected<Attributes> DeepFolder::attributes(std::string_view path, Links links, Want want) const
{
    return asked(path, [&](const Folder &folder, std::string_view rest) {
        return folder.attributes(rest, links, want);
    });
}

Expected<std::string> DeepFolder::realPath(std::string_view path) const
{
    return asked(path, [](const Folder &folder, std::string_view rest) { return folder.realPath(rest); });
}

Expected<NameList> DeepFolder::list(std::string_view path) const
{
    return asked(path, [](const Folder &folder, std::string_view rest) { return folder.list(rest); });
}

Expected<std::unique_ptr<Folder>> DeepFolder::openFolder(std::string_view path) const
{
    return asked(path, [](const Folder &folder, std::string_view rest) { return folder.openFolder(rest); });
}

Expected<std::unique_ptr<File>> DeepFolder::openFile(std::string_view path, Access access) const
{
    return asked(path,
                 [&](const Folder &folder, std::string_view rest) { return folder.openFile(rest, access); });
}

Expected<std::unique_ptr<File>> DeepFolder::createFile(std::string_view path, const Attributes &like) const
{
    return asked(path,
                 [&](const Folder &folder, std::string_view rest) { return folder.createFile(rest, like); });
}

Expected<void> DeepFolder::makeFolder(std::string_view path, const Attributes &like) const
{
    return asked(path,
                 [&](const Folder &folder, std::string_view rest) { return folder.makeFolder(rest, like); });
}

Expected<void> DeepFolder::finishFolder(std::string_view path, const Attributes &like) const
{
    return asked(
        path, [&](const Folder &folder, std::string_view rest) { return folder.finishFolder(rest, like); });
}

Expected<std::string> DeepFolder::linkText(std::string_view path) const
{
    return asked(path, [](const Folder &folder, std::string_view rest) { return folder.linkText(rest); });
}

Expected<void> DeepFolder::makeLink(std::string_view path, const std::string &text) const
{
    return asked(path,
                 [&](const Folder &folder, std::string_view rest) { return folder.makeLink(rest, text); });
}

Expected<Metadata> DeepFolder::metadata(std::string_view path, Keep keep) const
{
    return asked(path,
                 [&](const Folder &folder, std::string_view rest) { return folder.metadata(rest, keep); });
}

Expected<MissingParts> DeepFolder::apply(std::string_view path, const Metadata &metadata, Keep keep) const
{
    return asked(path, [&](const Folder &folder, std::string_view rest) {
        return folder.apply(rest, metadata, keep);
    });
}

Expected<void> DeepFolder::remove(std::string_view path) const
{
    return asked(path, [](const Folder &folder, std::string_view rest) { return folder.remove(rest); });
}

} // namespace orvana::platform
