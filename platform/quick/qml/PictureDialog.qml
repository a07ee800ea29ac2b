import QtQuick
import QtQuick.Dialogs

FileDialog {
    title: qsTr("Choose a picture")
    fileMode: FileDialog.OpenFile
    nameFilters: [qsTr("Pictures") + " (*.png *.jpg *.jpeg *.gif *.PNG *.JPG *.JPEG *.GIF)"]
}
