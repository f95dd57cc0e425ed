// Findings in words, for people.
#pragma once

#include "advice/Findings.h"

#include <QString>

namespace FindingText
{
/// Two decimals, cut off: what falls short must not read as if it did not.
QString ratio(double ratio);

/// "2.10 on Chat Background", or what it is like to whose eyes; by the elements' names.
QString fault(const Finding &finding, const ElementDataSource &elements);
/// "2.10 on Chat Background, needs 4.50"; of look-alikes the fault alone.
QString details(const Finding &finding, const ElementDataSource &elements);
} // namespace FindingText
