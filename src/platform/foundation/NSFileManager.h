// The one door to the disk.
//
// Every existence test, removal, folder creation, enumeration, copy, move, read, atomic write,
// permission change and lock of the program goes through this class; nothing else includes
// <filesystem> or opens a QFile for writing. That gives tests one place at which the n-th operation
// can be made to fail, or the process to die.
//
// Every operation reports instead of throwing: an empty std::error_code is success, and
// `message()` of any other is the system's own reason. All functions may be called from any thread.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <system_error>

class NSFileManager
{
public:
    enum class Operation {
        Exists,
        Remove,
        CreateFolder,
        Enumerate,
        Copy,
        Read,
        Write,   // the filling of the temporary file; the next two are asked for in the same write
        Replace, // its renaming over the target
        Flush,   // the flushing of the folder
        SetPermissions,
        Move,
        Lock
    };

    /// Whether an operation failed because nothing is there.
    static bool isMissing(const std::error_code &error);
    /// What people are told about a path: "PATH: REASON".
    static QString withReason(const QString &path, const std::error_code &error);

    /// True when something stands at the path; a dangling symbolic link counts.
    static bool fileExistsAtPath(const QString &path);

    enum class Kind { Nothing, File, Folder, Link, Other };
    struct Item {
        Kind kind = Kind::Nothing;
        std::error_code error; // it could not be looked at; nothing there is no error
    };
    /// What stands at the path itself; a symbolic link is not followed. An existence test.
    static Item itemAtPath(const QString &path);

    struct Names {
        QStringList names; // sorted
        std::error_code error;
    };
    /// The names of what is in a folder, not of what is below. An enumeration.
    static Names contentsOfDirectoryAtPath(const QString &path);

    struct Enumeration {
        QStringList paths;
        std::error_code error;
    };
    /// Every file, folder and link below a folder at every depth, as paths relative to it: a folder
    /// before what is in it, neighbours by code units. Links are not followed. After an error, what
    /// had been found until then.
    static Enumeration enumeratorAtPath(const QString &path);

    /// Copies a file, or a folder with everything in it; links are copied as links. Refuses a
    /// target that exists already. A folder's copy ends at the first failure and leaves what it has
    /// copied.
    static std::error_code copyItemAtPath(const QString &path, const QString &target);

    /// Removes a file, or a folder with everything in it. A symbolic link is removed itself; what
    /// it points to is never touched. Removing what is not there is an error (no such file or
    /// directory).
    static std::error_code removeItemAtPath(const QString &path);

    /// Creates a folder, with all missing folders above it. An existing folder is success.
    static std::error_code createDirectoryAtPath(const QString &path);

    struct Contents {
        QByteArray bytes;
        std::error_code error;
    };
    /// No file of the program comes near 1 GiB; one that has holes may claim any size, and memory
    /// would not hold it.
    static constexpr qint64 largestReadable = 1LL << 30;
    /// The whole file. One above largestReadable bytes is an error (file too large).
    static Contents contentsAtPath(const QString &path);

    /// Writes a file so that, at every moment, the path holds either the old bytes or all of the
    /// new ones: a temporary file beside it is filled, flushed to the disk and renamed over it, and
    /// the folder is flushed too. On failure the old file stands and no temporary file is left;
    /// only when the folder cannot be flushed, the new file stands and may not outlast a power cut.
    static std::error_code writeToFile(const QString &path, const QByteArray &bytes);

    /// True for the name of a temporary file that a killed writeToFile may have left in the
    /// target's folder: the target's own name, the application's in lower case and a number, as in
    /// "Info.plist.tintloom-0123456789abcdef". So set the application's name before anything else.
    static bool isTemporaryName(const QString &name);

    /// Renames a file in one step, over a file that stands at the new path, and flushes it and both
    /// folders. A symbolic link is moved itself. On failure both stand as they were; only when a
    /// folder cannot be flushed, the move is done and may not outlast a power cut.
    static std::error_code moveItemAtPath(const QString &from, const QString &to);

    /// Gives two files or folders each other's place, in one step, and flushes the folders above
    /// them. A move. An error on the few file systems that cannot (invalid argument).
    static std::error_code exchangeItemsAtPaths(const QString &one, const QString &other);

    struct Lock {
        std::shared_ptr<const void> hold; // the lock lasts until its last copy is gone
        std::error_code error; // operation_would_block: somebody else, here or in another process
    };
    /// Takes a folder's advisory lock if it is free; never waits. It needs no file of its own and
    /// goes with the process.
    static Lock lockFolderAtPath(const QString &path);

    /// Sets the POSIX permissions, for example 0777, of the item itself; refuses a symbolic link.
    static std::error_code setPosixPermissions(const QString &path, unsigned permissions);

    /// Called before each operation, on the thread that asks for it; what it returns makes the
    /// operation fail with that error and do nothing (Exists then answers false). For tests: set it
    /// while no other thread is inside this class, and reset it with an empty function.
    using FaultHook = std::function<std::error_code(Operation operation, const QString &path)>;
    static void setFaultHook(FaultHook hook);
};
