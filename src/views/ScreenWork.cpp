#include "views/ScreenWork.h"

ScreenWork::ScreenWork(std::string label, ScreenOverlays &overlays)
    : _overlays(overlays), _queue(std::move(label))
{
}

void ScreenWork::start(const QString &text)
{
    _table->setScrollEnabled(false);
    _table->setAllowsSelection(false);
    _overlays.showLoaderWithLabel(text);
}

void ScreenWork::stop()
{
    _table->setScrollEnabled(true);
    _table->setAllowsSelection(true);
    _overlays.removeLoader();
}

void ScreenWork::finish()
{
    _queue.sync([] {});
    MainQueue::drain();
}
