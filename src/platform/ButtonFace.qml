import QtQuick

// A button's picture: its corners, 18 points each, keep their shape; the middle stretches.
BorderImage {
    border {
        left: 18
        top: 18
        right: 18
        bottom: 18
    }
}
