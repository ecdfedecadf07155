#pragma once

#include "duplicate/engine/FileComparer.h"
#include "duplicate/engine/FileDuplicator.h"
#include "duplicate/engine/ForbiddenFolders.h"
#include "duplicate/engine/SkipRules.h"
#include "duplicate/evidence/EvidenceLog.h"

#include <string>
#include <vector>

namespace orvana
{

class RunContext;

/// Walks through the source items of a run and copies every file.
class TreeWalk
{
public:
    explicit TreeWalk(RunContext &run);

    /// Copies one ticked item. From a folder, copies everything that the skip rules do not leave out.
    void copySelected(const std::string &item);

    /// Copies a file or a folder with everything below it to the given paths. Returns 1, or -1 for a file
    /// that cannot be opened.
    int copyItem(const std::string &source, const OutArray &copies);

    int compare(const std::string &source, const OutArray &copies)
    {
        return m_comparer.compare(source, copies);
    }

    void compareSamples() const { m_comparer.compareSamples(); }

    bool isSkipFile(const std::string &pathOrName) { return m_rules.examine(pathOrName).skip; }

private:
    class FolderStack;

    int copyItem(const std::string &source, const OutArray &copies, const platform::Attributes &attributes);
    void copyTree(const std::string &folder, const OutArray &copies, const platform::Attributes &like);
    void copyEntry(FolderStack &stack, std::string_view name);
    void planNext(FolderStack &stack, std::size_t nameLength);
    void copyListedEntries(const std::string &folder, const OutArray &copies);
    platform::NameList listOf(const std::string &folder, const OutArray &copies);
    std::vector<bool> makeFolders(const std::string &source, const OutArray &copies,
                                  const platform::Attributes &like);
    void noteFolder(const OutArray &copies, const platform::Attributes &like,
                    const std::vector<CopyState> &states);
    void copyLink(const std::string &link, const OutArray &copies, const platform::Attributes &like);
    void finishFolders(const std::string &source, const OutArray &copies, const std::vector<bool> &made,
                       const platform::Attributes &like);
    OutArray copiesOf(const std::string &item) const;

    RunContext &m_run;
    SkipRules m_rules;
    ForbiddenFolders m_forbidden;
    FileComparer m_comparer;
    FileDuplicator m_duplicator;
};

} // namespace orvana
