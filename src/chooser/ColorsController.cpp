#include "chooser/ColorsController.h"

#include "platform/UITableViewSubtitleCell.h"
#include "theme/ColorText.h"
#include "theme/ShownColor.h"
#include "views/ColorSwatch.h"
#include "views/SectionHeader.h"
#include "views/TablePage.h"

#include <QQuickWindow>

#include <algorithm>

namespace
{
const QString identifier = QStringLiteral("Color");
} // namespace

ColorsController::ColorsController()
{
    connect(&_screen, &ScreenColorPicker::availableChanged, this,
            &ColorsController::picksFromScreenChanged);
    connect(&_screen, &ScreenColorPicker::picked, this,
            [this](const QColor &color) { emit chosen(hexStringForRgb(color.rgb())); });
}

void ColorsController::pickFromScreen()
{
    _screen.pick(view()->window());
}

std::shared_ptr<ColorsController> ColorsController::init(const QStringList &recent,
                                                         std::vector<ColorsAtHand::Color> inTheme)
{
    const auto page = own(new ColorsController);
    Section used{tr("Used last"), {}};
    for (const QString &color : recent) {
        const auto same = std::ranges::find(inTheme, color, &ColorsAtHand::Color::text);
        used.colors.push_back({color, same == inTheme.end() ? QString() : same->names});
    }
    if (!used.colors.empty())
        page->_sections.push_back(std::move(used));
    if (!inTheme.empty())
        page->_sections.push_back({tr("In this theme"), std::move(inTheme)});
    return page;
}

void ColorsController::viewDidLoad()
{
    UITableView *const table = page<TablePage>().table;
    table->setDelegate(this);
    table->setDataSource(this);
}

const ColorsAtHand::Color &ColorsController::colorAt(NSIndexPath row) const
{
    return _sections[size_t(row.section)].colors[size_t(row.row)];
}

QString ColorsController::titleForHeaderInSection(int section) const
{
    return _sections[size_t(section)].title;
}

int ColorsController::numberOfRowsInSection(int section) const
{
    return int(_sections[size_t(section)].colors.size());
}

void ColorsController::willDisplayHeaderView(UITableViewHeader &header, int)
{
    paintSectionHeader(header);
}

UITableViewCell *ColorsController::cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath)
{
    auto *cell = qobject_cast<UITableViewSubtitleCell *>(
        table.dequeueReusableCellWithIdentifier(identifier));
    if (!cell) {
        cell = UITableViewSubtitleCell::initWithReuseIdentifier(identifier, *engine());
        cell->setBackgroundColor(Qt::white);
    }
    const ColorsAtHand::Color &color = colorAt(indexPath);
    cell->textLabel()->setText(color.text);
    cell->detailTextLabel()->setText(color.names);
    const double scale = view()->window() ? view()->window()->effectiveDevicePixelRatio() : 1.0;
    cell->setPicture(colorSwatch(rgbFromHexString(color.text), {}, scale), scale);
    return cell;
}

void ColorsController::didSelectRowAtIndexPath(NSIndexPath indexPath)
{
    emit chosen(colorAt(indexPath).text);
}
