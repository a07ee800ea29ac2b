import QtQuick
import Frelta.Quick

FocusScope {
    id: alert

    required property AlertNode node

    focus: true
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) node.pressDefault(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) node.pressDefault(); }
    Keys.onEscapePressed: event => { if (!event.isAutoRepeat) node.pressCancel(); }
    // No key means anything to what lies below.
    Keys.onPressed: event => { event.accepted = true; }

    Accessible.role: Accessible.Dialog
    Accessible.name: node.title

    Rectangle {
        x: -alert.node.sideMargin
        width: alert.width + 2 * alert.node.sideMargin
        height: alert.height
        color: alert.node.theme.dark ? "#7a000000" : "#33000000"

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
            hoverEnabled: true
            onWheel: wheel => { wheel.accepted = true; }
        }
    }
}
