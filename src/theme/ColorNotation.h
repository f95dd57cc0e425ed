// The ways in which people and other programs write a colour down.
#pragma once

#include <QString>

#include <optional>

/// Colour text ("#" and eight upper-case digits) of what somebody may have on the clipboard, blanks
/// around it left out: 3, 6 or 8 hexadecimal digits with or without "#"; rgb(R, G, B) and
/// rgba(R, G, B, A), with commas or blanks, "/" before the alpha, channels 0-255 or percentages,
/// alpha 0-1 or a percentage; a colour name of CSS, in any case. What lies outside its range is
/// taken as the nearer end. Nothing for any other text.
std::optional<QString> colorTextFromNotation(const QString &notation);
