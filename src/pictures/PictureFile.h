// A picture that is read from a file.
#pragma once

#include "platform/foundation/NSFileManager.h"

/// What `parse` makes of a file's bytes, or its problem where the file cannot be read. The problem
/// names the file.
template <typename Parse>
auto pictureInFile(const QString &path, const Parse &parse)
{
    const auto [bytes, error] = NSFileManager::contentsAtPath(path);
    auto read = error ? decltype(parse(QByteArray()))() : parse(bytes);
    if (error)
        read.problem = NSFileManager::withReason(path, error);
    else if (!read.problem.isEmpty())
        read.problem = path + QStringLiteral(": ") + read.problem;
    return read;
}
