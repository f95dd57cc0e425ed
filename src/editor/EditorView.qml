import QtQuick
import Tintloom

// The editor's screen, back to front.
EditorPage {
    id: root

    required property CustomViewController controller

    content: covered
    table: scroller.table
    bgView: ground
    hiddenView: strip
    appVersion: version
    tableView: list
    topView: topBar
    bottomView: bottomBar
    saveButton: save
    moreButton: more
    previewButton: preview

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
                id: ground

                objectName: "_bgView"

                Image {
                    anchors.fill: parent
                    source: "qrc:/images/TransparentBG.png"
                    fillMode: Image.Tile
                    horizontalAlignment: Image.AlignLeft
                    verticalAlignment: Image.AlignTop
                }
            }
            UIView {
                id: strip

                objectName: "_hiddenView"
                visible: !root.controller.fromMainView

                Rectangle {
                    anchors.fill: parent
                    color: "white"
                }
                UIView {
                    id: version

                    objectName: "_appVersion"

                    // Out of sight until the table is pulled down.
                    Loader {
                        anchors.fill: parent
                        active: scroller.contentY < -scroller.topMargin
                        source: Qt.resolvedUrl("VersionLabel.qml")
                    }
                }
            }
            UIView {
                id: list

                objectName: "_tableView"

                TableScroller {
                    id: scroller

                    anchors.fill: parent
                    title: qsTr("Theme elements")
                }
            }
        }
        BlurView {
            id: topBar

            objectName: "_topView"
            visible: !root.controller.fromMainView
            blurTintColor: "#54FFFFFF"

            Backdrop {
                anchors.fill: parent
                behind: scene
                stretch: topBar.frame
            }
        }
        BlurView {
            id: bottomBar

            objectName: "_bottomView"
            blurTintColor: "#54FFFFFF"

            Backdrop {
                anchors.fill: parent
                behind: scene
                stretch: bottomBar.frame
            }
            ImageButton {
                id: save

                objectName: "_saveButton"
                title: "Save Theme"
                titleSize: 26
                usable: !root.controller.overlays.loading
                image: "qrc:/images/lightGreenButton.png"
                highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
                onTouchUpInside: root.controller.saveButtonTap()
            }
            ImageButton {
                id: more

                objectName: "_moreButton"
                title: qsTr("More")
                titleColor: "black"
                image: "qrc:/images/greyButton.png"
                highlightedImage: "qrc:/images/greyButtonHighlight.png"
                onTouchUpInside: root.controller.moreButtonTap()
            }
            ImageButton {
                id: preview

                objectName: "_previewButton"
                visible: root.controller.preview.offered
                title: qsTr("Preview")
                titleColor: "black"
                image: "qrc:/images/greyButton.png"
                highlightedImage: "qrc:/images/greyButtonHighlight.png"
                onTouchUpInside: root.controller.preview.showPage()
            }
        }
    }
}
