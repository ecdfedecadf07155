#include "duplicate/engine/TreeWalk.h"

#include "duplicate/engine/RunContext.h"
#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "foundation/WorkerThread.h"

#include <utility>

namespace orvana
{

using platform::Attributes;
using platform::FileType;
using platform::Links;
using platform::NameList;
using platform::Want;

/// The folders between the start of a walk and the entry in hand. A list instead of a recursion: a tree may
/// be deeper than the stack allows. On leaving a folder, also when the run is cancelled, the folders that
/// were made for it on the destinations get their final permissions.
class TreeWalk::FolderStack
{
public:
    FolderStack(TreeWalk &walk, std::string source, OutArray copies)
        : m_walk(walk), m_source(std::move(source)), m_copies(std::move(copies))
    {
    }
    ~FolderStack()
    {
        while (!isEmpty())
            leave();
    }
    FolderStack(const FolderStack &) = delete;
    FolderStack &operator=(const FolderStack &) = delete;

    bool isEmpty() const { return m_levels.empty(); }
    const std::string &source() const { return m_source; }
    const OutArray &copies() const { return m_copies; }
    NameList &names() { return m_levels.back().names; }

    /// The entry in hand. Its name is part of the paths while this object lives. The name of an entered
    /// folder stays until `leave`.
    class Entry
    {
    public:
        Entry(FolderStack &stack, std::string_view name) : m_stack(stack), m_length(name.size())
        {
            stack.append(name);
        }
        ~Entry()
        {
            if (!m_isEntered)
                m_stack.cut(m_length);
        }
        Entry(const Entry &) = delete;
        Entry &operator=(const Entry &) = delete;

        void enter(const Attributes &like)
        {
            m_isEntered = true;
            m_stack.enter(like, m_length);
        }

    private:
        FolderStack &m_stack;
        std::size_t m_length;
        bool m_isEntered = false;
    };

    /// Appends the name of an entry of the folder in hand to the paths.
    void append(std::string_view name)
    {
        const auto add = [&](std::string &path) { path.append("/").append(name); };
        add(m_source);
        for (auto &copy : m_copies) {
            if (copy)
                add(*copy);
        }
    }

    /// Removes the name of an entry from the paths. The name is `length` bytes long.
    void cut(std::size_t length)
    {
        const auto shorten = [&](std::string &path) { path.resize(path.size() - length - 1); };
        shorten(m_source);
        for (auto &copy : m_copies) {
            if (copy)
                shorten(*copy);
        }
    }

    /// Enters the present entry, a folder. It becomes the folder in hand.
    void enter(const Attributes &like, std::size_t nameLength)
    {
        auto *evidence = m_walk.m_run.evidence();
        auto kept = evidence ? evidence->keepForeignHistories(m_walk.m_run.targets(), m_source, m_copies)
                             : KeptCopies();
        auto made = m_walk.makeFolders(m_source, m_copies, like);
        m_levels.push_back({NameList(), std::move(made), like, nameLength, std::move(kept)});
        m_levels.back().names = m_walk.listOf(m_source, m_copies);
    }

    void leave()
    {
        auto &level = m_levels.back();
        m_walk.finishFolders(m_source, m_copies, level.made, level.like);
        for (auto &[index, copy] : level.kept)
            m_copies[index] = std::move(copy);
        // The name of the first folder was not appended to the paths.
        if (m_levels.size() > 1)
            cut(level.nameLength);
        m_levels.pop_back();
    }

private:
    /// Destinations that get no copy of the folder and of what is in it, and the paths that these would have.
    using KeptCopies = std::vector<std::pair<std::size_t, std::string>>;

    struct Level
    {
        NameList names;
        std::vector<bool> made;
        Attributes like;
        std::size_t nameLength;
        KeptCopies kept;
    };

    TreeWalk &m_walk;
    std::string m_source;
    OutArray m_copies;
    std::vector<Level> m_levels;
};

TreeWalk::TreeWalk(RunContext &run)
    : m_run(run), m_rules(run.setup().host, run.setup().includeHidden, run.keeper().keepsAll()),
      m_forbidden(run), m_comparer(run), m_duplicator(run, m_comparer)
{
}

// Returns the item's path on each destination that takes part.
OutArray TreeWalk::copiesOf(const std::string &item) const
{
    OutArray copies;
    for (const auto &target : m_run.targets())
        copies.push_back(target.isLeftOut ? std::nullopt : std::optional(m_run.copyOf(target, item)));
    return copies;
}

void TreeWalk::copySelected(const std::string &item)
{
    if (!m_run.hasDestination())
        return;
    const auto read = m_run.sources().attributes(item, Links::DoNotFollow, Want::HiddenExtension);
    const auto attributes = read.value_or(Attributes());
    const auto copies = copiesOf(item);
    const bool isLink = attributes.type == FileType::SymbolicLink;
    if (isLink && m_run.keeper().keepsAll())
        return copyLink(item, copies, attributes);
    const auto target = isLink ? m_forbidden.followed(item) : read ? std::optional(*read) : std::nullopt;
    if (isLink && target) {
        if (const char *rule = m_forbidden.ruleAgainst(item, *target, true)) {
            m_run.leaveOut(item, rule);
            return;
        }
    }
    if (!target || target->type != FileType::Folder) {
        m_duplicator.copy(item, copies, attributes);
        return;
    }
    const bool isRoot = item == m_run.job().SrcDiskPath;
    const auto made = isRoot ? std::vector<bool>() : makeFolders(item, copies, attributes);
    struct Protect
    {
        TreeWalk &walk;
        const std::string &item;
        const OutArray &copies;
        const std::vector<bool> &made;
        const Attributes &like;
        ~Protect() { walk.finishFolders(item, copies, made, like); }
    } const protect{*this, item, copies, made, attributes};
    copyListedEntries(item, copies);
}

void TreeWalk::copyListedEntries(const std::string &folder, const OutArray &copies)
{
    for (auto names = listOf(folder, copies); !names.empty();) {
        WorkerThread::exitIfCancelled();
        const std::string name(names.takeNext());
        // Entries are tested by their bare name, so a link directly in a ticked folder is not left out.
        if (const auto verdict = m_rules.examine(name); verdict.skip) {
            m_run.leaveOut(std::string(folder).append("/").append(name), verdict.rule);
            continue;
        }
        OutArray entryCopies = copies;
        for (auto &copy : entryCopies) {
            if (copy)
                copy->append("/").append(name);
        }
        copyItem(std::string(folder).append("/").append(name), entryCopies);
    }
}

int TreeWalk::copyItem(const std::string &source, const OutArray &copies)
{
    const auto attributes = m_run.sources().attributes(source, Links::DoNotFollow, Want::HiddenExtension);
    return copyItem(source, copies, attributes.value_or(Attributes()));
}

int TreeWalk::copyItem(const std::string &source, const OutArray &copies, const Attributes &attributes)
{
    const bool isLink = attributes.type == FileType::SymbolicLink;
    if (isLink && m_run.keeper().keepsAll()) {
        copyLink(source, copies, attributes);
        return 1;
    }
    const auto target = isLink ? m_forbidden.followed(source) : attributes;
    if (!target || target->type != FileType::Folder)
        return m_duplicator.copy(source, copies, attributes);
    if (const char *rule = m_forbidden.ruleAgainst(source, *target, isLink))
        m_run.leaveOut(source, rule);
    else
        copyTree(source, copies, attributes);
    return 1;
}

void TreeWalk::copyTree(const std::string &folder, const OutArray &copies, const Attributes &like)
{
    FolderStack stack(*this, folder, copies);
    stack.enter(like, 0);
    while (!stack.isEmpty()) {
        WorkerThread::exitIfCancelled();
        if (stack.names().empty())
            stack.leave();
        else
            copyEntry(stack, stack.names().takeNext());
    }
}

void TreeWalk::copyEntry(FolderStack &stack, std::string_view name)
{
    FolderStack::Entry entry(stack, name);
    const auto ahead = m_duplicator.readAhead().entryAt(stack.source()); // spares asking again
    const auto verdict = ahead ? m_rules.examine(stack.source(), ahead) : m_rules.examine(stack.source());
    const auto attributes = verdict.attributes.value_or(Attributes());
    const bool isFolder = verdict.attributes && attributes.type == FileType::Folder;
    const char *rule = verdict.skip ? verdict.rule
                       : isFolder   ? m_forbidden.ruleAgainst(stack.source(), attributes, false)
                                    : nullptr;
    if (rule) {
        m_run.leaveOut(stack.source(), rule);
    } else if (attributes.type == FileType::SymbolicLink) {
        m_run.keeper().copyLink(stack.source(), stack.copies());
    } else if (!isFolder) {
        planNext(stack, name.size());
        m_duplicator.copy(stack.source(), stack.copies(), attributes);
    } else {
        entry.enter(attributes);
    }
}

// A run that goes on copies few files, and reads no others.
void TreeWalk::planNext(FolderStack &stack, std::size_t nameLength)
{
    const auto &journal = m_run.setup().journal;
    if (stack.names().empty() || (journal && journal->resume))
        return m_duplicator.readAhead().plan({});
    const auto &path = stack.source();
    m_duplicator.readAhead().plan(path.substr(0, path.size() - nameLength).append(stack.names().next()));
}

NameList TreeWalk::listOf(const std::string &folder, const OutArray &copies)
{
    auto names = m_run.sources().list(folder);
    const auto error = names ? names->error() : std::optional(names.error());
    if (!error)
        return std::move(*names);
    const auto reason =
        (names ? "The folder cannot be read to its end: " : "The folder cannot be read: ") + error->reason();
    systemLog("Open of " + displayPath(folder) + " for reading failed");
    m_run.forEachCopy(copies, [&](const Target &target, const std::string &) {
        m_run.report().failed(target.index, folder, reason);
    });
    noteFolder(copies, Attributes(), std::vector(copies.size(), CopyState::Bad));
    return names ? std::move(*names) : NameList();
}

std::vector<bool> TreeWalk::makeFolders(const std::string &source, const OutArray &copies,
                                        const Attributes &like)
{
    std::vector<bool> made(copies.size(), false);
    std::vector states(copies.size(), CopyState::Bad);
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        // What is written into the folder must not go to the place that a link leads to.
        if (m_run.keeper().keepsAll())
            target.destination.removeLink(copy);
        const auto created = target.destination.createFolder(copy, like);
        if (created) {
            made[target.index] = *created != Destination::Made::Existed;
            states[target.index] = *created == Destination::Made::New ? CopyState::New : CopyState::Good;
            return;
        }
        // An existing file in the folder's place is left alone. Only the report mentions it, not the system
        // log.
        if (!target.destination.holds(copy))
            systemLog("Create " + displayPath(copy) + " Folder Fail \n");
        m_run.report().failed(target.index, source,
                              "The folder cannot be created: " + created.error().reason());
    });
    noteFolder(copies, like, states);
    return made;
}

void TreeWalk::noteFolder(const OutArray &copies, const Attributes &like,
                          const std::vector<CopyState> &states)
{
    auto *evidence = m_run.evidence();
    if (!evidence)
        return;
    std::string letters(m_run.targets().size(), static_cast<char>(CopyState::NotMade));
    m_run.forEachCopy(copies, [&](const Target &target, const std::string &) {
        letters[target.index] = static_cast<char>(states[target.index]);
    });
    evidence->noteFolder(m_run.targets(), copies, like, letters);
}

// A link that was ticked, or lies in a ticked folder, may be the first item that its folders are made for.
void TreeWalk::copyLink(const std::string &link, const OutArray &copies, const Attributes &like)
{
    m_duplicator.createParents(copies, like);
    m_run.keeper().copyLink(link, copies);
}

void TreeWalk::finishFolders(const std::string &source, const OutArray &copies, const std::vector<bool> &made,
                             const Attributes &like)
{
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        if (target.index < made.size() && made[target.index])
            target.destination.finishFolder(copy, like);
    });
    // The root folder of a volume belongs to the volume.
    if (source != m_run.job().SrcDiskPath)
        m_run.keeper().applyToFolder(source, copies);
}

} // namespace orvana
