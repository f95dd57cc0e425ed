#include "HSColorPicker/window/HSColorPickerView.h"

#include "HSColorPicker/ColorPickerClasses/HSBitmapCache.h"
#include "HSColorPicker/ColorPickerClasses/HSColorFunctions.h"
#include "HSColorPicker/ColorPickerClasses/HSLayerPicture.h"
#include "HSColorPicker/window/BGHSLoupeLayer.h"
#include "HSColorPicker/window/HSSelectionLayer.h"

#include <QPainter>
#include <QQuickWindow>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
/// A ring's and a disc's side, in points.
constexpr double markSide = 22.0;
/// The checkerboard's tile, in points.
constexpr double tileSide = 20.0;

template <class Layer>
Layer *makeLayer(QQuickItem *parent, const char *name)
{
    auto *layer = new Layer(parent);
    layer->setObjectName(name);
    return layer;
}
} // namespace

HSColorPickerView::HSColorPickerView(QQuickItem *parent)
    : UIView(parent), _state(HSColorPickerState::initWithColor(UIColor::whiteColor()))
{
    initRoutine();
}

HSColorPickerView::~HSColorPickerView() = default;

HSColorPickerView *HSColorPickerView::initWithFrame(const QRectF &frame, QQuickItem *parent)
{
    const double side = std::min(frame.width(), frame.height());
    auto *view = new HSColorPickerView(parent);
    view->setFrame({frame.topLeft(), QSizeF(side, side)});
    return view;
}

void HSColorPickerView::initRoutine()
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    _contentsLayer = makeLayer<QQuickItem>(this, "_contentsLayer");
    _contentsLayer->setClip(true);
    _gradientLayer = makeLayer<CALayer>(_contentsLayer, "_gradientLayer");
    _brightnessLayer = makeLayer<CALayer>(_contentsLayer, "_brightnessLayer");
    _selectionColorLayer = makeLayer<CALayer>(_contentsLayer, "_selectionColorLayer");
    // Above the disc, which is to show the transparency as well.
    _opacityLayer = makeLayer<CALayer>(_contentsLayer, "_opacityLayer");
    _selectionLayer = makeLayer<HSSelectionLayer>(_contentsLayer, "_selectionLayer");
    _selectionColorLayer->setSize({markSide, markSide});
    _selectionLayer->setSize({markSide, markSide});
    _selectionLayer->setNeedsDisplay();
    generateBezierPaths();
    handleStateChanged();
}

void HSColorPickerView::setBrightness(double brightness)
{
    _state = _state.stateBySettingBrightness(brightness);
    handleStateChanged();
}

void HSColorPickerView::setOpacity(double opacity)
{
    _state = _state.stateBySettingAlpha(opacity);
    handleStateChanged();
}

void HSColorPickerView::setSelectionColor(const UIColor &color)
{
    _state = HSColorPickerState::initWithColor(color);
    handleStateChanged();
}

QPointF HSColorPickerView::selection() const
{
    return _state.selectionLocationWithSize(paletteDiameter(), paddingDistance());
}

void HSColorPickerView::setSelection(QPointF point)
{
    updateStateForTouchPoint(point);
}

QString HSColorPickerView::spokenSelection() const
{
    return tr("Hue %1 degrees, saturation %2 percent")
        .arg(std::lround(_state.hue() * 360.0))
        .arg(std::lround(_state.saturation() * 100.0));
}

HSColorPickerState HSColorPickerView::stateForPoint(QPointF point) const
{
    return HSColorPickerState::stateForPoint(point, paletteDiameter(), paddingDistance())
        .stateBySettingAlpha(opacity())
        .stateBySettingBrightness(brightness());
}

void HSColorPickerView::setCropToCircle(bool cropToCircle)
{
    const bool changed = _cropToCircle != cropToCircle;
    _cropToCircle = cropToCircle;
    generateBezierPaths();
    drawPictures();
    if (cropToCircle)
        updateStateForTouchPoint(validPointForTouch(selection()));
    else
        handleStateChanged();
    if (changed)
        emit cropToCircleChanged();
}

void HSColorPickerView::setShowLoupe(bool showLoupe)
{
    if (_showLoupe == showLoupe)
        return;
    _showLoupe = showLoupe;
    emit showLoupeChanged();
}

void HSColorPickerView::setDelegate(std::weak_ptr<HSColorPickerViewDelegate> delegate)
{
    _delegate = std::move(delegate);
}

void HSColorPickerView::setFrame(const QRectF &frame)
{
    // Position and size change one after the other; that is one change of frame.
    _isSettingFrame = true;
    UIView::setFrame(frame);
    _isSettingFrame = false;
    resizeOrRescale();
}

void HSColorPickerView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    UIView::geometryChange(newGeometry, oldGeometry);
    if (!_isSettingFrame)
        resizeOrRescale();
}

void HSColorPickerView::itemChange(ItemChange change, const ItemChangeData &data)
{
    UIView::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        resizeOrRescale();
}

void HSColorPickerView::resizeOrRescale()
{
    if (!window() || width() == 0.0 || height() == 0.0) {
        _scale = 0.0;
        hideLoupeLayer(false);
        return;
    }
    _scale = window()->effectiveDevicePixelRatio();
    _selectionLayer->setContentsScale(_scale);
    for (QQuickItem *layer : std::initializer_list<QQuickItem *>{_contentsLayer, _gradientLayer,
                                                                 _brightnessLayer, _opacityLayer})
        layer->setSize(size());
    if (_loupeLayer)
        _loupeLayer->setContentsScale(_scale);
    _bitmapNeedsUpdate = true;
    genBitmap();
    generateBezierPaths();
    drawPictures();
    handleStateChanged();
}

void HSColorPickerView::genBitmap()
{
    if (!_bitmapNeedsUpdate)
        return;
    _rep = bitmapForDiameter(width(), _scale, paddingDistance(), true);
    _bitmapNeedsUpdate = false;
}

const HSColorPickerView::Pictures &HSColorPickerView::picturesFor(const PictureKey &key) const
{
    static std::optional<Pictures> last;
    if (last && last->key == key)
        return *last;
    const double radius = key.isCircle ? key.size.width() * 0.5 : 0.0;
    const QImage wheel = _rep ? _rep->image() : QImage();
    const QImage tile =
        HSOpacityBackgroundImage(tileSide, key.scale, UIColor::colorWithWhite(0.5, 1.0));
    const auto filledWith = [&](const QBrush &paint) {
        return HSLayerPicture(paint, key.size, key.scale, radius);
    };
    last =
        Pictures{key, HSLayerPicture(wheel, key.size, key.scale, radius),
                 filledWith(QBrush(Qt::black)), filledWith(QBrush(HSUIImageWithScale(tile, 1.0)))};
    return *last;
}

void HSColorPickerView::drawPictures()
{
    const PictureKey wanted{size(), _scale, _cropToCircle};
    if (_scale == 0.0 || _drawnPictures == wanted)
        return;
    _drawnPictures = wanted;
    _drawnSelectionColor.reset();
    _selectionDisc =
        HSLayerPicture(QBrush(Qt::black), {markSide, markSide}, _scale, markSide * 0.5);
    const Pictures &pictures = picturesFor(wanted);
    _gradientLayer->setPixels(pictures.wheel, _scale);
    _brightnessLayer->setPixels(pictures.black, _scale);
    _opacityLayer->setPixels(pictures.checkerboard, _scale);
}

void HSColorPickerView::generateBezierPaths()
{
    const double padding = paddingDistance();
    const QRectF rect = boundingRect().adjusted(padding, padding, -padding, -padding);
    _activeAreaShape.clear();
    if (!rect.isValid())
        return; // too small a view has no active area; a rectangle turned inside out would be one
    if (_cropToCircle)
        _activeAreaShape.addEllipse(rect);
    else
        _activeAreaShape.addRect(rect);
}

void HSColorPickerView::drawSelectionColor()
{
    const QColor color = selectionColor().qColor();
    if (_scale == 0.0 || _drawnSelectionColor == color)
        return;
    _drawnSelectionColor = color;
    QImage disc = _selectionDisc; // a round edge takes ten times as long to make as to colour
    QPainter painter(&disc);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(disc.rect(), color);
    painter.end();
    _selectionColorLayer->setPixels(disc, _scale);
}

void HSColorPickerView::handleStateChanged()
{
    // On whole pixels: in between the ring would be a blur.
    const double grid = _scale > 0.0 ? _scale : 1.0;
    const auto onPixel = [=](double centre) {
        return std::round((centre - markSide * 0.5) * grid) / grid;
    };
    const QPointF centre = selection();
    const QPointF corner(onPixel(centre.x()), onPixel(centre.y()));
    _selectionLayer->setPosition(corner);
    _selectionColorLayer->setPosition(corner);
    placeLoupeLayer(centre);
    drawSelectionColor();
    _opacityLayer->setOpacity(1.0 - opacity());
    _brightnessLayer->setOpacity(1.0 - brightness());
    emit selectionChanged();
    if (const auto delegate = _delegate.lock())
        delegate->colorPickerDidChangeSelection(*this);
}

QPointF HSColorPickerView::validPointForTouch(QPointF point) const
{
    if (_activeAreaShape.contains(point))
        return point;
    if (_cropToCircle) {
        const QPointF middle = boundingRect().center();
        const QPointF away = point - middle;
        double angle = std::acos(away.x() / std::sqrt(QPointF::dotProduct(away, away)));
        if (point.y() > middle.x()) // both middles are one, as on the phone: it is a square there
            angle = 2.0 * std::numbers::pi - angle;
        const double radius = std::abs(paletteDiameter() * 0.5 - paddingDistance());
        return {middle.x() + radius * std::cos(angle), middle.y() - radius * std::sin(angle)};
    }
    const double lower = paddingDistance();
    const double upper = paletteDiameter() - paddingDistance();
    const auto clamped = [=](double value) { return std::min(std::max(value, lower), upper); };
    return {clamped(point.x()), clamped(point.y())};
}

void HSColorPickerView::updateStateForTouchPoint(QPointF point)
{
    _state = stateForPoint(validPointForTouch(point));
    handleStateChanged();
}

void HSColorPickerView::showLoupeLayer()
{
    if (!_loupeLayer)
        _loupeLayer = new BGHSLoupeLayer(this);
    _loupeLayer->setContentsScale(_scale);
    _loupeLayer->appearInColorPicker(*this);
}

void HSColorPickerView::hideLoupeLayer(bool animated)
{
    if (_loupeLayer)
        _loupeLayer->disappearAnimated(animated);
}

void HSColorPickerView::placeLoupeLayer(QPointF point)
{
    if (!_loupeLayer)
        return;
    const QPointF origin = point - QPointF(_loupeLayer->width() * 0.5, _loupeLayer->height());
    _loupeLayer->setPosition({std::round(origin.x()), std::round(origin.y())});
    _loupeLayer->setNeedsDisplay();
}

void HSColorPickerView::prepareForDiameter(double diameter)
{
    prepareForDiameterPadding(diameter, defaultPadding);
}

void HSColorPickerView::prepareForDiameterPadding(double diameter, double padding)
{
    prepareForDiameterScalePadding(diameter, 1.0, padding);
}

void HSColorPickerView::prepareForDiameterScale(double diameter, double scale)
{
    prepareForDiameterScalePadding(diameter, scale, defaultPadding);
}

void HSColorPickerView::prepareForDiameterScalePadding(double diameter, double scale,
                                                       double padding)
{
    prepareForDiameterScalePaddingInBackground(diameter, scale, padding, true);
}

void HSColorPickerView::prepareForDiameterScalePaddingInBackground(double diameter, double scale,
                                                                   double padding,
                                                                   bool inBackground)
{
    HSBitmapCache::shared().prepareForDiameter(diameter, scale, padding, inBackground);
}

std::shared_ptr<ANImageBitmapRep> HSColorPickerView::bitmapForDiameter(double diameter,
                                                                       double scale, double padding,
                                                                       bool shouldCache)
{
    return HSBitmapCache::shared().bitmapForDiameter(diameter, scale, padding, shouldCache);
}
