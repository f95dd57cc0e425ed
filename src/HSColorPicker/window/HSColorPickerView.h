// The touch colour wheel: a square picture of all hues and saturations, darkened as the brightness
// falls, with a checkerboard that shows through as the colour becomes transparent, a ring on the
// selected point and a loupe that follows the finger.
//
// Its whole value is one HSColorPickerState. Touches, sliders and the owning screen all replace
// that state; the view then places its layers and tells its delegate, once per change:
//
//   setSelectionColor, setBrightness, setOpacity, setSelection, a touch   --> new state --+
//   a new frame, window or shape                                          --> same state -+
//                                                                                         |
//                                        colorPickerDidChangeSelection <-- handleStateChanged
//
// Layers are child items, so that a moving finger moves items and the wheel's picture stays where
// it is. From the bottom: wheel, black, disc of the selected colour, checkerboard, ring (all in one
// item that clips them), loupe. In the circular shape each picture is cut to the circle when it is
// made: that is round on either renderer, where a clip would not be.
#pragma once

#include "HSColorPicker/ColorPickerClasses/HSColorPickerState.h"
#include "bitmap/ANImageBitmapRep.h"
#include "platform/UIView.h"

#include <QPainterPath>
#include <QPointerEvent>

#include <memory>
#include <optional>

class BGHSLoupeLayer;
class CALayer;
class HSColorPickerView;
class HSSelectionLayer;

/// Every message is optional.
class HSColorPickerViewDelegate
{
public:
    virtual ~HSColorPickerViewDelegate() = default;
    /// After every change of state has been drawn, a change to an equal state included.
    virtual void colorPickerDidChangeSelection(HSColorPickerView &) {}
    /// At the end of the handling of a touch down and of a touch up; a cancelled touch has no end.
    /// The touches are those of the event that are new, or gone; a mouse counts as one.
    virtual void touchesBegan(HSColorPickerView &, const QList<QEventPoint> &,
                              const QPointerEvent &)
    {
    }
    virtual void touchesEnded(HSColorPickerView &, const QList<QEventPoint> &,
                              const QPointerEvent &)
    {
    }
};

/// Main thread only. Points are in the view's own coordinates, y growing downward. `scale`, `state`
/// and `opacity` here are the wheel's; QQuickItem's own of these names are what QML sees.
class HSColorPickerView : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        bool cropToCircle READ cropToCircle WRITE setCropToCircle NOTIFY cropToCircleChanged FINAL)
    Q_PROPERTY(QString spokenSelection READ spokenSelection NOTIFY selectionChanged FINAL)
    Q_PROPERTY(bool showLoupe READ showLoupe WRITE setShowLoupe NOTIFY showLoupeChanged FINAL)

public:
    /// Made by QML, or by hand with a frame set later: whatever its frame becomes, it is kept.
    explicit HSColorPickerView(QQuickItem *parent = nullptr);
    /// The frame is made square first, of the smaller of its sides.
    static HSColorPickerView *initWithFrame(const QRectF &frame, QQuickItem *parent = nullptr);
    ~HSColorPickerView() override;

    // The bitmaps that all wheels share, in HSBitmapCache::shared(). Diameters and paddings are in
    // points, scales in pixels per point: 1 unless given, the padding a view's own.
    /// Make a bitmap ahead of time, in the background unless told to wait for it.
    static void prepareForDiameter(double diameter);
    static void prepareForDiameterPadding(double diameter, double padding);
    static void prepareForDiameterScale(double diameter, double scale);
    static void prepareForDiameterScalePadding(double diameter, double scale, double padding);
    static void prepareForDiameterScalePaddingInBackground(double diameter, double scale,
                                                           double padding, bool inBackground);
    /// See HSBitmapCache.
    static std::shared_ptr<ANImageBitmapRep> bitmapForDiameter(double diameter, double scale,
                                                               double padding, bool shouldCache);

    const HSColorPickerState &state() const { return _state; }
    /// 0-1 as a rule, but any number is kept; so is the opacity.
    double brightness() const { return _state.brightness(); }
    void setBrightness(double brightness);
    /// The selected colour's alpha.
    double opacity() const { return _state.alpha(); }
    void setOpacity(double opacity);
    UIColor selectionColor() const { return _state.color(); }
    /// Any colour; the selection moves to its place on the wheel.
    void setSelectionColor(const UIColor &color);
    /// Where the state lies in the view.
    QPointF selection() const;
    /// An arrow key (Qt::Key, Qt::KeyboardModifiers) moves the selection by a point, with Shift by
    /// ten, as a touch there would. False for any other key.
    Q_INVOKABLE bool moveByKey(int key, int modifiers);
    /// Hue and saturation in words, for those who do not see the wheel.
    QString spokenSelection() const;
    /// As a touch there would, but without the loupe and the messages about touches.
    void setSelection(QPointF point);

    /// The state and colour that a point would give, at the brightness and opacity of now. Nothing
    /// is changed. The point is taken as it is, wherever it lies.
    HSColorPickerState stateForPoint(QPointF point) const;
    UIColor colorAtPoint(QPointF point) const { return stateForPoint(point).color(); }

    /// What a touch at the point selects: the point itself within the active area; otherwise the
    /// place on the circle's rim in its direction, or the nearest place of the square.
    QPointF validPointForTouch(QPointF point) const;

    /// Whether the active area and the picture are round, or square as at first.
    bool cropToCircle() const { return _cropToCircle; }
    void setCropToCircle(bool cropToCircle);
    /// Where touches are taken as they are. Made anew with each change of shape and, in a window,
    /// of frame or window; another one holds until then.
    const QPainterPath &activeAreaShape() const { return _activeAreaShape; }
    void setActiveAreaShape(const QPainterPath &shape) { _activeAreaShape = shape; }
    /// Whether a touch shows the loupe; it does at first.
    bool showLoupe() const { return _showLoupe; }
    void setShowLoupe(bool showLoupe);
    std::weak_ptr<HSColorPickerViewDelegate> delegate() const { return _delegate; }
    void setDelegate(std::weak_ptr<HSColorPickerViewDelegate> delegate);

    /// The wheel's bitmap in use; null before the view has been in a window with a size.
    std::shared_ptr<ANImageBitmapRep> rep() const { return _rep; }
    /// The window's pixels per point; 0 without a window or a size.
    double scale() const { return _scale; }
    /// From the view's edge to the active area, in points.
    double paddingDistance() const { return defaultPadding; }
    /// The view's width.
    double paletteDiameter() const { return width(); }

    void setFrame(const QRectF &frame) override;
    /// Makes the pictures for the window's scale and the view's size, and reports; without a window
    /// or a size there is no scale, no loupe and no report.
    void resizeOrRescale();
    /// Places and colours the layers for the state, then reports to the delegate.
    void handleStateChanged();

signals:
    void selectionChanged();
    void cropToCircleChanged();
    void showLoupeChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void touchEvent(QTouchEvent *event) override;
    void touchUngrabEvent() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    static constexpr double defaultPadding = 11.0;

    void initRoutine();
    void genBitmap();
    void drawPictures();
    void drawSelectionColor();
    void generateBezierPaths();
    void updateStateForTouchPoint(QPointF point);

    // One finger, or the mouse, at a time.
    void touchesBegan(const QList<QEventPoint> &touches, const QPointerEvent &event);
    void touchesMoved(const QEventPoint &touch);
    void touchesEnded(const QList<QEventPoint> &touches, const QPointerEvent &event);
    void touchesCancelled();

    void showLoupeLayer();
    void hideLoupeLayer(bool animated);
    /// On whole points, hanging over the point that is selected.
    void placeLoupeLayer(QPointF point);

    bool _bitmapNeedsUpdate = false;
    HSColorPickerState _state;
    bool _cropToCircle = false;
    std::weak_ptr<HSColorPickerViewDelegate> _delegate;
    bool _showLoupe = true;
    std::shared_ptr<ANImageBitmapRep> _rep;
    QPainterPath _activeAreaShape;
    // All children; from the bottom up, but for the contents layer, which holds the others.
    QQuickItem *_contentsLayer;
    CALayer *_gradientLayer;
    CALayer *_brightnessLayer;
    CALayer *_selectionColorLayer;
    CALayer *_opacityLayer;
    HSSelectionLayer *_selectionLayer;
    BGHSLoupeLayer *_loupeLayer = nullptr; // a child, made for the first touch
    double _scale = 0.0;

    // What the layers' pictures were drawn for: they are as large as the wheel, and uploaded anew
    // whenever they are set.
    struct PictureKey {
        QSizeF size;
        double scale;
        bool isCircle;
        bool operator==(const PictureKey &) const = default;
    };
    /// The last ones are kept for the next wheel: a page that is opened again finds them ready.
    struct Pictures {
        PictureKey key;
        QImage wheel, black, checkerboard;
    };
    const Pictures &picturesFor(const PictureKey &key) const;
    std::optional<PictureKey> _drawnPictures;
    QImage _selectionDisc; // black
    std::optional<QColor> _drawnSelectionColor;

    std::optional<int> _touchId; // of the finger that is on the wheel
    bool _isSettingFrame = false;
};
