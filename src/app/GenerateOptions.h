// What `generate` is asked for.
#pragma once

#include "advice/ThemeHarmony.h"
#include "advice/ThemeTone.h"

#include <QRgb>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QCommandLineParser;

struct GenerateOptions {
    std::optional<QRgb> color; // of this and the next two there is one
    QString picture;           // a file, as typed
    std::optional<quint64> seed;
    Tone tone = Tone::AsItIs;
    std::optional<Harmony> harmony;
    double strength = 1.0; // 0 to 1
    QStringList locked;    // keys, beside what is locked anyway
    bool dryRun = false;   // print instead of changing

    /// Tells `fail` whatever is wrong with them.
    static GenerateOptions read(const QCommandLineParser &parser,
                                const std::function<void(const QString &)> &fail);
};
