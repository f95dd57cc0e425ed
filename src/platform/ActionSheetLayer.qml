import QtQuick
import Tintloom

// Draws an action sheet, and keeps touches and keys from everything below it. Arrows move along the buttons.
FocusScope {
    id: layer

    required property UIActionSheet sheet
    readonly property real room: height - title.height - 28 // for the buttons
    readonly property int fittingHeight: room / sheet.buttonTitles.length
    // A little lower than usual, where that brings all of them into sight.
    readonly property int buttonHeight: fittingHeight >= 36 ? Math.min(44, fittingHeight) : 44

    Keys.onEscapePressed: layer.sheet.click(layer.sheet.cancelButtonIndex)

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onWheel: wheel => wheel.accepted = true
        onClicked: layer.sheet.click(layer.sheet.cancelButtonIndex)
    }
    Rectangle {
        anchors.fill: parent
        color: "#66000000"
    }
    Rectangle {
        id: box

        objectName: "actionSheet"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 8
        width: Math.min(parent.width - 16, 480)
        height: title.height + buttons.height
        radius: 12
        color: "#F8F8F8"

        Accessible.role: Accessible.Dialog
        Accessible.name: layer.sheet.title

        // Between the buttons the sheet takes presses and does nothing.
        MouseArea {
            anchors.fill: parent
        }
        Text {
            id: title

            width: parent.width
            padding: 12
            text: layer.sheet.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            color: "#6B6B70"
            font.pixelSize: 13
            Accessible.ignored: true
        }
        ListView {
            id: buttons

            anchors.bottom: parent.bottom
            width: parent.width
            height: Math.min(contentHeight, layer.room)
            clip: true
            focus: true
            model: layer.sheet.buttonTitles
            boundsBehavior: Flickable.StopAtBounds
            interactive: contentHeight > height
            keyNavigationEnabled: true
            keyNavigationWraps: true
            delegate: ActionSheetButton {
                required property string modelData
                required property int index

                readonly property ActionSheetLayer owner: ListView.view.parent.parent as ActionSheetLayer

                width: ListView.view.width
                height: owner.buttonHeight
                title: modelData
                sheet: owner.sheet
                buttonIndex: index
            }
        }
    }
}
