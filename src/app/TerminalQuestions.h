// Questions to the person at the terminal.
#pragma once

#include "ssh/Secret.h"

#include <QString>

#include <optional>

namespace TerminalQuestions
{
/// Whether somebody sits there.
bool canAsk();
/// True when "yes" is typed.
bool confirm(const QString &question);
/// Typed without being shown; or from the program that SSH_ASKPASS names, where there is no
/// terminal or SSH_ASKPASS_REQUIRE is "prefer" or "force". Nothing when nobody answers.
std::optional<Secret> password(const QString &prompt);
} // namespace TerminalQuestions
