import QtQuick

// The blurred picture of what lies behind a translucent bar. Blurring takes shaders: on the software
// renderer there is nothing here, and the bar's tint alone remains.
Loader {
    // All that is behind the bar, an opaque ground included, or what is sharp shows between; and which
    // stretch of it, in its own coordinates. The bar must not be inside it.
    required property Item behind
    required property rect stretch

    z: -2
    active: GraphicsInfo.shaderType === GraphicsInfo.RhiShader
    source: Qt.resolvedUrl("ShaderBlur.qml") // apart, so that its module is loaded only where it can work
}
