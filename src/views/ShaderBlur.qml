import QtQuick
import Tintloom

// The blur of the Backdrop that loads it: the stretch of the picture behind the bar, smeared across and
// then down.
Item {
    id: blur

    objectName: "blur"

    readonly property Backdrop backdrop: parent as Backdrop

    ShaderEffectSource {
        id: stretch

        sourceItem: blur.backdrop.behind
        sourceRect: blur.backdrop.stretch
    }
    ShaderEffect {
        id: across

        readonly property ShaderEffectSource source: stretch
        readonly property size stride: Qt.size(1 / Math.max(1, width), 0)

        anchors.fill: parent
        fragmentShader: "qrc:/shaders/views/blur.frag.qsb"
    }
    ShaderEffectSource {
        id: acrossPicture

        sourceItem: across
        hideSource: true
    }
    ShaderEffect {
        readonly property ShaderEffectSource source: acrossPicture
        readonly property size stride: Qt.size(0, 1 / Math.max(1, height))

        anchors.fill: parent
        fragmentShader: "qrc:/shaders/views/blur.frag.qsb"
    }
}
