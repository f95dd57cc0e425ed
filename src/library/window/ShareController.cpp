#include "library/window/ShareController.h"

#include "library/QrPicture.h"
#include "library/ShareLoss.h"
#include "library/ShareText.h"

#include <QClipboard>
#include <QGuiApplication>

ShareController::Shared ShareController::shared(const NamedPackage &package)
{
    Shared shared{package.name, {}, ShareText::write(package.contents->info, package.name), {}, {}};
    if (const QStringList lost = lostInShareText(*package.contents); !lost.isEmpty())
        shared.loss = tr("Not in this text: %1. \"Export\" passes on everything.")
                          .arg(lost.join(QStringLiteral(", ")));
    const auto [image, problem] = QrPicture::of(shared.text, 1);
    shared.code = image;
    if (!problem.isEmpty())
        shared.codeProblem = tr("No QR code: %1").arg(problem);
    return shared;
}

std::shared_ptr<ShareController> ShareController::init(const Shared &shared)
{
    const auto page = own(new ShareController(shared));
    page->setTitle(tr("Share %1").arg(shared.name));
    return page;
}

void ShareController::copyTapped()
{
    QGuiApplication::clipboard()->setText(_shared.text);
    _isCopied = true;
    emit copiedChanged();
}
