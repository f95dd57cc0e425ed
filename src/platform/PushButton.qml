import QtQuick
import Tintloom

// A button as assistive technology knows it; how it looks is up to its children.
UIButton {
    id: button

    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.focusable: true
    Accessible.onPressAction: button.touchUpInside()
}
