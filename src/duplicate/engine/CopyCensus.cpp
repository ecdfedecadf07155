#include "duplicate/engine/CopyCensus.h"

#include "duplicate/engine/SelectionWalk.h"

namespace orvana
{

CopyCensus takeCensus(platform::Host &host, const CopyJob &job, const std::function<bool()> &isCancelled)
{
    CopyCensus census;
    const auto count = [&](const std::string &, const platform::Attributes &attributes) {
        if (attributes.type != platform::FileType::Regular)
            return;
        ++census.files;
        census.bytes += attributes.size;
    };
    SelectionWalk(host, false, count, isCancelled).visit(job);
    return census;
}

} // namespace orvana
