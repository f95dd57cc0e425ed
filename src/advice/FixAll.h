// One step that mends what is found in a theme.
#pragma once

#include "advice/Findings.h"
#include "theme/ThemeDocument.h"

#include <set>
#include <vector>

struct FixedTheme {
    /// In document order, each element once, none of them locked; for ThemeDocument::changeAll.
    ThemeDocument::Changes changes;

    enum class Reason {
        Locked,  // one of the two, or both, and the other alone cannot mend it
        NoColor, // whatever would mend it breaks something else
    };
    struct Left {
        Finding finding;
        Reason reason;
    };
    /// What is found after the changes.
    std::vector<Left> left;
};

/// Changes what stands on a ground before the ground, each colour to the nearest of its own hue
/// that will do, and nothing that was well gets worse by it. No change can be left out.
FixedTheme fixAll(const ElementDataSource &elements, const std::set<int> &locked);
