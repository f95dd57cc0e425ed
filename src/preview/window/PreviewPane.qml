import QtQuick
import Tintloom

// The themed phone, and whose eyes it is seen with.
PreviewPage {
    id: root

    required property PreviewController controller

    caption: caption
    conversation: conversation
    messageList: list
    screenSwitch: screens
    eyesSwitch: eyes

    Keys.onEscapePressed: event => event.accepted = root.controller.close()

    Rectangle {
        anchors.fill: parent
        color: "#E4E7EA"
    }
    // Swallows what misses the parts.
    MouseArea {
        anchors.fill: parent
        onWheel: wheel => wheel.accepted = true
    }
    PushButton {
        id: close

        x: root.width - width
        width: 44
        height: 44
        z: 1
        visible: root.controller.closable
        title: qsTr("Close preview")
        onTouchUpInside: root.controller.close()

        Text {
            anchors.centerIn: parent
            text: "\u00D7"
            color: "#202428"
            opacity: close.pressed ? 0.5 : 1
            font.pixelSize: 26
            font.underline: close.activeFocus
            Accessible.ignored: true
        }
    }
    QuietButton {
        id: tool

        objectName: "tool"
        x: 8
        y: caption.y
        z: 1
        height: caption.height
        visible: title !== "" && !root.controller.closable
        enabled: root.controller.takesKeys
        activeFocusOnTab: root.controller.takesKeys
        title: root.controller.model.toolTitle
        onTouchUpInside: root.controller.model.performTool()
    }
    UIView {
        id: caption

        Text {
            anchors.centerIn: parent
            width: parent.width - (tool.visible ? 2 * tool.width : 0)
            text: root.controller.model.caption
            textFormat: Text.PlainText
            color: "#202428"
            font.pixelSize: 15
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
        }
    }
    PreviewFrame {
        id: conversation

        model: root.controller.model
        name: qsTr("Conversation")
        tabStop: root.controller.takesKeys
    }
    PreviewFrame {
        id: list

        model: root.controller.model
        name: qsTr("Message list")
        tabStop: root.controller.takesKeys
        messageList: true
    }
    Segments {
        id: screens

        name: qsTr("Screen")
        tabStop: root.controller.takesKeys
        titles: [qsTr("Conversation"), qsTr("Messages")]
        current: root.shownScreen
        onChosen: index => root.shownScreen = index
    }
    Segments {
        id: eyes

        name: qsTr("As others see it")
        tabStop: root.controller.takesKeys
        titles: [qsTr("Normal"), qsTr("Protan"), qsTr("Deutan"), qsTr("Tritan"), qsTr("Grey")]
        current: root.controller.model.eyes
        onChosen: index => root.controller.model.eyes = index
    }
}
