import QtQuick
import Tintloom

// One of an action sheet's buttons: text under a hairline.
PushButton {
    id: button

    required property UIActionSheet sheet
    required property int buttonIndex

    height: 44
    activeFocusOnTab: false
    onTouchUpInside: button.sheet.click(button.buttonIndex)

    Rectangle {
        width: parent.width
        height: 1
        color: "#C8C8CC"
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 3
        radius: 10
        color: button.pressed ? "#33000000" : "#1A0A60FF"
        border.color: "#0A60FF"
        border.width: button.activeFocus ? 2 : 0
        visible: button.pressed || button.activeFocus
    }
    Text {
        anchors.fill: parent
        anchors.margins: 8
        text: button.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        color: "#0A60FF"
        font.pixelSize: 18
        font.bold: button.buttonIndex === button.sheet.cancelButtonIndex
        Accessible.ignored: true
    }
}
