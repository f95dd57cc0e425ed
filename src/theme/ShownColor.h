// What the phone shows for the colours of a theme, removed ones among them.
#pragma once

#include <QRgb>
#include <QString>

#include <optional>

/// The bytes that a colour text names, straight; the same that the package's pictures are filled
/// with. As lenient as colour text is read everywhere.
QRgb rgbFromHexString(const QString &colorText);

/// True where the phone's own text would be dark on the colour.
bool isLight(QRgb color);

/// What shows on an opaque ground for the element with that key when its colour is removed. For
/// balloons by the key of the first colour: one that is left fills the balloon alone, and this is
/// what shows without both. Nothing for any other key.
std::optional<QRgb> standInColor(const QString &key, QRgb ground);

/// True for the elements that become pictures, which have no transparency.
bool isPictureColor(const QString &key);
