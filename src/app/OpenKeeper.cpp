#include "app/OpenKeeper.h"

#include "app/StandardStreams.h"

ThemeLocations locationsOf(const CommandLine::Options &options)
{
    return {options.packageRoot, options.documents};
}

std::shared_ptr<WorkingCopyKeeper> openKeeper(const CommandLine::Options &options)
{
    auto keeper = WorkingCopyKeeper::open(locationsOf(options));
    if (keeper->refusal().isEmpty())
        return keeper;
    complain(keeper->refusal());
    return nullptr;
}
