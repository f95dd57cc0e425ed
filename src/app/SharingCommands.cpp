#include "app/SharingCommands.h"

#include "app/ExitStatus.h"
#include "app/PackageSubject.h"
#include "app/StandardStreams.h"
#include "library/KeepChoices.h"
#include "library/QrPicture.h"
#include "library/ShareLoss.h"
#include "library/ShareText.h"
#include "library/ThemeExport.h"
#include "platform/foundation/NSFileManager.h"

#include <QBuffer>

using namespace Qt::StringLiterals;

namespace
{
/// What is typed is a path where something stands there, or where it cannot be a text.
ThemeOpening openTyped(const ThemeOpener &opener, const QString &typed)
{
    const bool isText = ShareText::isMeant(typed) && !NSFileManager::fileExistsAtPath(typed);
    return isText ? opener.fromText(typed) : opener.fromPath(typed);
}

LibraryResult keep(const OpenedTheme &opened, const CommandLine::Options &options)
{
    const auto library = ThemeLibrary::open(options.documents);
    const auto ifTaken =
        options.replace ? ThemeLibrary::IfTaken::Replace : ThemeLibrary::IfTaken::Refuse;
    const bool isAsked = !options.newName.isEmpty();
    const auto keepAs = [&](const QString &name) {
        return keepOpened(opened, name, ifTaken, options.resources, options.scale, *library);
    };
    const auto result = keepAs(isAsked ? options.newName : opened.name);
    return result.outcome == LibraryResult::Outcome::NameTaken && !isAsked ? keepAs(result.name)
                                                                           : result;
}

/// PNG.
std::error_code writePicture(const QImage &image, const QString &path)
{
    QByteArray png;
    QBuffer buffer(&png);
    if (!image.save(&buffer, "PNG"))
        return std::make_error_code(std::errc::not_enough_memory);
    return NSFileManager::writeToFile(path, png);
}
} // namespace

int runImport(const CommandLine::Options &options)
{
    const auto list = ElementDataSource::loadWith(options.resources, nullptr);
    if (list.status() != ElementDataSource::Status::Loaded) {
        complain(u"nothing imported: %1"_s.arg(list.problem()));
        return ExitStatus::failed;
    }
    const auto [opened, problem] = openTyped(ThemeOpener(list), options.theme);
    if (!opened) {
        complain(u"nothing imported: %1"_s.arg(problem));
        return ExitStatus::failed;
    }
    const LibraryResult result = keep(*opened, options);
    if (!result.isDone()) {
        const bool isTaken = result.outcome == LibraryResult::Outcome::NameTaken;
        complain(isTaken ? result.sentence + u"; --replace puts the new one in its place"_s
                         : result.sentence);
        return result.outcome == LibraryResult::Outcome::Failed ? ExitStatus::failed
                                                                : ExitStatus::wrongUsage;
    }
    for (const QString &remark : opened->remarks())
        complain(remark);
    return print(result.name.toUtf8() + '\n');
}

int runExport(const CommandLine::Options &options)
{
    const auto [contents, name, status] = packageSubject(options);
    if (!contents)
        return status;
    const auto [problem, exists] = ThemeExport::write(
        *contents, options.out,
        options.replace ? ThemeExport::IfThere::Replace : ThemeExport::IfThere::Refuse);
    if (problem.isEmpty())
        return print(options.out.toUtf8() + '\n');
    complain(exists ? problem + u"; --replace overwrites it"_s : problem);
    return exists ? ExitStatus::wrongUsage : ExitStatus::failed;
}

int runShare(const CommandLine::Options &options)
{
    const auto [contents, name, status] = packageSubject(options);
    if (!contents)
        return status;
    for (const QString &lost : lostInShareText(*contents))
        complain(u"the text does not hold %1"_s.arg(lost));
    const QString text = ShareText::write(contents->info, name);
    if (!options.qr.isEmpty()) {
        const auto [image, problem] = QrPicture::of(text, 600);
        if (!problem.isEmpty()) {
            complain(problem);
            return ExitStatus::failed;
        }
        if (const auto error = writePicture(image, options.qr)) {
            complain(u"cannot write %1"_s.arg(NSFileManager::withReason(options.qr, error)));
            return ExitStatus::failed;
        }
    }
    return print(text.toUtf8() + '\n');
}
