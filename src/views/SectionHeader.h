// What every table of the program has above its sections.
#pragma once

#include "platform/UITableViewHeader.h"
#include "platform/foundation/UIColor.h"

inline QColor themeGreen()
{
    return UIColor::colorWithRed(0.0, 214.0 / 255.0, 68.0 / 255.0, 1.0).qColor();
}

inline void paintSectionHeader(UITableViewHeader &header)
{
    header.textLabel()->setTextColor(Qt::white);
    header.setTintColor(themeGreen());
}
