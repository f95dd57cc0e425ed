// Kept themes, for the tests of screens that have them.
#pragma once

#include "library/KeepChoices.h"
#include "support/CatalogueFixture.h"

class LibraryFixture : public CatalogueFixture
{
protected:
    /// Keeps a theme with that colour.
    void keep(const QString &name, const QString &color)
    {
        PackageContents contents;
        contents.info.setValue("plain", color);
        contents.info.setValue("guest", "stays");
        ASSERT_TRUE(library()->keep(contents, name, ThemeLibrary::IfTaken::Replace).isDone());
    }
    std::shared_ptr<ThemeLibrary> library() const
    {
        return ThemeLibrary::open(folders().theme.documents);
    }
    QStringList keptNames() const { return library()->names(); }

    /// The editor that the program starts into.
    CustomViewController &root()
    {
        return *static_cast<CustomViewController *>(navigation().viewControllers().front().get());
    }
    template <typename Page>
    Page *page()
    {
        return qobject_cast<Page *>(window().presentedViewController());
    }
    template <typename Page>
    bool waitForPage()
    {
        const bool came = QTest::qWaitFor([this] { return page<Page>() != nullptr; });
        settle();
        return came;
    }
    bool waitForNoPage()
    {
        const bool went = QTest::qWaitFor([this] { return !window().presentedViewController(); });
        settle();
        return went;
    }
    QQuickItem *part(const char *name)
    {
        return window().presentedViewController()->view()->findChild<QQuickItem *>(name);
    }
    bool waitForPart(const char *name)
    {
        const bool came = QTest::qWaitFor(
            [&] { return window().presentedViewController() && part(name)->isVisible(); });
        grab(); // what has come is laid out with the next frame
        settle();
        return came;
    }
    bool waitForStrip(const QString &words)
    {
        const bool came = QTest::qWaitFor([&] {
            return overlays().quietText().contains(words) || overlays().notice().contains(words);
        });
        settle();
        return came;
    }
    ScreenOverlays &overlays()
    {
        return *screen()
                    .property("controller")
                    .value<QObject *>()
                    ->property("overlays")
                    .value<ScreenOverlays *>();
    }
    void choose(const QString &entry)
    {
        const QStringList entries = window().actionSheet()->buttonTitles();
        ASSERT_TRUE(entries.contains(entry)) << entries.join(" | ").toStdString();
        window().actionSheet()->click(int(entries.indexOf(entry)));
        settle();
    }
};
