import QtQuick

// Fixed, whatever the program's version, as on the phone.
Text {
    text: "Tintloom v2.1"
    color: "#80000000"
    font.pixelSize: 7
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
}
