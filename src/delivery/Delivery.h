// Sending a theme to a phone, from the connection to what is left to do there.
#pragma once

#include "ssh/Secret.h"
#include "ssh/SshModule.h"

#include <functional>
#include <map>
#include <optional>

struct DeliveryRequest {
    SshAddress phone;
    QString folder; // of themes, on the phone
    QString name;   // of the theme's folder there
    /// All of the package, Info.plist too: bytes by path below it, "/" between. Nothing to send:
    /// the theme there and the one before are exchanged.
    std::optional<std::map<QString, QByteArray>> files;
};

struct DeliveryProgress {
    QString what;     // is happening, for people
    qint64 sent = 0;  // bytes that have arrived
    qint64 total = 0; // bytes; 0 as long as nothing is sent
    bool operator==(const DeliveryProgress &) const = default;
};

/// An unknown host, as somebody is asked about it.
struct UnknownHost {
    QString host, keyType, fingerprint;
};

/// What the sender wants to know meanwhile, each asked on the thread that sends.
struct DeliveryQuestions {
    /// Whether it is the right one; its key is remembered then.
    std::function<bool(const UnknownHost &)> acceptHost;
    /// For a prompt, without the blank at its end; nothing when there is no answer.
    std::function<std::optional<Secret>(const QString &prompt)> password;
    std::function<void(const DeliveryProgress &)> progress;
    /// Asked often. From the moment when the new theme is put in its place it has no effect.
    std::function<bool()> cancelled;
};

struct DeliveryResult {
    enum class Status { Done, Failed, Cancelled, HostRefused, NotLetIn };
    Status status = Status::Failed;
    QString text; // what has become of it, sentences for people
    QString next; // what is to be done on the phone then, a sentence; else empty
};

/// Why it cannot be the name of a theme's folder on the phone, a clause for people; else empty.
QString problemOfFolderName(const QString &name);

/// Sends, and waits for the end. Whatever happens at whatever moment, the phone holds the old theme
/// or the new one, whole; what else is left there, the next one removes. Everything that the
/// questions leave open counts as "no".
DeliveryResult deliver(const DeliveryRequest &request, SshConnection &connection,
                       const DeliveryQuestions &questions);
