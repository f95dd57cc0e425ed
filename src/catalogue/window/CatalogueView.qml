import QtQuick
import Tintloom

// The catalogue's screen, back to front.
CataloguePage {
    id: root

    required property MainViewController controller

    content: covered
    hiddenView: strip
    appVersion: version
    tableView: frame
    table: scroller.table

    FocusScope {
        id: covered

        anchors.fill: parent
        focus: true
        enabled: !root.controller.overlays.loading

        UIView {
            id: strip

            objectName: "hiddenView"

            Rectangle {
                anchors.fill: parent
                color: "#B3FFFFFF"
            }
            UIView {
                id: version

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
            id: frame

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
