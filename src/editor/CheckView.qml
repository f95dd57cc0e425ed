import QtQuick
import Tintloom

// What is hard to see in the theme.
TablePage {
    id: root

    required property CheckController controller

    table: scroller.table

    Keys.onEscapePressed: root.controller.closeTapped()

    CoverPage {
        title: qsTr("Check Colors")
        onCloseTapped: root.controller.closeTapped()
    }
    TableScroller {
        id: scroller

        anchors.fill: parent
        anchors.topMargin: 44
        clip: true
        title: qsTr("Findings")
    }
    Text {
        objectName: "summary"
        anchors.centerIn: parent
        width: parent.width - 32
        text: root.controller.summary
        color: "#202428"
        font.pixelSize: 17
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    ImageButton {
        objectName: "fixAll"
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height - 45
        width: 180
        height: 40
        visible: root.controller.mendable
        title: qsTr("Fix All")
        titleSize: 20
        image: "qrc:/images/lightGreenButton.png"
        highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
        onTouchUpInside: root.controller.fixAllTapped()
    }
    ImageButton {
        objectName: "undo"
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height - 45
        width: 180
        height: 40
        visible: root.controller.mended
        title: qsTr("Undo Fix All")
        titleColor: "black"
        titleSize: 20
        image: "qrc:/images/greyButton.png"
        highlightedImage: "qrc:/images/greyButtonHighlight.png"
        onTouchUpInside: root.controller.undoTapped()
    }
}
