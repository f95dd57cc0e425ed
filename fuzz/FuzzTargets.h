// What the fuzzers run, and the tests over the seeds: functions that feed bytes to a part of the
// program which takes them from outside, and check what must hold whatever the bytes are.
//
// A source `NameFuzz.cpp` holds one target; its seeds are in `seeds/Name`. A seed that once made a
// target fail stays there for good.
#pragma once

#include <QByteArray>

#include <functional>
#include <map>
#include <string>

namespace Fuzz
{
/// Returns when all held; throws std::logic_error when something did not.
using Target = std::function<void(const QByteArray &)>;

void colorText(const QByteArray &bytes);
void elementDataSource(const QByteArray &bytes);
void findings(const QByteArray &bytes);
void hexField(const QByteArray &bytes);
void openedTheme(const QByteArray &bytes);
void picture(const QByteArray &bytes);
void propertyList(const QByteArray &bytes);
void themeGenerator(const QByteArray &bytes);
void themeList(const QByteArray &bytes);

/// By the name of their folder of seeds.
const std::map<std::string, Target> &targets();

/// Throws unless the condition holds.
void require(bool condition, const char *what);
} // namespace Fuzz
