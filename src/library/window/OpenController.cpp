#include "library/window/OpenController.h"

#include "library/ChosenPackage.h"
#include "library/ThemeLibrary.h"
#include "library/ThemeName.h"
#include "library/window/NamePage.h"

OpenController::Pending
OpenController::pending(const std::function<ThemeOpening(const ThemeOpener &)> &open,
                        const QString &resources, const QString &documents)
{
    const auto list = ElementDataSource::loadWith(resources, nullptr);
    if (list.status() != ElementDataSource::Status::Loaded)
        return {{}, {}, {}, list.problem()};
    auto [theme, problem] = open(ThemeOpener(list));
    if (!theme)
        return {{}, {}, {}, problem};
    const auto elements = elementsOf(theme->contents, resources);
    QSet<QString> taken;
    for (const QString &name : ThemeLibrary::open(documents)->names())
        taken.insert(ThemeName::key(name));
    const QString name = ThemeName::freeName(theme->name, taken);
    return {std::move(theme), PreviewPalette::fromElements(elements), name, {}};
}

std::shared_ptr<OpenController> OpenController::init(const Pending &pending)
{
    const auto page = own(new OpenController(pending));
    page->setTitle(tr("Open Theme"));
    return page;
}

OpenController::OpenController(const Pending &pending)
    : _pending(pending), _entry(NameEntry::make(pending.name, NameEntry::Replacing::OnRequest))
{
    _model.setInteractive(false);
    _model.showInstead(pending.palette, pending.theme->name);
}

void OpenController::viewDidLoad()
{
    _entry->setField(*page<NamePage>().field);
}

void OpenController::keepTapped()
{
    _isToBeEdited = false;
    _entry->accept();
}

void OpenController::keepAndEditTapped()
{
    _isToBeEdited = true;
    _entry->accept();
}
