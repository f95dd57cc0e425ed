#include "app/window/AppDelegate.h"

#include "support/EditorFixture.h"

using AppDelegateTest = EditorFixture;

TEST_F(AppDelegateTest, StartsIntoTheEditorUnlessTheDocumentIsNoneAtAll)
{
    EXPECT_FALSE(AppDelegate(folders()).didFinishLaunchingWithOptions()); // missing
    writeDocument(R"([{"key": "k"}])");
    EXPECT_FALSE(AppDelegate(folders()).didFinishLaunchingWithOptions()); // six keys missing
    useShippedDocument();
    start();
    EXPECT_EQ(window().title(), "Tintloom");
    EXPECT_EQ(window().color(), QColor(Qt::white));
    EXPECT_FALSE(navigation().canGoBack() || editor().fromMainView());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window().icon().isNull(); }));
}
