import QtQuick
import Tintloom

// Colours at hand.
TablePage {
    id: root

    required property ColorsController controller

    table: scroller.table

    Keys.onEscapePressed: root.controller.closeTapped()

    CoverPage {
        title: qsTr("Theme Colors")
        onCloseTapped: root.controller.closeTapped()
    }
    StripButton {
        id: pick

        objectName: "pickFromScreen"
        y: 44
        width: parent.width
        height: 36
        visible: root.controller.picksFromScreen
        title: qsTr("Pick from Screen")
        onTouchUpInside: root.controller.pickFromScreen()
    }
    TableScroller {
        id: scroller

        anchors.fill: parent
        anchors.topMargin: pick.visible ? 80 : 44
        clip: true
        title: qsTr("Theme Colors")
    }
}
