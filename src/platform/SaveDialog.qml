import QtQuick.Dialogs
import Tintloom

// Asks where to save a file. Who writes it asks whether to overwrite.
FileDialog {
    id: dialog

    required property FilePanel panel

    fileMode: FileDialog.SaveFile
    options: FileDialog.DontConfirmOverwrite
    onAccepted: dialog.panel.accept(dialog.selectedFile, dialog.selectedNameFilter.index)
    onRejected: dialog.panel.reject()
}
