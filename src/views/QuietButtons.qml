import QtQuick
import Tintloom

// The quiet strip's buttons, in a row.
Row {
    id: row

    required property ScreenOverlays overlays

    Repeater {
        model: row.overlays.quietActions

        QuietButton {
            required property string modelData
            required property int index
            readonly property QuietButtons row: parent as QuietButtons

            height: parent?.height ?? 0
            title: modelData
            onTouchUpInside: row.overlays.performQuietAction(index)
        }
    }
}
