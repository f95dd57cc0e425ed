import QtQuick
import Tintloom

// The catalogue's screen, back to front. The controller places the frames.
FocusScope {
    id: root

    required property MainViewController controller
    property alias table: scroller.table
    property alias content: content

    FocusScope {
        id: content

        anchors.fill: parent
        focus: true
        enabled: !root.controller.overlays.loading

        UIView {
            objectName: "hiddenView"

            Rectangle {
                anchors.fill: parent
                color: "#B3FFFFFF"
            }
            UIView {
                objectName: "appVersion"

                Text {
                    anchors.fill: parent
                    text: "Tintloom v3.0" // not the program's version, as on the phone
                    color: "#4D000000"
                    font.pixelSize: 7
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                }
            }
        }
        UIView {
            objectName: "tableView"

            TableScroller {
                id: scroller

                anchors.fill: parent
                clip: true // nothing covers the strip above it
                title: qsTr("Themes")
            }
        }
    }
}
