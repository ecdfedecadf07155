#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace orvana
{

class RunContext;
struct Target;

/// The files of the source that have several names. Their copies get several names, too, instead of being
/// made once for each name.
///
/// Needs memory for each such file until all of its names were seen. Used by the copy thread.
class HardLinks
{
public:
    explicit HardLinks(RunContext &run) : m_run(run) {}

    /// Gives copies that an earlier name of the source has got their further names, wherever that is
    /// possible. There is nothing left to be done for these targets then.
    void join(const std::string &source, const OutArray &copies);

    /// Notes that the copies of the file in hand are complete.
    void note(const OutArray &copies);

private:
    struct Copied
    {
        platform::Attributes source;
        OutArray copies; ///< only those that are good
        std::string digest;
        std::uint64_t names = 0; ///< that were seen so far
    };

    bool joinOne(Target &target, const std::string &first, const std::string &name,
                 const std::string &source);

    RunContext &m_run;
    std::map<FolderIdentity, Copied> m_copied; // by the numbers of the source
};

} // namespace orvana
