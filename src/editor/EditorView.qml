import QtQuick
import Tintloom

// The editor's screen, back to front.
ScreenPage {
    id: root

    required property CustomViewController controller

    content: covered
    table: scroller.table

    FocusScope {
        id: covered

        anchors.fill: parent
        focus: true
        enabled: !root.controller.overlays.loading && !root.controller.chooserOpen

        // What the bars blur.
        Item {
            id: scene

            anchors.fill: parent

            UIView {
                objectName: "_bgView"
                frame: root.controller.layout.bgView

                Image {
                    anchors.fill: parent
                    source: "qrc:/images/TransparentBG.png"
                    fillMode: Image.Tile
                    horizontalAlignment: Image.AlignLeft
                    verticalAlignment: Image.AlignTop
                }
            }
            UIView {
                objectName: "_hiddenView"
                frame: root.controller.layout.hiddenView
                visible: !root.controller.fromMainView

                Rectangle {
                    anchors.fill: parent
                    color: "white"
                }
                UIView {
                    objectName: "_appVersion"
                    frame: root.controller.layout.appVersion

                    // Out of sight until the table is pulled down.
                    Loader {
                        anchors.fill: parent
                        active: scroller.contentY < -scroller.topMargin
                        source: Qt.resolvedUrl("VersionLabel.qml")
                    }
                }
            }
            UIView {
                objectName: "_tableView"
                frame: root.controller.layout.tableView

                TableScroller {
                    id: scroller

                    anchors.fill: parent
                    title: qsTr("Theme elements")
                }
            }
        }
        BlurView {
            id: topView

            objectName: "_topView"
            frame: root.controller.layout.topView
            visible: !root.controller.fromMainView
            blurTintColor: "#54FFFFFF"

            Backdrop {
                anchors.fill: parent
                behind: scene
                stretch: topView.frame
            }
        }
        BlurView {
            id: bottomView

            objectName: "_bottomView"
            frame: root.controller.layout.bottomView
            blurTintColor: "#54FFFFFF"

            Backdrop {
                anchors.fill: parent
                behind: scene
                stretch: bottomView.frame
            }
            ImageButton {
                objectName: "_saveButton"
                frame: root.controller.layout.saveButton
                title: "Save Theme"
                titleSize: 26
                usable: !root.controller.overlays.loading
                image: "qrc:/images/lightGreenButton.png"
                highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
                onTouchUpInside: root.controller.saveButtonTap()
            }
            ImageButton {
                objectName: "_moreButton"
                frame: root.controller.layout.moreButton
                title: qsTr("More")
                titleColor: "black"
                image: "qrc:/images/greyButton.png"
                highlightedImage: "qrc:/images/greyButtonHighlight.png"
                onTouchUpInside: root.controller.moreButtonTap()
            }
        }
    }
}
