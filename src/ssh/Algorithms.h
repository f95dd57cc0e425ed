// What is said where two machines have no algorithm in common.
#pragma once

#include <QString>

/// In words, from the library's own error: which ones the other side offers, and how to allow one
/// that is not allowed any more in the configuration. Empty for any other error.
QString explainAlgorithms(const QString &error, const QString &host);
