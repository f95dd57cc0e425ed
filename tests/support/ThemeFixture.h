// A data source, a package root and a documents folder of a test's own.
#pragma once

#include "support/Files.h"
#include "theme/ElementDataSource.h"
#include "theme/ThemeLocations.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A data source item. All but the key are JSON values: "\"#F00\"", "null", "[1]".
inline QByteArray element(const QByteArray &key, const QByteArray &color,
                          const QByteArray &options = "null", const QByteArray &value = "null",
                          const QByteArray &section = "\"Section\"")
{
    return "{\"key\":\"" + key + "\",\"name\":\"Name of " + key +
           "\",\"description\":\"\",\"color\":" + color + ",\"options\":" + options +
           ",\"value\":" + value + ",\"section\":" + section + "}";
}

/// The same one standing on what the key "on" names.
inline QByteArray on(const QByteArray &element, const QByteArray &grounds)
{
    return element.chopped(1) + ",\"on\":" + grounds + "}";
}

struct ThemeFixture : testing::Test {
    QTemporaryDir folder;
    const QString resources = folder.filePath("resources");
    const QString document = resources + "/initialDatasource.txt";
    const ThemeLocations locations{folder.filePath("root"), folder.filePath("documents")};

    void putElements(const QByteArrayList &elements)
    {
        put(document, "[" + elements.join(",\n") + "]");
    }

    void putSaved(const PropertyDictionary &saved)
    {
        put(locations.workingCopy(), PropertyList::writeDictionary(saved));
    }

    /// Loads without chatter; what was logged is in `log`.
    ElementDataSource load()
    {
        testing::internal::CaptureStderr();
        auto source = ElementDataSource::load(resources, locations.documents);
        log = QString::fromStdString(testing::internal::GetCapturedStderr());
        return source;
    }

    QString log;
};
