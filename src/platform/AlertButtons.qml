import QtQuick
import Tintloom

// An alert's buttons in a row of equal widths; the last one has the keyboard.
Row {
    id: row

    required property UIAlertView alert
    readonly property int count: alert?.buttonTitles.length ?? 1

    Repeater {
        model: row.alert?.buttonTitles ?? []

        AlertButton {
            required property string modelData
            required property int index
            readonly property AlertButtons row: parent as AlertButtons

            width: row.width / row.count
            title: modelData
            focus: index === row.count - 1
            onTouchUpInside: row.alert.click(index)
        }
    }
}
