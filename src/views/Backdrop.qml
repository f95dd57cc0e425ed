import QtQuick

// The blurred picture of what lies behind a translucent bar. Blurring takes shaders: on the software
// renderer there is nothing here, and the bar's tint alone remains.
Loader {
    // What scrolls behind the bar, and which stretch of it. The bar must not be inside it.
    required property Item behind
    required property rect stretch

    z: -2
    active: GraphicsInfo.shaderType === GraphicsInfo.RhiShader
    source: Qt.resolvedUrl("ShaderBlur.qml") // apart, so that its module is loaded only where it can work
}
