// A stretch of a text, in UTF-16 code units.
#pragma once

#include <QtGlobal>

struct NSRange {
    qsizetype location = 0;
    qsizetype length = 0;

    bool operator==(const NSRange &) const = default;
};
