#include "app/PaletteCommand.h"

#include "app/PaletteOfPicture.h"
#include "app/StandardStreams.h"
#include "theme/ColorText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using namespace Qt::StringLiterals;

int runPalette(const CommandLine::Options &options)
{
    const auto palette = paletteOfPicture(options.picture);
    if (!palette)
        return 1;
    const auto rounded = [](double share) { return std::round(share * 1e4) / 1e4; };
    QJsonArray json;
    QString text;
    for (const auto &[color, share, score] : palette->candidates) {
        const QString colorText = hexStringForRgb(color);
        json.append(QJsonObject{{"color"_L1, colorText},
                                {"share"_L1, rounded(share)},
                                {"score"_L1, rounded(score)},
                                {"grey"_L1, palette->isGrey}});
        text += u"%1  %2 %\n"_s.arg(colorText,
                                    QString::number(share * 100.0, 'f', 1).rightJustified(5));
    }
    return print(options.json ? QJsonDocument(json).toJson() : text.toUtf8());
}
