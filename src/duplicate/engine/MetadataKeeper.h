#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <optional>
#include <string>

namespace orvana
{

class RunContext;
struct Target;

/// Gives the copies what the run keeps of its source besides the content: nothing, dates, or all. What a
/// destination cannot hold is counted in its tally.
///
/// Used by the copy thread. Workers call `applyTo`, each for a target of its own.
class MetadataKeeper
{
public:
    explicit MetadataKeeper(RunContext &run) : m_run(run) {}

    bool keepsAll() const;

    /// Remembers what is to be kept of the file in hand.
    void readSource(const platform::File &from);

    /// Gives it to the copy of the file in hand. Nothing may be written to the copy afterwards.
    void applyTo(Target &target, platform::File &copy) const;

    /// Gives the copies of a folder what is kept of it. Called when nothing more comes into the folder.
    void applyToFolder(const std::string &source, const OutArray &copies);

    /// Does the same for the folders above the ticked items.
    void applyToFoldersAbove();

    /// Makes links that hold the same path as the link `source`. A link of that name that is there already
    /// is replaced; anything else stays.
    void copyLink(const std::string &source, const OutArray &copies);

private:
    platform::Keep keep() const;
    void copyLinkTo(Target &target, const std::string &source, const std::string &copy,
                    const std::string &text, const platform::Metadata &metadata);

    RunContext &m_run;
    std::optional<platform::Metadata> m_inHand;
};

} // namespace orvana
