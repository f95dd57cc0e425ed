#include "editor/EditorSending.h"

#include "delivery/window/SendController.h"
#include "editor/CustomViewController.h"
#include "library/PackageFiles.h"

namespace
{
const QString name = QStringLiteral("Tintloom");

/// The choices as they are now, made into a package when that is asked for.
DeliveryTask::Read readerOf(CustomViewController &editor)
{
    const auto package = editor.themes()->desk().packageOf(editor.source());
    return [package](QString &problem) -> std::optional<DeliveryTask::Files> {
        NamedPackage made = package();
        problem = made.problem;
        return made.contents ? std::optional(filesForPhone(std::move(*made.contents), name))
                             : std::nullopt;
    };
}

DeliveryTask::Read refusal(const QString &reason)
{
    return [reason](QString &problem) -> std::optional<DeliveryTask::Files> {
        problem = EditorSending::tr("Nothing was sent, because the theme cannot be saved.\n%1")
                      .arg(reason);
        return std::nullopt;
    };
}
} // namespace

EditorSending::EditorSending(CustomViewController &editor, QString documents)
    : _editor(editor), _documents(std::move(documents))
{
}

void EditorSending::showPage()
{
    const auto take = [this](const std::function<void(DeliveryTask::Read)> &then) {
        // Another save would put the choices before the last change out of reach.
        if (_editor.source().status() == ElementDataSource::Status::Loaded &&
            !_editor.document().hasUnsavedChanges())
            return then(readerOf(_editor));
        _editor.save([this, then](const QString &problem) {
            then(problem.isEmpty() ? readerOf(_editor) : refusal(problem));
        });
    };
    SendController::present(_documents, {name, take});
}
