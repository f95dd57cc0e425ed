#include "catalogue/window/ThemeSending.h"

#include "delivery/window/SendController.h"
#include "library/KeptPackage.h"
#include "library/PackageFiles.h"
#include "library/ThemeLibrary.h"

Action sendAction(const QString &documents, const QString &name, const QString &folder)
{
    const DeliveryTask::Read read =
        [name, folder](QString &problem) -> std::optional<DeliveryTask::Files> {
        KeptPackage::Reading package = KeptPackage::read(folder);
        if (!package.contents) {
            problem = SendController::tr("The theme cannot be read: %1.").arg(package.problem);
            return std::nullopt;
        }
        package.contents->info.setValue(QStringLiteral("name"), name);
        return filesOf(std::move(*package.contents));
    };
    return {SendController::tr("Send to Phone…"),
            [=] { SendController::present(documents, name, read); }};
}

Action sendKeptAction(const QString &documents, const QString &name)
{
    const DeliveryTask::Read read = [documents,
                                     name](QString &problem) -> std::optional<DeliveryTask::Files> {
        ThemeLibrary::Reading theme = ThemeLibrary::open(documents)->read(name);
        problem = theme.result.sentence;
        return theme.contents ? std::optional(filesOf(std::move(*theme.contents))) : std::nullopt;
    };
    return {SendController::tr("Send to Phone\u2026"),
            [=] { SendController::present(documents, name, read); }};
}
