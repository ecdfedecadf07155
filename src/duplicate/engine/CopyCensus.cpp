#include "duplicate/engine/CopyCensus.h"

#include "duplicate/engine/SkipRules.h"
#include "platform/Host.h"

#include <utility>
#include <vector>

namespace orvana
{

using platform::Attributes;
using platform::FileType;
using platform::Links;
using platform::Want;

namespace
{

class Counter
{
public:
    Counter(platform::Host &host, const std::function<bool()> &isCancelled)
        : m_files(host.volumeFiles().workingFolder()), m_rules(host, false), m_isCancelled(isCancelled)
    {
    }

    void countItem(const std::string &item);
    CopyCensus result() const { return m_census; }

private:
    std::optional<Attributes> followed(const std::string &path) const;
    void countTree(const std::string &folder);
    void countEntry(std::string path);
    void countFile(const std::optional<Attributes> &attributes);

    platform::Folder &m_files;
    SkipRules m_rules;
    const std::function<bool()> &m_isCancelled;
    std::vector<std::string> m_waiting;
    CopyCensus m_census;
};

std::optional<Attributes> Counter::followed(const std::string &path) const
{
    const auto attributes = m_files.attributes(path, Links::Follow, Want::Basics);
    return attributes ? std::optional(*attributes) : std::nullopt;
}

void Counter::countFile(const std::optional<Attributes> &attributes)
{
    if (!attributes || attributes->type != FileType::Regular)
        return;
    ++m_census.files;
    m_census.bytes += attributes->size;
}

void Counter::countItem(const std::string &item)
{
    const auto target = followed(item);
    if (!target || target->type != FileType::Folder) {
        countFile(target);
        return;
    }
    auto names = m_files.list(item);
    while (names && !names->empty() && !m_isCancelled()) {
        const std::string name(names->takeNext());
        if (m_rules.examine(name).skip)
            continue;
        const auto path = std::string(item).append("/").append(name);
        const auto entry = followed(path);
        if (entry && entry->type == FileType::Folder)
            countTree(path);
        else
            countFile(entry);
    }
}

void Counter::countTree(const std::string &folder)
{
    m_waiting.push_back(folder);
    while (!m_waiting.empty() && !m_isCancelled()) {
        const auto current = std::move(m_waiting.back());
        m_waiting.pop_back();
        auto names = m_files.list(current);
        while (names && !names->empty())
            countEntry(current + "/" + std::string(names->takeNext()));
    }
}

void Counter::countEntry(std::string path)
{
    const auto verdict = m_rules.examine(path);
    if (verdict.skip)
        return;
    if (verdict.attributes && verdict.attributes->type == FileType::Folder)
        m_waiting.push_back(std::move(path));
    else
        countFile(verdict.attributes);
}

} // namespace

CopyCensus takeCensus(platform::Host &host, const CopyJob &job, const std::function<bool()> &isCancelled)
{
    Counter counter(host, isCancelled);
    for (const auto &item : job.SrcFileArray)
        counter.countItem(item);
    return counter.result();
}

} // namespace orvana
