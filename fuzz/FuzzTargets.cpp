#include "fuzz/FuzzTargets.h"

#include <stdexcept>

const std::map<std::string, Fuzz::Target> &Fuzz::targets()
{
    static const std::map<std::string, Target> targets = {
        {"ColorText", colorText},       {"ElementDataSource", elementDataSource},
        {"Findings", findings},         {"HexField", hexField},
        {"OpenedTheme", openedTheme},   {"Picture", picture},
        {"PropertyList", propertyList}, {"ThemeGenerator", themeGenerator},
        {"ThemeList", themeList},
    };
    return targets;
}

void Fuzz::require(bool condition, const char *what)
{
    if (!condition)
        throw std::logic_error(what);
}
