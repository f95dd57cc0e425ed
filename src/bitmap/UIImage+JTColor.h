// Images of one solid colour. An image's device pixel ratio is its scale in pixels per point.
#pragma once

#include "platform/foundation/UIColor.h"
#include "platform/foundation/UIScreen.h"

#include <QImage>
#include <QRectF>

/// 1 x 1 points filled with the colour, its alpha kept.
QImage imageWithColor(const UIColor &color, double scale = UIScreen::mainScreen().scale());

/// An image of the rectangle's size, in points, in which the rectangle itself is filled: an origin
/// other than (0, 0) leaves the rest of the canvas transparent, as on the phone. A null image when
/// the size is empty.
QImage imageWithColorRect(const UIColor &color, const QRectF &rect,
                          double scale = UIScreen::mainScreen().scale());
