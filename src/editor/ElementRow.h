// How an element looks as a row of the editor's table.
#pragma once

#include "platform/foundation/UIColor.h"
#include "theme/ElementDataSource.h"
#include "views/CustomTableCell.h"

#include <QPointer>
#include <QVariantAnimation>

#include <optional>

namespace ElementRow
{
/// Everything that the cell shows, from the record alone: name and description; on the ground of
/// its colour the colour text, or on white the label of the chosen option.
void paint(CustomTableCell &cell, const ElementRecord &record);

/// Caption and text colours for a colour that has just been chosen for the row, or removed from it.
/// A removed one leaves a blank as the caption until the row is painted anew, as on the phone.
void paintChosenColor(CustomTableCell &cell, const std::optional<UIColor> &color);
} // namespace ElementRow

/// Lets a row take on a new ground over 0.3 seconds; one row at a time.
class ElementRowFade final : public QObject
{
    Q_OBJECT

public:
    explicit ElementRowFade(QObject *parent);

    /// A row that is still on its way is at its end at once.
    void start(CustomTableCell &cell, const QColor &from, const QColor &to);
    /// The cell shows another row from now on.
    void forget(const CustomTableCell *cell);

private:
    QVariantAnimation _animation{this}; // named "rowFade"
    QPointer<CustomTableCell> _cell;
};
