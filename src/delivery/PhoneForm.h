// What somebody types about a phone, and the phone that this means.
#pragma once

#include "delivery/RememberedPhones.h"

struct PhoneForm {
    QString name;   // empty: the address
    QString host;   // may be a whole address, [USER@]HOST[:PORT]
    QString port;   // empty: the host's, else the usual one
    QString user;   // empty: the host's, else the usual one
    QString folder; // of themes; empty: where the phone has them

    static PhoneForm of(const RememberedPhone &phone);

    struct Reading {
        std::optional<RememberedPhone> phone;
        QString problem; // why there is none, a sentence for people; else empty
    };
    /// Blanks around what was typed do not count.
    Reading read() const;
};
