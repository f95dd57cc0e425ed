// A screen, or a container of screens: decides, while the QML that it names draws.
//
// Life of a view: made at first need (viewDidLoad), shown (viewWillAppear, viewDidAppear), laid out
// at each change of size (viewDidLayoutSubviews), hidden (viewWillDisappear). Everything here is
// for the main thread; but whoever lets go of a controller last, it dies on the main thread.
#pragma once

#include <QMimeData>
#include <QObject>
#include <QQmlEngine>
#include <QQuickItem>
#include <QVariantMap>

#include <memory>

class UINavigationController;

class UIViewController : public QObject, public std::enable_shared_from_this<UIViewController>
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    ~UIViewController() override;

    /// Null before the view is needed.
    QQuickItem *view() const { return _view.get(); }
    void loadViewIfNeeded(QQmlEngine &engine);
    /// The view as the type that the root of its file must have. Only once the view is loaded.
    template <typename Page>
    Page &page() const
    {
        auto *page = qobject_cast<Page *>(view());
        if (!page)
            qFatal("%s is no %s", viewFile(), Page::staticMetaObject.className());
        return *page;
    }

    /// The stack that the controller stands in, or null. Set by that stack.
    UINavigationController *navigationController() const { return _navigationController; }
    void setNavigationController(UINavigationController *controller)
    {
        _navigationController = controller;
    }

    /// What the navigation bar says over this screen. Set it before the screen is pushed.
    QString title() const { return _title; }
    void setTitle(const QString &title) { _title = title; }

    /// False while leaving the screen by the bar's way back would do harm.
    virtual bool allowsBack() const { return true; }

    /// A key (Qt::Key) that nothing on the screen has taken; true when it has been used.
    virtual bool keyPressed(int key, Qt::KeyboardModifiers modifiers)
    {
        Q_UNUSED(key)
        Q_UNUSED(modifiers)
        return false;
    }

    /// Whether something that is dragged over the window is wanted; and takes it when it has been
    /// dropped, which is true when it was used.
    virtual bool takesDrop(const QMimeData &data)
    {
        Q_UNUSED(data)
        return false;
    }
    virtual bool drop(const QMimeData &data)
    {
        Q_UNUSED(data)
        return false;
    }

    virtual void viewDidLoad() {}
    virtual void viewWillAppear(bool animated) { Q_UNUSED(animated) }
    virtual void viewDidAppear(bool animated) { Q_UNUSED(animated) }
    virtual void viewWillDisappear(bool animated) { Q_UNUSED(animated) }
    virtual void viewDidLayoutSubviews() {}

    /// The program ends: finish what must not be lost and let go of whoever holds this controller.
    virtual void prepareForTermination() {}

protected:
    UIViewController() = default;

    /// Owns a new controller so that it always dies on the main thread.
    template <typename Controller>
    static std::shared_ptr<Controller> own(Controller *controller)
    {
        return std::shared_ptr<Controller>(controller, destroyOnMainThread);
    }

    /// The QML file that draws this controller. Its root takes the controller as the required
    /// property "controller".
    virtual const char *viewFile() const = 0;
    QQmlEngine *engine() const { return _engine; }

private:
    static void destroyOnMainThread(UIViewController *controller);

    std::unique_ptr<QQuickItem> _view;
    QQmlEngine *_engine = nullptr;
    UINavigationController *_navigationController = nullptr;
    QString _title;
};
