import QtQuick.Dialogs
import Tintloom

// Asks which file to open.
FileDialog {
    id: dialog

    required property FilePanel panel

    fileMode: FileDialog.OpenFile
    onAccepted: dialog.panel.accept(dialog.selectedFile, dialog.selectedNameFilter.index)
    onRejected: dialog.panel.reject()
}
