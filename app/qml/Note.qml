import QtQuick
import QtQuick.Templates as T

// At the foot of the window: one thing to say, how far it is, and what can be done about it.
Item {
    id: note

    required property string text
    /// Done, 0 to 1; below 0 there is no bar.
    required property double part
    /// Milliseconds until it goes by itself, while nobody points at it or has the keyboard there; 0 for
    /// never.
    required property int time
    /// Of the button; empty for none.
    required property string actionTitle
    required property font textFont
    required property var theme
    readonly property bool working: part >= 0

    signal acted
    signal expired

    objectName: "note"
    width: parent ? parent.width : 0
    height: card.height

    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    // The role that screen readers read as soon as it shows.
    Accessible.role: Accessible.Notification
    Accessible.name: text

    Timer {
        running: note.time > 0 && !pointer.containsMouse && !action.activeFocus
        interval: note.time
        onTriggered: note.expired()
    }

    // A tap is not for what lies below; what goes by itself goes at a tap too.
    MouseArea {
        id: pointer

        anchors.fill: parent
        hoverEnabled: true
        onClicked: if (note.time > 0) note.expired()
    }

    Rectangle {
        id: card

        width: parent.width
        height: Math.max(caption.implicitHeight, action.visible ? action.height : 0) + 24
                + (note.working ? 16 : 0)
        radius: 14
        color: note.theme.dark ? "#2c2c2e" : "white"
        border.width: 1
        border.color: note.theme.separator

        Text {
            id: caption

            anchors.left: parent.left
            anchors.leftMargin: 16
            anchors.right: action.visible ? action.left : parent.right
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
            id: action

            objectName: "noteAction"
            visible: text.length > 0
            anchors.right: parent.right
            anchors.rightMargin: 8
            y: 8
            width: title.implicitWidth + 16
            height: 32
            text: note.actionTitle
            focusPolicy: Qt.StrongFocus
            onClicked: note.acted()
            Keys.onReturnPressed: note.acted()
            Keys.onEnterPressed: note.acted()

            Accessible.role: Accessible.Button
            Accessible.name: text
            Accessible.onPressAction: note.acted()

            background: Rectangle {
                radius: 8
                color: "transparent"
                border.width: action.visualFocus ? 2 : 0
                border.color: note.theme.tint
            }
            contentItem: Text {
                id: title

                text: action.text
                font: note.textFont
                color: note.theme.tint
                opacity: action.pressed ? 0.4 : 1
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
