#include "theme/FolderLocks.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"

#include <QFileInfo>

#include <atomic>
#include <thread>

namespace
{
constexpr std::chrono::milliseconds usualPatience(5000); // a save takes far less than a second
constexpr std::chrono::milliseconds pollInterval(10);
std::atomic patience = usualPatience;
} // namespace

void FolderLocks::setPatience(std::chrono::milliseconds newPatience)
{
    patience = newPatience;
}

bool FolderLocks::lock(const QString &folder)
{
    const QString name = QFileInfo(folder).canonicalFilePath();
    if (name.isEmpty() || _folders.contains(name))
        return true;
    const auto deadline = std::chrono::steady_clock::now() + patience.load();
    auto attempt = NSFileManager::lockFolderAtPath(folder);
    if (attempt.error == std::errc::operation_would_block)
        NSLog("Waiting for another Tintloom to finish with %@", {folder});
    while (attempt.error == std::errc::operation_would_block) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(pollInterval);
        attempt = NSFileManager::lockFolderAtPath(folder);
    }
    if (!attempt.error) {
        _holds.push_back(std::move(attempt.hold));
        _folders.append(name);
    } else if (!NSFileManager::isMissing(attempt.error)) {
        NSLog("Cannot lock %@", {NSFileManager::withReason(folder, attempt.error)});
    }
    return true;
}
