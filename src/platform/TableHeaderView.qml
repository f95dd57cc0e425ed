import QtQuick
import Tintloom

UITableViewHeader {
    id: header

    z: 1 // rows pass below a header that sticks

    Accessible.role: Accessible.Heading
    Accessible.name: header.textLabel.text

    Rectangle {
        anchors.fill: parent
        color: header.tintColor
    }
    LabelView {
        label: header.textLabel
        font.pixelSize: 16
        font.bold: true
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
