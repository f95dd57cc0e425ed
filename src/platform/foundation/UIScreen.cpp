#include "platform/foundation/UIScreen.h"

UIScreen &UIScreen::mainScreen()
{
    static UIScreen screen;
    return screen;
}
