// What the window's previews show, and what is pointed at in them.
//
// One model serves every preview in the window: the pane beside the stage, and the page that covers
// the stage where there is no room for a pane. It follows a document, the colour under the finger
// included, or shows a theme that has none; it knows which element the editor is at, which its
// previews outline, and tells the editor which one was chosen in a preview. Main thread only.
#pragma once

#include "color/ColorVision.h"
#include "preview/PreviewScene.h"
#include "theme/ThemeDocument.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>

class PreviewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start")
    Q_PROPERTY(QString caption READ caption NOTIFY captionChanged FINAL)
    Q_PROPERTY(int eyes READ eyesIndex WRITE setEyesIndex NOTIFY eyesChanged FINAL)
    Q_PROPERTY(bool interactive READ isInteractive NOTIFY interactiveChanged FINAL)
    // What a button of the pane says, which leads elsewhere; empty: there is none.
    Q_PROPERTY(QString toolTitle READ toolTitle NOTIFY toolChanged FINAL)
    // Another number after each change of what is chosen.
    Q_PROPERTY(int revision READ revision NOTIFY revisionChanged FINAL)

public:
    /// Shows the document from now on, until another follows or the document is gone.
    void follow(ThemeDocument *document);
    /// Shows a theme instead; nothing: the document again. With a name, that is the caption,
    /// whatever is pointed at. Until a document is followed.
    void showInstead(const std::optional<PreviewPalette> &palette, const QString &name = {});

    const PreviewPalette &palette() const { return _palette; }
    /// Suits the palette. Made when first asked for, because laying text out takes its time.
    const PreviewScene &scene();

    /// Whose eyes the previews are seen with.
    Eyes eyes() const { return _eyes; }
    void setEyes(Eyes eyes);
    int eyesIndex() const { return int(_eyes); }
    void setEyesIndex(int eyes) { setEyes(Eyes(eyes)); }

    /// Whether taps count: not while something lies over the editor.
    bool isInteractive() const { return _isInteractive; }
    void setInteractive(bool isInteractive);

    /// A button of the pane, which is not about the theme that is shown; an empty title: none.
    void setTool(const QString &title, const std::function<void()> &perform);
    QString toolTitle() const { return _toolTitle; }
    Q_INVOKABLE void performTool() { _performTool(); }

    /// The key of the element that the editor is at; empty for none. Previews outline it.
    QString attention() const { return _attention; }
    void setAttention(const QString &key);
    /// The key under the pointer or the keyboard's focus in a preview; empty for none.
    void point(const QString &key);
    /// The name of what is shown, if it was given one; else the element that is pointed at or that
    /// the editor is at, in words; for none, what can be done.
    QString caption() const;
    /// The name of an element; its key where the document has none with that key.
    QString nameOf(const QString &key) const;
    /// What is chosen for it, in words: its colour text or its option.
    QString choiceOf(const QString &key) const;
    int revision() const { return _revision; }
    /// A tap or Return on a part of a preview; nothing while not interactive.
    void choose(const QString &key);

signals:
    /// So much of a screen is to be painted anew, in points of the scene.
    void touched(PreviewScreen screen, const QRegion &region);
    /// The scene is another one: what lies where has changed.
    void laidOut();
    void eyesChanged();
    void interactiveChanged();
    void revisionChanged();
    void attentionChanged();
    void captionChanged();
    void toolChanged();
    /// The key of an element that the editor is to open.
    void chosen(const QString &key);

private:
    void update();
    void updateElements(const std::vector<int> &indexes);
    void updatePassing(int index);
    const ElementRecord *recordOf(const QString &key) const;

    QPointer<ThemeDocument> _document;
    std::optional<PreviewPalette> _instead;
    QString _name;
    std::optional<PreviewPalette::Passing> _passing;
    PreviewPalette _palette;
    std::unique_ptr<PreviewScene> _scene;
    Eyes _eyes = Eyes::Normal;
    bool _isInteractive = true;
    int _revision = 0;
    QString _toolTitle;
    std::function<void()> _performTool;
    QString _attention;
    QString _pointed;
};
