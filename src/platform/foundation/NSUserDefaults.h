// Settings that outlive the program: one property list file, which goes through the one door to the
// disk like every other file.
//
// A value set is seen at once by whoever asks this object, and reaches the disk with `synchronize`.
// Any thread.
#pragma once

#include "platform/foundation/ThreadAnnotations.h"

#include <QString>
#include <QVariant>

#include <system_error>

class NSUserDefaults
{
public:
    /// Reads the file. One that is missing or cannot be read counts as empty.
    explicit NSUserDefaults(const QString &file);

    /// Invalid when there is none.
    QVariant objectForKey(const QString &key) const;
    /// An invalid one takes the entry out.
    void setObjectForKey(const QVariant &value, const QString &key);
    /// Writes what has been set, beside what others have written into the file meanwhile.
    std::error_code synchronize();

private:
    const QString _file;
    mutable Mutex _mutex; // held over the writing too: two writers would mix their files
    QVariantMap _values GUARDED_BY(_mutex);
    QVariantMap _unsaved GUARDED_BY(_mutex);
};
