#include "ssh/KnownHosts.h"

#include <QFile>

#include <memory>

namespace
{
using Key = std::unique_ptr<ssh_key_struct, decltype(&ssh_key_free)>;
using Entry = std::unique_ptr<ssh_knownhosts_entry, decltype(&ssh_knownhosts_entry_free)>;

QString fingerprintOf(ssh_key key)
{
    unsigned char *hash = nullptr;
    size_t size = 0;
    if (ssh_get_publickey_hash(key, SSH_PUBLICKEY_HASH_SHA256, &hash, &size) != SSH_OK)
        return {};
    char *text = ssh_get_fingerprint_hash(SSH_PUBLICKEY_HASH_SHA256, hash, size);
    const QString fingerprint = QString::fromLatin1(text);
    ssh_string_free_char(text);
    ssh_clean_pubkey_hash(&hash);
    return fingerprint;
}

/// As hosts stand in such files.
QByteArray nameOf(ssh_session session)
{
    char *host = nullptr;
    unsigned port = 22;
    if (ssh_options_get(session, SSH_OPTIONS_HOST, &host) != SSH_OK)
        return {};
    QByteArray name = QByteArray(host).toLower();
    ssh_string_free_char(host);
    ssh_options_get_port(session, &port);
    return port == 22 ? name : '[' + name + "]:" + QByteArray::number(port);
}

QByteArrayList files(ssh_session session)
{
    QByteArrayList files;
    for (const auto option : {SSH_OPTIONS_KNOWNHOSTS, SSH_OPTIONS_GLOBAL_KNOWNHOSTS}) {
        char *file = nullptr;
        if (ssh_options_get(session, option, &file) == SSH_OK)
            files.append(file);
        ssh_string_free_char(file);
    }
    return files;
}

/// Fills in the first known key of the host that is another than the one it shows.
void findKnown(const QByteArray &host, const QString &path, ssh_key shown, SshHostKey &key)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return;
    for (int line = 1; !file.atEnd(); ++line) {
        const QByteArray text = file.readLine().trimmed();
        ssh_knownhosts_entry *parsed = nullptr;
        if (text.isEmpty() || text.startsWith('#') ||
            ssh_known_hosts_parse_line(host, text, &parsed) != SSH_OK)
            continue;
        const Entry entry(parsed, &ssh_knownhosts_entry_free);
        if (ssh_key_cmp(entry->publickey, shown, SSH_KEY_CMP_PUBLIC) == 0)
            continue;
        key.knownFingerprint = fingerprintOf(entry->publickey);
        key.file = path;
        key.line = line;
        return;
    }
}
} // namespace

QByteArray KnownHosts::fileByEnvironment()
{
    const QByteArray home = qgetenv("HOME");
    return home.isEmpty() ? home : home + "/.ssh/known_hosts";
}

SshHostKey KnownHosts::keyOf(ssh_session session)
{
    ssh_key taken = nullptr;
    if (ssh_get_server_publickey(session, &taken) != SSH_OK)
        return {};
    const Key shown(taken, &ssh_key_free);
    SshHostKey key;
    key.type = QString::fromLatin1(ssh_key_type_to_char(ssh_key_type(shown.get())));
    key.fingerprint = fingerprintOf(shown.get());
    switch (ssh_session_is_known_server(session)) {
    case SSH_KNOWN_HOSTS_OK:
        key.standing = SshHostKey::Standing::Known;
        break;
    case SSH_KNOWN_HOSTS_CHANGED:
    case SSH_KNOWN_HOSTS_OTHER: // an attacker's way around a known key
        key.standing = SshHostKey::Standing::Changed;
        for (const QByteArray &file : files(session))
            if (key.line == 0)
                findKnown(nameOf(session), QFile::decodeName(file), shown.get(), key);
        break;
    case SSH_KNOWN_HOSTS_NOT_FOUND: // there is no such file yet
    case SSH_KNOWN_HOSTS_UNKNOWN:
        break;
    case SSH_KNOWN_HOSTS_ERROR:
        key.fingerprint.clear(); // who cannot look must not ask either
        break;
    }
    return key;
}

bool KnownHosts::remember(ssh_session session)
{
    // The library takes for granted that the last line has an end.
    QFile file(QFile::decodeName(files(session).value(0)));
    if (file.open(QFile::ReadWrite | QFile::ExistingOnly) && file.size() > 0) {
        file.seek(file.size() - 1);
        if (file.read(1) != "\n" && (!file.seek(file.size()) || file.write("\n") != 1))
            return false;
    }
    file.close();
    return ssh_session_update_known_hosts(session) == SSH_OK;
}
