import QtQuick
import Tintloom

// The chooser's page. Keys that no part of it takes move the wheel's selection, accept or cancel.
ChooserPage {
    id: root

    required property ColorPickerViewController controller

    cancelButton: cancel
    removeButton: remove
    saveButton: save
    quickButtons: quick
    colorPicker: wheel
    brightnessSlider: brightness
    opacitySlider: opacitySlide
    colorPatch: patch
    hexTextField: field

    // Fades as one picture, not part by part.
    layer.enabled: root.opacity < 1

    Keys.onPressed: event => event.accepted = wheel.moveByKey(event.key, event.modifiers)
    Keys.onEscapePressed: root.controller.cancelButtonTap()
    Keys.onReturnPressed: event => root.controller.returnKey(event.isAutoRepeat)
    Keys.onEnterPressed: event => root.controller.returnKey(event.isAutoRepeat)

    Rectangle {
        anchors.fill: parent
        color: "white"
    }
    // Swallows what misses the parts of the page.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    Flickable {
        anchors.fill: parent
        contentWidth: width
        contentHeight: root.contentHeight
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds

        ImageButton {
            id: cancel

            objectName: "_cancelButton"
            title: "Cancel"
            titleColor: "black"
            image: "qrc:/images/greyButton.png"
            highlightedImage: "qrc:/images/greyButtonHighlight.png"
            onTouchUpInside: root.controller.cancelButtonTap()
        }
        ImageButton {
            id: remove

            objectName: "_removeButton"
            title: "Remove Color"
            image: "qrc:/images/orangeButton.png"
            highlightedImage: "qrc:/images/orangeButtonHighlight.png"
            onTouchUpInside: root.controller.removeButtonTap()
        }
        ImageButton {
            id: save

            objectName: "_saveButton"
            title: "Select Color"
            image: "qrc:/images/lightGreenButton.png"
            highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
            onTouchUpInside: root.controller.saveButtonTap()
        }
        UIView {
            id: patch

            objectName: "_colorPatch"

            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Chosen colour")
            Accessible.description: field.text

            Rectangle {
                anchors.fill: parent
                color: root.controller.color
            }
            TextFieldView {
                id: field

                objectName: "_hexTextField"
                name: qsTr("Colour text")
                fontSize: 18
                inputMethodHints: Qt.ImhUppercaseOnly | Qt.ImhNoPredictiveText
            }
            ContrastMark {
                objectName: "contrastMark"
                narrow: field.editing
                x: patch.width - width - (field.editing ? 34 : 0) // beside the button that clears
                contrast: root.controller.contrast
                onTouchUpInside: root.controller.contrastTapped()
            }
        }
        HSColorPickerView {
            id: wheel

            objectName: "_colorPicker"
            activeFocusOnTab: true
            focusFrame: true

            Accessible.role: Accessible.ColorChooser
            Accessible.name: qsTr("Colour wheel")
            Accessible.description: wheel.spokenSelection
            Accessible.focusable: true
        }
        HSBrightnessSlider {
            id: brightness

            objectName: "_brightnessSlider"
            focusFrame: true

            Accessible.role: Accessible.Slider
            Accessible.name: qsTr("Brightness")
            Accessible.onIncreaseAction: brightness.step(1)
            Accessible.onDecreaseAction: brightness.step(-1)
        }
        HSOpacitySlider {
            id: opacitySlide

            objectName: "_opacitySlider"
            focusFrame: true

            Accessible.role: Accessible.Slider
            Accessible.name: qsTr("Opacity")
            Accessible.onIncreaseAction: opacitySlide.step(1)
            Accessible.onDecreaseAction: opacitySlide.step(-1)
        }
        Row {
            id: quick

            objectName: "quickButtons"
            spacing: 2

            QuickButton {
                title: "Black"
                onTouchUpInside: root.controller.selectBlack()
            }
            QuickButton {
                title: "White"
                onTouchUpInside: root.controller.selectWhite()
            }
            QuickButton {
                title: "Red"
                onTouchUpInside: root.controller.selectRed()
            }
            QuickButton {
                title: "Green"
                onTouchUpInside: root.controller.selectGreen()
            }
            QuickButton {
                title: "Blue"
                onTouchUpInside: root.controller.selectBlue()
            }
            QuickButton {
                title: "Clear"
                onTouchUpInside: root.controller.selectClear()
            }
        }
    }
    // In the strip above the buttons, which is empty.
    StripButton {
        objectName: "themeColors"
        width: 102
        title: qsTr("Theme Colors")
        onTouchUpInside: root.controller.themeColorsTapped()
    }
    StripButton {
        x: root.width - width
        width: 76
        visible: root.controller.previewOffered
        title: qsTr("Preview")
        onTouchUpInside: root.controller.previewTapped()
    }
}
