#include "editor/CheckController.h"

#include "advice/FindingText.h"
#include "platform/UITableViewSubtitleCell.h"
#include "views/ColorSwatch.h"
#include "views/SectionHeader.h"
#include "views/TablePage.h"

#include <QQuickWindow>

#include <utility>

namespace
{
const QString identifier = QStringLiteral("Finding");
} // namespace

std::shared_ptr<CheckController> CheckController::init(ThemeDocument &document)
{
    return own(new CheckController(document));
}

CheckController::CheckController(ThemeDocument &document) : _document(document)
{
    _later.setSingleShot(true);
    connect(&_later, &QTimer::timeout, this, [this] {
        list();
        show();
    });
    connect(&document, &ThemeDocument::changed, this, [this] { _later.start(0); });
    list();
}

void CheckController::list()
{
    _colors.emplace(_document.elements());
    _findings = findings(*_colors);
    _left.clear();
    _isMended = false;
}

void CheckController::show()
{
    _table->reloadData();
    emit listed();
}

void CheckController::fixAllTapped()
{
    const FixedTheme fixed = fixAll(_document.elements(), _document.lockedElements());
    _isMended = _document.changeUnlocked(fixed.changes, tr("Fix All"));
    _later.stop(); // what is left is known, and why
    _colors.emplace(_document.elements());
    _findings.clear();
    _left.clear();
    for (const auto &[finding, reason] : fixed.left) {
        _findings.push_back(finding);
        _left.push_back(reason);
    }
    show();
    _table->forceActiveFocus(); // the button may be gone
}

void CheckController::undoTapped()
{
    if (std::exchange(_isMended, false))
        _document.undo();
    _table->forceActiveFocus();
}

bool CheckController::keyPressed(int key, Qt::KeyboardModifiers modifiers)
{
    if (key != Qt::Key_Z || modifiers != Qt::ControlModifier)
        return false;
    undoTapped();
    return true;
}

QString CheckController::summary() const
{
    return _findings.empty() ? tr("No unreadable colors") : QString();
}

void CheckController::viewDidLoad()
{
    _table = page<TablePage>().table;
    _table->setDelegate(this);
    _table->setDataSource(this);
    _table->setContentInset(0.0, 50.0);
}

QString CheckController::titleForHeaderInSection(int) const
{
    return (_left.empty() ? tr("Hard to see: %1") : tr("Left: %1")).arg(_findings.size());
}

void CheckController::willDisplayHeaderView(UITableViewHeader &header, int)
{
    paintSectionHeader(header);
}

UITableViewCell *CheckController::cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath)
{
    using Reason = FixedTheme::Reason;
    auto *cell = qobject_cast<UITableViewSubtitleCell *>(
        table.dequeueReusableCellWithIdentifier(identifier));
    if (!cell) {
        cell = UITableViewSubtitleCell::initWithReuseIdentifier(identifier, *engine());
        cell->setBackgroundColor(Qt::white);
        cell->setAccessoryType(UITableViewCell::AccessoryType::DisclosureIndicator);
    }
    const auto number = size_t(indexPath.row);
    const Finding &finding = _findings[number];
    const ElementDataSource &elements = _document.elements();
    cell->textLabel()->setText(elements.tableSource()[size_t(finding.element)].name);
    cell->detailTextLabel()->setText(
        _left.empty()
            ? FindingText::details(finding, elements)
            : FindingText::fault(finding, elements) +
                  (_left[number] == Reason::Locked ? tr(". Locked") : tr(". No color does")));
    const double scale = view()->window() ? view()->window()->effectiveDevicePixelRatio() : 1.0;
    cell->setPicture(colorSwatch(_colors->seenColor(finding.on).value_or(0),
                                 _colors->seenColor(finding.element), scale),
                     scale);
    return cell;
}

void CheckController::didSelectRowAtIndexPath(NSIndexPath indexPath)
{
    _table->deselectRow(indexPath, true);
    emit chosen(_findings[size_t(indexPath.row)].element);
}
