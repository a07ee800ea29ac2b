import QtQuick
import Frelta.Quick

FocusScope {
    id: picker

    required property PickerNode node

    focus: true
    Keys.onEscapePressed: event => { if (!event.isAutoRepeat) node.cancel(); }
    // No key means anything to what lies below.
    Keys.onPressed: event => { event.accepted = true; }

    Accessible.ignored: !node.busy
    Accessible.role: Accessible.Dialog
    Accessible.name: message.text

    Rectangle {
        x: -picker.node.sideMargin
        width: picker.width + 2 * picker.node.sideMargin
        height: picker.height
        color: !picker.node.busy ? "transparent" : picker.node.theme.dark ? "#7a000000" : "#33000000"

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
            hoverEnabled: true
            onWheel: wheel => { wheel.accepted = true; }
        }
    }
    Rectangle {
        visible: picker.node.busy
        anchors.centerIn: parent
        width: message.width + 48
        height: message.height + spinner.height + 56
        radius: 14
        color: picker.node.theme.dark ? "#2b2b2e" : "#f5f5f7"

        Item {
            id: spinner

            y: 22
            anchors.horizontalCenter: parent.horizontalCenter
            width: 28
            height: 28

            RotationAnimation on rotation {
                running: picker.node.busy
                loops: Animation.Infinite
                from: 0
                to: 360
                duration: 900
            }
            Repeater {
                model: 8

                Rectangle {
                    required property int index
                    readonly property double angle: index * Math.PI / 4

                    x: 11.5 + 11.5 * Math.sin(angle)
                    y: 11.5 - 11.5 * Math.cos(angle)
                    width: 5
                    height: 5
                    radius: 2.5
                    color: picker.node.theme.secondaryLabel
                    opacity: (index + 1) / 8
                }
            }
        }
        Text {
            id: message

            anchors.horizontalCenter: parent.horizontalCenter
            y: spinner.y + spinner.height + 12
            text: qsTr("Opening the picture…")
            textFormat: Text.PlainText
            font: picker.node.font
            color: picker.node.theme.label
            Accessible.ignored: true
        }
    }
}
