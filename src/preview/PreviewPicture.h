// Pictures of a theme, for files and for small views of it.
#pragma once

#include "preview/PreviewScene.h"

#include <QImage>

enum class PreviewView { Conversation, MessageList, Both };

/// One screen, or both beside each other with a transparent gap between, at so many pixels per
/// point. Has an alpha channel where there is something transparent. A null picture when there is
/// no memory for it. Needs a QGuiApplication; any thread.
QImage previewPicture(const PreviewPalette &palette, PreviewView view, double scale);
