#include "platform/UIScreen.h"

UIScreen &UIScreen::mainScreen()
{
    static UIScreen screen;
    return screen;
}
