// A server that asks for a password and checks it, and does no more: a real one would ask for the
// password of an account of this machine.
#pragma once

#include "support/SshServer.h"

#include <libssh/callbacks.h>
#include <libssh/libssh.h>
#include <libssh/server.h>
#include <thread>

class PasswordServer
{
public:
    /// One connection, one way to ask: SSH_AUTH_METHOD_PASSWORD or SSH_AUTH_METHOD_INTERACTIVE.
    PasswordServer(const QString &hostKey, const char *password, int method)
        : _password(password), _method(method), _bind(ssh_bind_new())
    {
        _port = freePort();
        const QByteArray key = QFile::encodeName(hostKey);
        ssh_bind_options_set(_bind, SSH_BIND_OPTIONS_BINDADDR, "127.0.0.1");
        ssh_bind_options_set(_bind, SSH_BIND_OPTIONS_BINDPORT, &_port);
        ssh_bind_options_set(_bind, SSH_BIND_OPTIONS_HOSTKEY, key.constData());
        const bool no = false;
        ssh_bind_options_set(_bind, SSH_BIND_OPTIONS_PROCESS_CONFIG, &no);
        EXPECT_EQ(ssh_bind_listen(_bind), SSH_OK) << ssh_get_error(_bind);
        _thread = std::thread([this] { serve(); });
    }
    ~PasswordServer()
    {
        _thread.join();
        ssh_bind_free(_bind);
    }
    PasswordServer(const PasswordServer &) = delete;
    PasswordServer &operator=(const PasswordServer &) = delete;

    int port() const { return _port; }

private:
    void serve()
    {
        const ssh_session session = ssh_new();
        ssh_server_callbacks_struct callbacks = {};
        callbacks.userdata = this;
        callbacks.auth_password_function = [](ssh_session, const char *, const char *password,
                                              void *self) {
            const auto *server = static_cast<PasswordServer *>(self);
            return int(server->_password == password ? SSH_AUTH_SUCCESS : SSH_AUTH_DENIED);
        };
        ssh_callbacks_init(&callbacks);
        if (_method == SSH_AUTH_METHOD_PASSWORD) // what has no callback would be refused
            ssh_set_server_callbacks(session, &callbacks);
        if (ssh_bind_accept(_bind, session) == SSH_OK &&
            ssh_handle_key_exchange(session) == SSH_OK) {
            ssh_set_auth_methods(session, _method);
            while (const ssh_message message = ssh_message_get(session)) {
                answer(session, message);
                ssh_message_free(message);
            }
        }
        ssh_disconnect(session);
        ssh_free(session);
    }

    void answer(ssh_session session, ssh_message message) const
    {
        if (ssh_message_type(message) != SSH_REQUEST_AUTH ||
            ssh_message_subtype(message) != SSH_AUTH_METHOD_INTERACTIVE) {
            ssh_message_reply_default(message);
        } else if (!ssh_message_auth_kbdint_is_response(message)) {
            const char *prompts[] = {"Name: ", "Password: "};
            char shown[] = {1, 0};
            ssh_message_auth_interactive_request(message, "", "", 2, prompts, shown);
        } else if (_password == ssh_userauth_kbdint_getanswer(session, 1)) {
            ssh_message_auth_reply_success(message, 0);
        } else {
            ssh_message_reply_default(message);
        }
    }

    const QByteArray _password;
    const int _method;
    const ssh_bind _bind;
    int _port = 0;
    std::thread _thread;
};
