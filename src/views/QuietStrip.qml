import QtQuick
import Tintloom

// What a person may want to know or do next: a text, and what can be done about it.
Strip {
    id: strip

    objectName: "quietStrip"
    text: overlays.quietText
    ink: "#1C1C1E"
    ground: "#F4F6F5"
    footerHeight: 40

    QuietButtons {
        height: strip.footerHeight
        overlays: strip.overlays
    }
}
