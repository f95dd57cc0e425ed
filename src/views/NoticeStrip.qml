import Tintloom

// What could not be written.
Strip {
    objectName: "notice"
    text: overlays.notice
    ink: "white"
    ground: "#B3261E"
}
