#include "platform/foundation/NSFileManager.h"

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace
{
NSFileManager::FaultHook faultHook;

std::error_code begin(NSFileManager::Operation operation, const QString &path)
{
    return faultHook ? faultHook(operation, path) : std::error_code();
}

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

fs::path native(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

class Descriptor
{
public:
    Descriptor(const fs::path &path, int flags, mode_t mode = 0)
        : _number(::open(path.c_str(), flags | O_CLOEXEC, mode))
    {
    }
    ~Descriptor()
    {
        if (isOpen())
            ::close(_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    bool isOpen() const { return _number >= 0; }
    int number() const { return _number; }

private:
    const int _number;
};

/// With the program's name, distinct enough that nobody else's file bears such a name.
QString temporaryMark()
{
    return u'.' + QCoreApplication::applicationName().toLower() + u'-';
}

fs::path temporaryFor(const QString &path)
{
    const quint64 number = QRandomGenerator::global()->generate64();
    return native(path + temporaryMark() + QString::asprintf("%016llx", number));
}

std::error_code fillAndFlush(const fs::path &path, const QByteArray &bytes)
{
    // Made like any other new file: the user's umask decides who may read it.
    const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!file.isOpen())
        return lastError();
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count =
            ::write(file.number(), bytes.constData() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return lastError();
        done += std::max<ssize_t>(count, 0);
    }
    return ::fsync(file.number()) == 0 ? std::error_code() : lastError();
}

/// What was written by others may still be in memory only. Best effort: it may not be ours to read.
void flushFile(const fs::path &path)
{
    const Descriptor file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    if (file.isOpen())
        ::fsync(file.number());
}

/// A rename is only as lasting as the folder that records it.
std::error_code flushFolder(const fs::path &folder)
{
    const Descriptor descriptor(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (!descriptor.isOpen())
        return errno == EACCES ? std::error_code() : lastError(); // a folder we may only write to
    if (::fsync(descriptor.number()) == 0 || errno == EINVAL)     // EINVAL: it has nothing to flush
        return {};
    return lastError();
}

std::error_code flushFoldersOf(const fs::path &one, const fs::path &other, const QString &asked)
{
    if (const auto fault = begin(NSFileManager::Operation::Flush, asked))
        return fault;
    const auto error = flushFolder(one.parent_path());
    return error || one.parent_path() == other.parent_path() ? error
                                                             : flushFolder(other.parent_path());
}
} // namespace

bool NSFileManager::isMissing(const std::error_code &error)
{
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

QString NSFileManager::withReason(const QString &path, const std::error_code &error)
{
    return path + QStringLiteral(": ") + QString::fromStdString(error.message());
}

bool NSFileManager::fileExistsAtPath(const QString &path)
{
    if (begin(Operation::Exists, path))
        return false;
    std::error_code error;
    return fs::exists(fs::symlink_status(native(path), error));
}

NSFileManager::Item NSFileManager::itemAtPath(const QString &path)
{
    if (const auto fault = begin(Operation::Exists, path))
        return {Kind::Nothing, fault};
    std::error_code error;
    switch (fs::symlink_status(native(path), error).type()) {
    case fs::file_type::not_found:
        return {};
    case fs::file_type::none:
        return {Kind::Nothing, error};
    case fs::file_type::regular:
        return {Kind::File, {}};
    case fs::file_type::directory:
        return {Kind::Folder, {}};
    case fs::file_type::symlink:
        return {Kind::Link, {}};
    default:
        return {Kind::Other, {}};
    }
}

NSFileManager::Names NSFileManager::contentsOfDirectoryAtPath(const QString &path)
{
    if (const auto fault = begin(Operation::Enumerate, path))
        return {{}, fault};
    std::error_code error;
    QStringList names;
    for (fs::directory_iterator item(native(path), error), end; !error && item != end;
         item.increment(error))
        names.append(QFile::decodeName(item->path().filename().c_str()));
    names.sort();
    return {names, error};
}

NSFileManager::Enumeration NSFileManager::enumeratorAtPath(const QString &path)
{
    if (const auto fault = begin(Operation::Enumerate, path))
        return {{}, fault};
    Enumeration result;
    std::vector<fs::path> found;
    const fs::path root = native(path);
    fs::recursive_directory_iterator entry(root, result.error);
    while (!result.error && entry != fs::recursive_directory_iterator()) {
        found.push_back(entry->path().lexically_relative(root));
        entry.increment(result.error);
    }
    std::ranges::sort(found); // component by component: what is in a folder follows it
    for (const fs::path &relative : found)
        result.paths.append(QFile::decodeName(relative.c_str()));
    return result;
}

std::error_code NSFileManager::copyItemAtPath(const QString &path, const QString &target)
{
    if (const auto fault = begin(Operation::Copy, target))
        return fault;
    const fs::path to = native(target);
    std::error_code error;
    if (fs::exists(fs::symlink_status(to, error)))
        return std::make_error_code(std::errc::file_exists);
    // Where the folder above is missing, the copy says so itself.
    fs::copy(native(path), to, fs::copy_options::recursive | fs::copy_options::copy_symlinks,
             error);
    return error;
}

std::error_code NSFileManager::removeItemAtPath(const QString &path)
{
    if (const auto fault = begin(Operation::Remove, path))
        return fault;
    std::error_code error;
    const auto removed = fs::remove_all(native(path), error);
    if (!error && removed == 0)
        return std::make_error_code(std::errc::no_such_file_or_directory);
    return error;
}

std::error_code NSFileManager::createDirectoryAtPath(const QString &path)
{
    if (const auto fault = begin(Operation::CreateFolder, path))
        return fault;
    std::error_code error;
    fs::create_directories(native(path), error);
    return error;
}

NSFileManager::Contents NSFileManager::contentsAtPath(const QString &path)
{
    if (const auto fault = begin(Operation::Read, path))
        return {{}, fault};
    // Without O_NONBLOCK, opening a named pipe would wait for somebody to write to it.
    const Descriptor file(native(path), O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        return {{}, lastError()};
    if (!S_ISREG(status.st_mode))
        return {{},
                std::make_error_code(S_ISDIR(status.st_mode) ? std::errc::is_a_directory
                                                             : std::errc::invalid_argument)};
    if (status.st_size > largestReadable)
        return {{}, std::make_error_code(std::errc::file_too_large)};
    QByteArray bytes(status.st_size, Qt::Uninitialized);
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            ::read(file.number(), bytes.data() + done, size_t(bytes.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return {{}, lastError()};
        if (count == 0)
            break; // somebody made it shorter
        done += count;
    }
    bytes.truncate(done);
    return {bytes, {}};
}

std::error_code NSFileManager::writeToFile(const QString &path, const QByteArray &bytes)
{
    if (const auto fault = begin(Operation::Write, path))
        return fault;
    const fs::path target = native(path);
    const fs::path temporary = temporaryFor(path);
    std::error_code error = fillAndFlush(temporary, bytes);
    if (!error)
        error = begin(Operation::Replace, path);
    if (!error)
        fs::rename(temporary, target, error);
    if (error) {
        std::error_code ignored; // the first reason is the one to report
        fs::remove(temporary, ignored);
        return error;
    }
    if (const auto fault = begin(Operation::Flush, path))
        return fault;
    return flushFolder(target.parent_path());
}

bool NSFileManager::isTemporaryName(const QString &name)
{
    static const QRegularExpression number(u"\\A[0-9a-f]{16}\\z"_s);
    const QString mark = temporaryMark();
    const qsizetype place = name.lastIndexOf(mark);
    return place > 0 && number.match(name.sliced(place + mark.size())).hasMatch();
}

std::error_code NSFileManager::moveItemAtPath(const QString &from, const QString &to)
{
    if (const auto fault = begin(Operation::Move, from))
        return fault;
    const fs::path source = native(from);
    const fs::path target = native(to);
    flushFile(source);
    std::error_code error;
    fs::rename(source, target, error);
    return error ? error : flushFoldersOf(target, source, to);
}

std::error_code NSFileManager::exchangeItemsAtPaths(const QString &one, const QString &other)
{
    if (const auto fault = begin(Operation::Move, one))
        return fault;
    const fs::path first = native(one), second = native(other);
    if (::renameat2(AT_FDCWD, first.c_str(), AT_FDCWD, second.c_str(), RENAME_EXCHANGE) != 0)
        return lastError();
    return flushFoldersOf(first, second, one);
}

NSFileManager::Lock NSFileManager::lockFolderAtPath(const QString &path)
{
    if (const auto fault = begin(Operation::Lock, path))
        return {nullptr, fault};
    auto folder = std::make_shared<const Descriptor>(native(path), O_RDONLY | O_DIRECTORY);
    if (!folder->isOpen() || ::flock(folder->number(), LOCK_EX | LOCK_NB) != 0)
        return {nullptr, lastError()};
    return {std::move(folder), {}};
}

std::error_code NSFileManager::setPosixPermissions(const QString &path, unsigned permissions)
{
    if (const auto fault = begin(Operation::SetPermissions, path))
        return fault;
    std::error_code error;
    fs::permissions(native(path), fs::perms(permissions) & fs::perms::mask,
                    fs::perm_options::replace | fs::perm_options::nofollow, error);
    return error;
}

void NSFileManager::setFaultHook(FaultHook hook)
{
    faultHook = std::move(hook);
}
