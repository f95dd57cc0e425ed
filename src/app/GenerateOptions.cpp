#include "app/GenerateOptions.h"

#include "theme/ColorNotation.h"
#include "theme/ShownColor.h"

#include <QCommandLineParser>
#include <QLocale>
#include <QMap>

using namespace Qt::StringLiterals;

namespace
{
const QMap<QString, Harmony> harmonies{{u"single"_s, Harmony::Single},
                                       {u"analogous"_s, Harmony::Analogous},
                                       {u"split"_s, Harmony::Split},
                                       {u"triadic"_s, Harmony::Triadic},
                                       {u"complementary"_s, Harmony::Complementary}};
} // namespace

GenerateOptions GenerateOptions::read(const QCommandLineParser &parser,
                                      const std::function<void(const QString &)> &fail)
{
    GenerateOptions options;
    int sources = 0;
    for (const auto &name : {u"color"_s, u"picture"_s, u"seed"_s})
        sources += parser.isSet(name);
    if (sources != 1)
        fail(u"'generate' needs one of --color COLOR, --picture FILE and --seed N"_s);
    if (parser.isSet(u"light"_s) && parser.isSet(u"dark"_s))
        fail(u"--light and --dark exclude each other"_s);
    if (parser.isSet(u"color"_s)) {
        const auto color = colorTextFromNotation(parser.value(u"color"_s));
        if (!color)
            fail(
                u"--color '%1' is no colour; give hexadecimal digits, rgb(R, G, B) or a name"_s.arg(
                    parser.value(u"color"_s)));
        options.color = rgbFromHexString(color.value_or(QString()));
    }
    options.picture = parser.value(u"picture"_s);
    if (parser.isSet(u"picture"_s) && options.picture.isEmpty())
        fail(u"--picture needs a file"_s);
    bool isNumber = true;
    if (parser.isSet(u"seed"_s))
        options.seed = parser.value(u"seed"_s).toULongLong(&isNumber);
    if (!isNumber)
        fail(u"--seed '%1' is no whole number from 0 on"_s.arg(parser.value(u"seed"_s)));
    if (const QString harmony = parser.value(u"harmony"_s); parser.isSet(u"harmony"_s)) {
        if (!harmonies.contains(harmony))
            fail(u"unknown harmony '%1'; there are %2"_s.arg(
                harmony, QStringList(harmonies.keys()).join(", "_L1)));
        options.harmony = harmonies.value(harmony);
    }
    if (const QString strength = parser.value(u"strength"_s); parser.isSet(u"strength"_s)) {
        options.strength = QLocale::c().toDouble(strength, &isNumber);
        if (!isNumber || !(options.strength >= 0.0 && options.strength <= 1.0))
            fail(u"--strength '%1' is not a number from 0 to 1"_s.arg(strength));
    }
    options.tone = parser.isSet(u"light"_s)  ? Tone::Light
                   : parser.isSet(u"dark"_s) ? Tone::Dark
                                             : Tone::AsItIs;
    options.locked = parser.values(u"lock"_s);
    options.dryRun = parser.isSet(u"dry-run"_s);
    return options;
}
