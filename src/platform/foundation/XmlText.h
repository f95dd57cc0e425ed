// Text that an XML file can hold.
#pragma once

#include <QString>

/// The text without what XML cannot carry, not even as a reference: control characters other than
/// tab and line breaks, U+FFFE, U+FFFF, and halves of surrogate pairs.
/// Source: production Char of XML 1.0.
QString xmlText(const QString &text);
