#include "baywriter/BayWriter.h"

#include "enclosures/DefinitionFolder.h"
#include "foundation/ExitStatus.h"

#include <iostream>

namespace orvana::baywriter
{

namespace
{

using enclosures::Definition;

int failed(const std::string &reason, ExitStatus status)
{
    std::cerr << "orvana-bays: " << reason << '\n';
    return status;
}

} // namespace

int runProgram(const std::vector<std::string> &words, const std::string &folder, void (*tellUdev)())
{
    const bool isAdd = words.size() == 3 && words[0] == "add";
    const bool isRemove = words.size() == 2 && words[0] == "remove";
    if (!isAdd && !isRemove)
        return failed("Usage: orvana-bays add ID DEFINITION | orvana-bays remove ID", WrongUsage);
    if (!enclosures::isDefinitionId(words[1]))
        return failed("the id must be 1 to 64 of a-z, 0-9 and \"-\"", WrongUsage);
    tl::expected<void, std::string> done;
    if (isAdd) {
        const auto definition = enclosures::readDefinition(words[1], words[2]);
        if (!definition)
            return failed("the definition: " + definition.error(), WrongUsage);
        done = enclosures::addDefinition(folder, *definition);
    } else {
        done = enclosures::removeDefinition(folder, words[1]);
    }
    if (!done)
        return failed(done.error(), SomethingFailed);
    tellUdev();
    return AllDone;
}

} // namespace orvana::baywriter
