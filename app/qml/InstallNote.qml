import QtQuick
import QtQuick.Templates as T

// Over the bottom of the window: what is being installed, how far it is, and a way to stop it.
Item {
    id: note

    required property string text
    /// Done, 0 to 1; below 0 there is no bar.
    required property double part
    /// Milliseconds until it goes by itself; 0 for never.
    required property int time
    required property string cancelTitle
    required property font textFont
    required property var theme
    readonly property bool working: part >= 0

    signal cancelled
    signal expired

    objectName: "installNote"
    z: 1000
    width: parent ? Math.min(parent.width - 32, 420) : 0
    height: card.height
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - 24 : 0

    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Timer {
        running: note.time > 0
        interval: note.time
        onTriggered: note.expired()
    }

    // A tap is not for what lies below.
    MouseArea { anchors.fill: parent }

    Rectangle {
        id: card

        width: parent.width
        height: Math.max(caption.implicitHeight, cancel.visible ? cancel.height : 0) + 24
                + (note.working ? 16 : 0)
        radius: 14
        color: note.theme.dark ? "#2c2c2e" : "white"
        border.width: 1
        border.color: note.theme.separator

        Text {
            id: caption

            anchors.left: parent.left
            anchors.leftMargin: 16
            anchors.right: cancel.visible ? cancel.left : parent.right
            anchors.rightMargin: 16
            y: 12
            height: parent.height - 24 - (note.working ? 16 : 0)
            text: note.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            font: note.textFont
            color: note.theme.label
            horizontalAlignment: Text.AlignLeft
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }

        T.AbstractButton {
            id: cancel

            objectName: "cancelInstall"
            visible: note.working
            anchors.right: parent.right
            anchors.rightMargin: 8
            y: 8
            width: title.implicitWidth + 16
            height: 32
            text: note.cancelTitle
            focusPolicy: Qt.StrongFocus
            onClicked: note.cancelled()
            Keys.onReturnPressed: note.cancelled()
            Keys.onEnterPressed: note.cancelled()

            Accessible.role: Accessible.Button
            Accessible.name: text
            Accessible.onPressAction: note.cancelled()

            background: Rectangle {
                radius: 8
                color: "transparent"
                border.width: cancel.visualFocus ? 2 : 0
                border.color: note.theme.tint
            }
            contentItem: Text {
                id: title

                text: cancel.text
                font: note.textFont
                color: note.theme.tint
                opacity: cancel.pressed ? 0.4 : 1
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
        }

        Rectangle {
            visible: note.working
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 16
            y: parent.height - 20
            height: 6
            radius: 3
            color: note.theme.fill

            Accessible.role: Accessible.ProgressBar
            Accessible.name: note.text
            Accessible.description: Math.round(note.part * 100) + " %"

            Rectangle {
                anchors.left: parent.left
                width: parent.width * Math.max(0, Math.min(1, note.part))
                height: parent.height
                radius: 3
                color: note.theme.tint
            }
        }
    }
}
