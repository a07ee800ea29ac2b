import QtQuick
import Frelta.Quick

Item {
    id: control

    required property ViewNode node

    Column {
        anchors.centerIn: parent
        spacing: 4

        Repeater {
            model: 3

            Rectangle {
                width: control.width
                height: 2
                color: control.node.theme.chevron
            }
        }
    }
}
