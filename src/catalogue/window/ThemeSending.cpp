#include "catalogue/window/ThemeSending.h"

#include "delivery/window/SendController.h"
#include "library/KeptPackage.h"
#include "library/PackageFiles.h"

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
