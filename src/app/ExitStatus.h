// With which status the program ends after a command, other than 0: the help names them.
#pragma once

namespace ExitStatus
{
constexpr int failed = 1;
constexpr int wrongUsage = 2;
constexpr int found = 3; // there are findings
constexpr int hostRefused = 4;
constexpr int notLetIn = 5;
} // namespace ExitStatus
