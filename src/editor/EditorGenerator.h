// How the editor comes to a theme that is made of one colour: the page, and the pictures that a
// person chooses or drops on the window.
#pragma once

#include "platform/foundation/DispatchQueue.h"

#include <QMimeData>
#include <QObject>
#include <QPointer>
#include <QQuickItem>

#include <functional>
#include <memory>

class CustomViewController;
struct ElementPicture;
class GenerateController;

class EditorGenerator : public QObject
{
    Q_OBJECT

public:
    explicit EditorGenerator(CustomViewController &editor);

    /// The editor's view takes pictures that are dropped on it.
    void viewDidLoad();
    /// Whether a theme can be made now.
    bool isOffered() const;

    /// Lays the page over the stage.
    void showPage();
    /// Asks for a picture, and shows the page with its colours.
    void askForPhoto();
    /// Reads the picture on a queue, under the busy box unless the page is up, and shows the page
    /// with its colours. A file that is no picture gets a sentence, on the page where it is up.
    void openPicture(const QString &path);

    /// Whether the element can be a picture in place of a colour; and asks for that.
    bool takesPicture(int index) const;
    void askForBackground(int index);
    /// Lays the page over the stage on which a picture for the element is placed.
    void place(int index, const ElementPicture &picture);

private:
    struct Picture;
    void takeDropsOn(QQuickItem *view);
    bool takeDrop(const QMimeData &data, bool isDropped);
    /// On the queue; `use` on the main thread.
    void read(std::function<Picture()> reading, std::function<void(const Picture &)> use);
    void show(const Picture &picture);
    void refuse(const Picture &picture);

    CustomViewController &_editor;
    QPointer<GenerateController> _page;    // while it is up
    std::unique_ptr<DispatchQueue> _queue; // made for the first picture
};
