pragma ComponentBehavior: Bound

import QtQuick
import Tintloom

// A theme from one colour: the phone above where it does not stand beside, the wishes below.
GeneratePage {
    id: root

    required property GenerateController controller

    colorField: field

    Keys.onEscapePressed: root.controller.closeTapped()

    CoverPage {
        title: qsTr("Theme from a Color")
        closeTitle: qsTr("Cancel")
        onCloseTapped: root.controller.closeTapped()
    }
    Row {
        id: phone

        readonly property real screenHeight: wishes.y - 56

        x: (root.width - width) / 2
        y: 44
        spacing: 12
        visible: !root.controller.previewBeside && phone.screenHeight > 80

        Repeater {
            model: [qsTr("Conversation"), qsTr("Message list")]

            PreviewFrame {
                required property string modelData
                required property int index

                enabled: false
                width: Math.round(phone.screenHeight * 320 / 568)
                height: phone.screenHeight
                model: root.controller.model
                name: modelData
                tabStop: false
                messageList: index === 1
            }
        }
    }
    Column {
        id: wishes

        x: 12
        y: root.controller.previewBeside ? 56 : root.height - height - 8
        width: root.width - 24
        spacing: 8

        Text {
            objectName: "message"
            width: parent.width
            visible: text !== ""
            text: root.controller.message
            textFormat: Text.PlainText
            color: "#202428"
            font.pixelSize: 13
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: 4
            elide: Text.ElideRight
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Row {
            width: parent.width
            height: 40
            spacing: 6

            Repeater {
                model: root.controller.candidates

                PushButton {
                    id: swatch

                    required property string modelData
                    required property int index

                    objectName: "candidate" + index
                    width: (wishes.width - 5 * 6) / 6
                    height: 40
                    focusFrame: true
                    title: qsTr("Color %1").arg(index + 1)
                    onTouchUpInside: root.controller.candidate = index

                    Accessible.role: Accessible.RadioButton
                    Accessible.checkable: true
                    Accessible.checked: swatch.index === root.controller.candidate
                    Accessible.description: modelData

                    Rectangle {
                        anchors.fill: parent
                        radius: 8
                        color: "white"
                        border.width: swatch.index === root.controller.candidate ? 3 : 1
                        border.color: swatch.index === root.controller.candidate ? "#007AFF" : "#60000000"

                        Rectangle {
                            anchors.fill: parent
                            anchors.margins: 4
                            radius: 5
                            color: swatch.modelData
                        }
                    }
                }
            }
        }
        Row {
            width: parent.width
            height: 36
            spacing: 8

            Rectangle {
                width: parent.width - photo.width - 8
                height: 36
                radius: 6
                color: "white"
                border.color: field.editing ? "#007AFF" : "#60000000"

                TextFieldView {
                    id: field

                    objectName: "colorField"
                    anchors.fill: parent
                    name: qsTr("Color")
                    fontSize: 15
                    inputMethodHints: Qt.ImhNoPredictiveText
                    onTextChanged: root.controller.colorTyped(field.text)
                }
            }
            ImageButton {
                id: photo

                objectName: "photo"
                width: 110
                height: 36
                title: qsTr("From a Photo\u2026")
                titleColor: "black"
                image: "qrc:/images/greyButton.png"
                highlightedImage: "qrc:/images/greyButtonHighlight.png"
                onTouchUpInside: root.controller.photoTapped()
            }
        }
        Segments {
            objectName: "background"
            width: parent.width
            height: 32
            visible: root.controller.hasBackground
            name: qsTr("Behind the list")
            tabStop: true
            titles: [qsTr("Plain List"), qsTr("Photo behind the List")]
            current: root.controller.usesBackground ? 1 : 0
            onChosen: index => root.controller.usesBackground = index === 1
        }
        Segments {
            objectName: "harmony"
            width: parent.width
            height: 32
            name: qsTr("Harmony")
            tabStop: true
            titles: [qsTr("Single"), qsTr("Near"), qsTr("Split"), qsTr("Triad"), qsTr("Opposite")]
            current: root.controller.harmony
            onChosen: index => root.controller.harmony = index
        }
        Segments {
            objectName: "tone"
            width: parent.width
            height: 32
            name: qsTr("Light or dark")
            tabStop: true
            titles: [qsTr("As It Is"), qsTr("Light"), qsTr("Dark")]
            current: root.controller.tone
            onChosen: index => root.controller.tone = index
        }
        Row {
            width: parent.width
            height: 32
            spacing: 8

            Text {
                id: strengthLabel

                height: 32
                text: qsTr("Strength")
                color: "#202428"
                font.pixelSize: 13
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
            UISlider {
                id: slider

                objectName: "strength"
                width: parent.width - strengthLabel.width - 8
                height: 32
                focusFrame: true
                value: root.controller.strength
                onMoved: root.controller.strength = slider.value

                Accessible.role: Accessible.Slider
                Accessible.name: qsTr("Strength")
                Accessible.onIncreaseAction: slider.step(1)
                Accessible.onDecreaseAction: slider.step(-1)
            }
        }
        Row {
            id: buttons

            readonly property real third: (width - 16) / 3

            width: parent.width
            height: 40
            spacing: 8

            ImageButton {
                objectName: "surprise"
                width: buttons.third
                height: 40
                title: qsTr("Surprise Me")
                titleColor: "black"
                image: "qrc:/images/greyButton.png"
                highlightedImage: "qrc:/images/greyButtonHighlight.png"
                onTouchUpInside: root.controller.surpriseTapped()
            }
            ImageButton {
                objectName: "undo"
                width: buttons.third
                height: 40
                usable: root.controller.undoable
                title: qsTr("Undo")
                titleColor: "black"
                image: "qrc:/images/greyButton.png"
                highlightedImage: "qrc:/images/greyButtonHighlight.png"
                onTouchUpInside: root.controller.undoTapped()
            }
            ImageButton {
                objectName: "apply"
                width: buttons.third
                height: 40
                usable: root.controller.applicable
                title: qsTr("Apply")
                image: "qrc:/images/lightGreenButton.png"
                highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
                onTouchUpInside: root.controller.applyTapped()
            }
        }
    }
}
