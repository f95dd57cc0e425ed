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
    TableScroller {
        id: scroller

        anchors.fill: parent
        anchors.topMargin: 44
        clip: true
        title: qsTr("Theme Colors")
    }
}
