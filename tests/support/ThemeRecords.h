// A list of themes of a test's own.
#pragma once

#include "support/Files.h"

inline QByteArray themeRecord(const QByteArray &section, const QByteArray &name,
                              const QByteArray &details = "About it",
                              const QByteArray &active = "Yes")
{
    const auto entry = [](const QByteArray &key, const QByteArray &value) {
        return "<key>" + key + "</key><string>" + value + "</string>";
    };
    return "<dict>" + entry("section", section) + entry("name", name) + entry("details", details) +
           entry("active", active) + "</dict>";
}

inline void putThemes(const QString &resources, const QByteArray &records)
{
    put(resources + "/themes.plist", "<plist><array>" + records + "</array></plist>");
}
