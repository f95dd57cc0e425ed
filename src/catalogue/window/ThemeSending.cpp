#include "catalogue/window/ThemeSending.h"

#include "delivery/window/SendController.h"
#include "library/PackageFiles.h"

Action sendAction(const QString &documents, const QString &name, const ThemeDesk::Package &package)
{
    const DeliveryTask::Read read =
        [name, package](QString &problem) -> std::optional<DeliveryTask::Files> {
        NamedPackage made = package();
        if (made.contents)
            return filesForPhone(std::move(*made.contents), name);
        problem = SendController::tr("The theme cannot be read: %1.").arg(made.problem);
        return std::nullopt;
    };
    return {SendController::tr("Send to Phone\u2026"),
            [=] { SendController::present(documents, name, read); }};
}
