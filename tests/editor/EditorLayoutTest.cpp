#include "editor/EditorLayout.h"

#include <gtest/gtest.h>

namespace
{
struct Case {
    QSizeF size;
    bool fromMainView;
    EditorLayout expected;
};

// In the order of EditorLayout's fields.
const Case cases[] = {
    {{320, 568},
     false,
     {{0, 0, 320, 568},
      {0, 0, 320, 568},
      {0, 20, 320, 20},
      {0, 0, 320, 20},
      {0, 0, 320, 20},
      {0, 518, 320, 50},
      {80, 5, 180, 40},
      {85, 219, 150, 130}}},
    {{320, 480},
     false,
     {{0, 0, 320, 480},
      {0, 0, 320, 480},
      {0, 20, 320, 20},
      {0, 0, 320, 20},
      {0, 0, 320, 20},
      {0, 430, 320, 50},
      {80, 5, 180, 40},
      {85, 175, 150, 130}}},
    {{1001, 700},
     false,
     {{0, 0, 1001, 700},
      {0, 0, 1001, 700},
      {0, 20, 1001, 20},
      {0, 0, 1001, 20},
      {0, 0, 1001, 20},
      {0, 650, 1001, 50},
      {250.25, 5, 180, 40},
      {425.5, 285, 150, 130}}},
    {{320, 568},
     true,
     {{0, 0, 320, 568},
      {0, 64, 320, 504},
      {},
      {},
      {},
      {0, 518, 320, 50},
      {80, 5, 180, 40},
      {85, 175, 150, 130}}},
    {{320, 480},
     true,
     {{0, 0, 320, 480},
      {0, 64, 320, 416},
      {},
      {},
      {},
      {0, 430, 320, 50},
      {80, 5, 180, 40},
      {85, 131, 150, 130}}},
};
} // namespace

TEST(EditorLayout, PlacesEverythingAtEachSize)
{
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.size.width() << " x " << c.size.height()
                                        << (c.fromMainView ? " from the catalogue" : ""));
        const EditorLayout layout = EditorLayout::make(c.size, 44.0, c.fromMainView);
        EXPECT_EQ(layout.bgView, c.expected.bgView);
        EXPECT_EQ(layout.tableView, c.expected.tableView);
        EXPECT_EQ(layout.hiddenView, c.expected.hiddenView);
        EXPECT_EQ(layout.appVersion, c.expected.appVersion);
        EXPECT_EQ(layout.topView, c.expected.topView);
        EXPECT_EQ(layout.bottomView, c.expected.bottomView);
        EXPECT_EQ(layout.saveButton, c.expected.saveButton);
        EXPECT_EQ(layout.loadingView, c.expected.loadingView);
    }
}
