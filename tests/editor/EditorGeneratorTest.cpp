#include "editor/EditorGenerator.h"

#include "advice/Findings.h"
#include "editor/GenerateController.h"
#include "editor/GeneratePage.h"
#include "editor/PlaceController.h"
#include "platform/UISlider.h"
#include "support/EditorFixture.h"
#include "theme/ElementPicture.h"

#include <QDropEvent>
#include <QMimeData>

namespace
{
const QString green = "green-balloon-colors_1";

struct EditorGeneratorTest : EditorFixture {
    void SetUp() override
    {
        useShippedDocument();
        start();
    }
    ThemeDocument &document() { return editor().document(); }
    int index(const QString &key) { return *document().elements().shownIndexOfKey(key); }
    QString colorOf(const QString &key) { return document().record(index(key)).color.toString(); }
    ThemeDocument::Changes choices()
    {
        ThemeDocument::Changes all;
        for (int i = 0; i < document().count(); ++i)
            all.push_back({i, document().record(i).choice()});
        return all;
    }
    bool isAsBefore(const ThemeDocument::Changes &before)
    {
        return std::ranges::equal(before, choices(), {}, &ThemeDocument::Change::choice,
                                  &ThemeDocument::Change::choice);
    }
    const PreviewPalette &shown() { return editor().preview()->model()->palette(); }
    PreviewPalette ofDocument() { return PreviewPalette::fromElements(document().elements()); }

    GenerateController *page()
    {
        return qobject_cast<GenerateController *>(window().presentedViewController());
    }
    template <typename Item = QQuickItem>
    Item *part(const char *name)
    {
        return page()->view()->findChild<Item *>(name);
    }
    /// Repeated parts are no children of the page but as items.
    static QQuickItem *itemNamed(QQuickItem *in, const QString &name)
    {
        if (in->objectName() == name)
            return in;
        for (QQuickItem *child : in->childItems())
            if (QQuickItem *found = itemNamed(child, name))
                return found;
        return nullptr;
    }
    void openPage()
    {
        tap(item("_moreButton"));
        const QStringList entries = window().actionSheet()->buttonTitles();
        window().actionSheet()->click(int(entries.indexOf("Theme from a Color\u2026")));
        settle();
        ASSERT_TRUE(page());
    }
    void typeColor(const char *text)
    {
        auto *field = page()->page<GeneratePage>().colorField;
        field->becomeFirstResponder();
        field->selectAll();
        type(text);
        settle();
    }

    QString picture(const QString &name, std::initializer_list<QColor> bands)
    {
        QImage image(40 * int(bands.size()), 60, QImage::Format_RGB32);
        int left = 0;
        for (const QColor &band : bands)
            for (int x = left, end = left += 40; x < end; ++x)
                for (int y = 0; y < 60; ++y)
                    image.setPixelColor(x, y, band);
        const QString path = _folder.filePath(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    /// Whether it was taken.
    bool drop(const QString &file)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        return drop(data);
    }
    bool drop(const QMimeData &data)
    {
        QDragEnterEvent enter({150, 200}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &enter);
        if (!enter.isAccepted()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(&window(), &leave);
            return false;
        }
        QDropEvent event({150, 200}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &event);
        return event.isAccepted();
    }
    bool waitUntilRead()
    {
        return QTest::qWaitFor([this] { return !editor().isLoading(); });
    }
};
} // namespace

TEST_F(EditorGeneratorTest, ShowsAtOnceWhatApplyMakesOneStepOf)
{
    const auto before = choices();
    editor().setLocked(index("send-button-color"), true);
    openPage();
    typeColor("seagreen");
    part<UISlider>("strength")->moveTo(0.9F);
    page()->setHarmony(int(Harmony::Triadic));
    page()->setTone(int(Tone::Dark));
    EXPECT_EQ(page()->candidate(), -1) << "typed";
    EXPECT_EQ(shown().color(PreviewElement::GreenBalloon1), 0xFF2E8B57);
    EXPECT_TRUE(page()->message().contains("Locked, and left as they are: 1"));
    EXPECT_TRUE(isAsBefore(before)) << "nothing is applied yet";
    const PreviewPalette promised = shown();

    tap(part("apply"));
    EXPECT_FALSE(page());
    EXPECT_EQ(colorOf(green), "#2E8B57FF");
    EXPECT_EQ(document().record(index("send-button-color")).choice(),
              before[size_t(index("send-button-color"))].choice);
    EXPECT_EQ(ofDocument(), promised);
    EXPECT_EQ(shown(), promised);
    EXPECT_EQ(document().undoName(), "Theme from a Color");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(isAsBefore(before));
    EXPECT_FALSE(document().canUndo());
}

TEST_F(EditorGeneratorTest, CancelLeavesNoTraceAndSurprisesCanBeTakenBack)
{
    const auto before = choices();
    const PreviewPalette asItWas = shown();
    openPage();
    EXPECT_EQ(page()->candidate(), 0);
    EXPECT_FALSE(editor().preview()->model()->isInteractive());
    page()->setHarmony(int(Harmony::Complementary));
    page()->setStrength(0.0F);
    EXPECT_EQ(shown(), asItWas);
    EXPECT_FALSE(page()->isApplicable());
    page()->setStrength(1.0F);
    tap(itemNamed(page()->view(), "candidate1"));
    EXPECT_EQ(page()->candidate(), 1);
    const PreviewPalette chosen = shown();
    EXPECT_NE(chosen, asItWas);
    const QString color = page()->page<GeneratePage>().colorField->text();

    tap(part("surprise"));
    tap(part("surprise"));
    EXPECT_NE(shown(), chosen);
    tap(part("undo"));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(), chosen);
    EXPECT_EQ(page()->harmony(), int(Harmony::Complementary));
    EXPECT_EQ(page()->page<GeneratePage>().colorField->text(), color);
    EXPECT_FALSE(page()->isUndoable());

    key(Qt::Key_Escape);
    EXPECT_FALSE(page());
    EXPECT_EQ(shown(), asItWas);
    EXPECT_TRUE(editor().preview()->model()->isInteractive());
    EXPECT_TRUE(isAsBefore(before));
    EXPECT_FALSE(document().canUndo());
}

TEST_F(EditorGeneratorTest, ADroppedPicturesColorsMakeAThemeThatIsSavedRestoredAndUndone)
{
    const auto before = choices();
    ASSERT_TRUE(
        drop(picture("sea.png", {QColor(20, 90, 200), QColor(20, 90, 200), QColor(220, 60, 30)})));
    ASSERT_TRUE(waitUntilRead());
    ASSERT_TRUE(page());
    ASSERT_EQ(page()->candidates().size(), 2);
    tap(itemNamed(page()->view(), "candidate1"));
    const QString picked = page()->page<GeneratePage>().colorField->text();
    tap(part("apply"));
    EXPECT_EQ(colorOf(green), picked);
    EXPECT_EQ(document().undoName(), "Theme from a Photo");
    tapSave();
    ASSERT_TRUE(waitForAlert());
    start();
    EXPECT_EQ(colorOf(green), picked);

    ASSERT_TRUE(drop(picture("sea.png", {QColor(20, 90, 200)})));
    ASSERT_TRUE(waitUntilRead());
    const auto saved = choices();
    tap(part("apply"));
    EXPECT_FALSE(isAsBefore(saved));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(isAsBefore(saved));
    EXPECT_FALSE(isAsBefore(before));
}

TEST_F(EditorGeneratorTest, GreyPicturesAndWhatIsNoneAreTold)
{
    const QString broken = picture("broken.png", {Qt::red, Qt::green});
    QFile(broken).resize(60);
    ASSERT_TRUE(drop(broken));
    ASSERT_TRUE(waitUntilRead());
    EXPECT_FALSE(page());
    EXPECT_TRUE(editor().notice().startsWith("The picture cannot be read: " + broken))
        << editor().notice().toStdString();

    ASSERT_TRUE(drop(picture("fog.png", {QColor(90, 90, 90), QColor(200, 200, 200)})));
    ASSERT_TRUE(waitUntilRead());
    ASSERT_TRUE(page());
    EXPECT_TRUE(page()->message().contains("no colors"));
    const auto wished = page()->candidates();
    ASSERT_TRUE(drop(broken)) << "onto the page";
    EXPECT_TRUE(QTest::qWaitFor([this] { return page()->message().contains(".png: "); }));
    EXPECT_EQ(page()->candidates(), wished);
    EXPECT_FALSE(document().canUndo());
}

TEST_F(EditorGeneratorTest, APictureBehindTheListIsChosenPlacedAndUndone)
{
    const int list = index("list-background-image");
    const auto before = choices();
    ASSERT_TRUE(drop(picture("sea.png", {QColor(20, 60, 120), QColor(120, 30, 20)})));
    ASSERT_TRUE(waitUntilRead());
    page()->useBackground(true);
    EXPECT_FALSE(shown().listPicture.isNull());
    tap(part("apply"));
    const auto chosen = ElementPicture::of(document().record(list));
    ASSERT_TRUE(chosen);
    for (const Finding &finding : findings(document().elements()))
        EXPECT_NE(finding.element, index("list-name-color")) << "it can be read on the picture";

    editor().generator()->place(list, *chosen);
    auto *placing = qobject_cast<PlaceController *>(window().presentedViewController());
    const QRectF place = sceneFrame(placing->view()->findChild<QQuickItem *>("place"));
    turnWheel(place.center().toPoint(), 480);
    EXPECT_GT(placing->picture().zoom, 1.3);
    press(place.center().toPoint());
    for (int step = 1; step <= 5; ++step)
        move((place.center() + QPointF(12 * step, 0)).toPoint());
    release((place.center() + QPointF(60, 0)).toPoint());
    EXPECT_LT(placing->picture().x, 0.5);
    EXPECT_EQ(ElementPicture::of(document().record(list)), chosen) << "not applied yet";
    const ElementPicture placed = placing->picture();
    tap(placing->view()->findChild<QQuickItem *>("apply"));
    EXPECT_EQ(ElementPicture::of(document().record(list)), placed);
    EXPECT_FALSE(window().presentedViewController());
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ElementPicture::of(document().record(list)), chosen);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(isAsBefore(before));
}

TEST_F(EditorGeneratorTest, APictureWithoutAFileStandsBehindTheListAndComesBackAsADraft)
{
    // As browsers drag it.
    QMimeData data;
    data.setUrls({QUrl("https://example.org/sea.png")});
    data.setText("https://example.org/sea.png");
    data.setData("image/png", contents(picture("sea.png", {QColor(20, 60, 120), Qt::white})));
    ASSERT_TRUE(drop(data));
    ASSERT_TRUE(waitUntilRead());
    ASSERT_TRUE(page());
    EXPECT_TRUE(page()->hasBackground());
    page()->useBackground(true);
    tap(part("apply"));
    const int list = index("list-background-image");
    const auto chosen = ElementPicture::of(document().record(list));
    ASSERT_TRUE(chosen);
    QCoreApplication::processEvents(); // the draft is due

    start(); // unsaved
    EXPECT_FALSE(ElementPicture::of(document().record(list)));
    editor().draft()->bringBack();
    EXPECT_EQ(ElementPicture::of(document().record(list)), chosen);
    EXPECT_FALSE(shown().listPicture.isNull());
    editor().generator()->place(list, *ElementPicture::of(document().record(list)));
    EXPECT_EQ(qobject_cast<PlaceController *>(window().presentedViewController())->picture(),
              chosen);
    key(Qt::Key_Escape);

    data.setData("image/png", "no picture");
    ASSERT_TRUE(drop(data));
    ASSERT_TRUE(waitUntilRead());
    EXPECT_FALSE(page());
    EXPECT_TRUE(editor().notice().contains("it is no picture")) << editor().notice().toStdString();
    data.removeFormat("image/png");
    EXPECT_FALSE(drop(data)) << "an address alone is not fetched";
}
