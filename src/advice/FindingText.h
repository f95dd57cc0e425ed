// Findings in words, for people.
#pragma once

#include "advice/Findings.h"

#include <QString>

namespace FindingText
{
/// Two decimals, cut off: what falls short must not read as if it did not.
QString ratio(double ratio);

/// "Timestamp on Conversation Background", by the elements' names.
QString title(const Finding &finding, const ElementDataSource &elements);
/// "Contrast 2.10, needs 4.50", or to whose eyes the two are alike.
QString details(const Finding &finding);
} // namespace FindingText
