#include "library/window/NameController.h"

#include "library/window/NamePage.h"

std::shared_ptr<NameController> NameController::init(const QString &title, const QString &verb,
                                                     std::shared_ptr<NameEntry> entry)
{
    const auto page = own(new NameController(verb, std::move(entry)));
    page->setTitle(title);
    return page;
}

void NameController::viewDidLoad()
{
    _entry->setField(*page<NamePage>().field);
}
