import QtQuick

// The editor's first frame, as one would write it down who wants to show no more than that.
Item {
    id: editor

    required property var elements

    // The rest is left to the preview, which comes after the first frame.
    Item {
        width: 400
        height: parent.height

        Image {
            anchors.fill: parent
            source: "qrc:/images/TransparentBG.png"
            fillMode: Image.Tile
            horizontalAlignment: Image.AlignLeft
            verticalAlignment: Image.AlignTop
        }
        Rectangle {
            y: 20
            width: parent.width
            height: 20
            color: "white"
        }
        ListView {
            anchors.fill: parent
            topMargin: 20
            bottomMargin: 50
            model: editor.elements
            section.property: "section"
            section.delegate: Rectangle {
                required property string section

                width: ListView.view.width
                height: 28
                color: "#00D644"

                Text {
                    x: 15
                    width: parent.width - 30
                    height: parent.height
                    text: parent.section
                    color: "white"
                    font.pixelSize: 16
                    font.bold: true
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                }
            }
            delegate: Rectangle {
                id: row

                required property string name
                required property string about
                required property string caption
                required property color fill
                required property color ink

                width: ListView.view.width
                height: 50
                color: fill

                Rectangle {
                    anchors.bottom: parent.bottom
                    width: parent.width
                    height: 1
                    color: "#1E000000"
                }
                Text {
                    x: 5
                    width: parent.width - 60
                    height: 30
                    text: row.name
                    color: row.ink
                    font.pixelSize: 21
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                }
                Text {
                    x: 5
                    y: 25
                    width: parent.width - 5
                    height: 25
                    text: row.about
                    color: row.ink
                    font.pixelSize: 12
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                }
                Text {
                    x: parent.width - 75
                    width: 70
                    height: 15
                    text: row.caption
                    color: row.ink
                    font.pixelSize: 9
                    horizontalAlignment: Text.AlignRight
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                }
            }
        }
        Rectangle {
            width: parent.width
            height: 20
            color: "#54FFFFFF"
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 50
            color: "#54FFFFFF"

            BorderImage {
                x: 100
                y: 5
                width: 180
                height: 40
                source: "qrc:/images/lightGreenButton.png"
                border {
                    left: 18
                    top: 18
                    right: 18
                    bottom: 18
                }

                Text {
                    anchors.centerIn: parent
                    text: "Save Theme"
                    color: "white"
                    font.pixelSize: 26
                }
            }
            BorderImage {
                x: 284
                y: 5
                width: 52
                height: 40
                source: "qrc:/images/greyButton.png"
                border {
                    left: 18
                    top: 18
                    right: 18
                    bottom: 18
                }

                Text {
                    anchors.centerIn: parent
                    text: "More"
                    font.pixelSize: 15
                }
            }
        }
    }
}
