#include "app/AppDelegate.h"

#include "support/EditorFixture.h"

class AppDelegateTest : public EditorFixture
{
};

TEST_F(AppDelegateTest, StartsIntoTheEditorOnAWhiteWindow)
{
    useShippedDocument();
    start();
    EXPECT_EQ(window().title(), "Tintloom");
    EXPECT_EQ(window().color(), QColor(Qt::white));
    EXPECT_EQ(window().size(), QSize(320, 568));
    ASSERT_EQ(navigation().viewControllers().size(), 1U);
    EXPECT_FALSE(editor().fromMainView());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window().icon().isNull(); }));
}

TEST_F(AppDelegateTest, DoesNotStartOnADocumentThatIsNoneAtAll)
{
    EXPECT_FALSE(AppDelegate(folders()).didFinishLaunchingWithOptions()); // missing
    writeDocument(R"([{"key": "k"}])");
    EXPECT_FALSE(AppDelegate(folders()).didFinishLaunchingWithOptions()); // six keys missing
}
