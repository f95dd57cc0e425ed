// The page that makes a whole theme from one colour: one that is typed, one of the theme's, or one
// of a picture's.
//
// What it makes is shown in the previews at once, in place of the document, which changes when it
// is applied, in one step, and never otherwise. Locked rows stay.
#pragma once

#include "advice/PicturePalette.h"
#include "advice/ThemeGenerator.h"
#include "platform/UIViewController.h"
#include "preview/window/PreviewModel.h"

#include <QPointer>

#include <array>
#include <memory>
#include <vector>

class GenerateController final : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the editor")
    Q_PROPERTY(PreviewModel *model READ model CONSTANT FINAL)
    Q_PROPERTY(bool previewBeside READ isPreviewBeside NOTIFY previewBesideChanged FINAL)
    // Colours as Qt Quick writes them, and which of them leads; -1 for none.
    Q_PROPERTY(QStringList candidates READ candidates NOTIFY candidatesChanged FINAL)
    Q_PROPERTY(int candidate READ candidate WRITE chooseCandidate NOTIFY generated FINAL)
    Q_PROPERTY(int harmony READ harmony WRITE setHarmony NOTIFY generated FINAL)
    Q_PROPERTY(int tone READ tone WRITE setTone NOTIFY generated FINAL)
    Q_PROPERTY(float strength READ strength WRITE setStrength NOTIFY generated FINAL)
    Q_PROPERTY(bool hasBackground READ hasBackground NOTIFY candidatesChanged FINAL)
    Q_PROPERTY(bool usesBackground READ usesBackground WRITE useBackground NOTIFY generated FINAL)
    Q_PROPERTY(QString message READ message NOTIFY generated FINAL)
    Q_PROPERTY(bool undoable READ isUndoable NOTIFY generated FINAL)
    Q_PROPERTY(bool applicable READ isApplicable NOTIFY generated FINAL)

public:
    /// Starts from the colour that a colour is for (ThemeGenerator::usualElement) as it is now.
    /// The document must outlive the page.
    static std::shared_ptr<GenerateController> init(ThemeDocument &document, PreviewModel &model);
    ~GenerateController() override;

    /// Offers a picture's colours, of which there must be one at least, and takes the first.
    /// It can stand behind the list as well, where it comes as a choice for that.
    void offer(const PicturePalette &palette, const std::optional<ElementChoice> &background = {});
    /// Says why there is no picture; what is chosen stays.
    void refuse(const QString &problem);

    PreviewModel *model() const { return _model; }
    bool isPreviewBeside() const;

    QStringList candidates() const;
    int candidate() const;
    void chooseCandidate(int number);
    /// Any notation; what is no colour, or none yet, changes nothing.
    Q_INVOKABLE void colorTyped(const QString &notation);
    int harmony() const { return int(_wish.harmony); }
    void setHarmony(int harmony);
    int tone() const { return int(_wish.tone); }
    void setTone(int tone);
    /// 0 to 1.
    float strength() const { return _wish.strength; }
    void setStrength(float strength);
    /// Whether the picture can stand behind the list, and is to.
    bool hasBackground() const { return _background.has_value(); }
    bool usesBackground() const { return _wish.background; }
    void useBackground(bool isUsed);
    /// Draws colour, harmony and tone at random.
    Q_INVOKABLE void surpriseTapped();
    /// Back to before the last draw.
    Q_INVOKABLE void undoTapped();
    bool isUndoable() const { return !_earlier.empty(); }
    QString message() const;
    bool isApplicable() const { return !_changes.empty(); }
    /// Makes it the document's, and closes the page.
    Q_INVOKABLE void applyTapped();

    /// The keys that undo.
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers) override;
    void viewDidLoad() override;

signals:
    void previewBesideChanged();
    void candidatesChanged();
    /// Something is wished otherwise, or has come out otherwise.
    void generated();
    /// A picture is wanted.
    void photoTapped();
    /// The page is done with, applied or not.
    void closeTapped();

protected:
    const char *viewFile() const override { return "editor/GenerateView.qml"; }

private:
    struct Wish {
        QRgb color = qRgb(0x33, 0x66, 0x99);
        Harmony harmony = Harmony::Single;
        Tone tone = Tone::AsItIs;
        float strength = 1.0F;
        bool background = false;
        bool operator==(const Wish &) const = default;
    };
    GenerateController(ThemeDocument &document, PreviewModel &model);
    void startAnew();
    void wish(const Wish &wish);
    void generate();
    void addBackground();
    void showColor();
    const ThemeGenerator &generator();

    ThemeDocument &_document;
    const QPointer<PreviewModel> _model;
    std::vector<QRgb> _candidates;
    QString _note; // about the picture
    bool _hasPicture = false;
    std::optional<ElementChoice> _background;
    Wish _wish;
    std::vector<Wish> _earlier;                                 // before each draw
    std::array<std::unique_ptr<ThemeGenerator>, 3> _generators; // by tone; made when first needed
    ThemeDocument::Changes _changes;
    size_t _left = 0; // how many are hard to see still
};
