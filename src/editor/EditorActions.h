// What can be done in the editor beyond a tap on a row: with one row, and with the whole theme.
#pragma once

#include "views/Action.h"

class CustomViewController;

namespace EditorActions
{
/// For the whole theme: the entries of "More", and the keys. None applies while the editor is busy
/// or under the chooser.
Actions forTheme(CustomViewController &editor);

/// For one element: the entries of its row's sheet.
Actions forElement(CustomViewController &editor, int index);
} // namespace EditorActions
