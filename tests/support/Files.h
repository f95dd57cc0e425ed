// Small helpers for tests that look at the disk.
#pragma once

#include "platform/foundation/NSFileManager.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

inline QByteArray contents(const QString &path)
{
    return NSFileManager::contentsAtPath(path).bytes;
}

/// Writes a file, with the folders above it.
inline void put(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    ASSERT_FALSE(NSFileManager::writeToFile(path, bytes));
}

/// Every file, folder and link below a folder, relative to it, sorted.
inline QStringList tree(const QString &folder)
{
    QStringList paths;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        paths.append(QDir(folder).relativeFilePath(walk.next()));
    paths.sort();
    return paths;
}

/// Lets an operation fail on the paths that end so.
inline NSFileManager::FaultHook failing(NSFileManager::Operation operation, const QString &end,
                                        std::errc reason = std::errc::no_space_on_device)
{
    return [=](NSFileManager::Operation asked, const QString &path) {
        return asked == operation && path.endsWith(end) ? std::make_error_code(reason)
                                                        : std::error_code();
    };
}

/// Takes the fault hook back when a test leaves, however it leaves.
struct FaultHookGuard {
    explicit FaultHookGuard(NSFileManager::FaultHook hook)
    {
        NSFileManager::setFaultHook(std::move(hook));
    }
    ~FaultHookGuard() { NSFileManager::setFaultHook({}); }
};
