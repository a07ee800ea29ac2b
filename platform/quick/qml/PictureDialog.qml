import QtQuick
// What the dialogue is made of where the desktop has none of its own. It ends the program when one
// is missing, so that is found out here.
import QtQuick.Controls
import QtQuick.Layouts
import QtQuick.Dialogs
import Qt.labs.folderlistmodel

FileDialog {
    title: qsTr("Choose a picture")
    fileMode: FileDialog.OpenFile
    nameFilters: [qsTr("Pictures") + " (*.png *.jpg *.jpeg *.gif *.PNG *.JPG *.JPEG *.GIF)"]
}
