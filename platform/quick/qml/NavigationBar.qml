import QtQuick
import Frelta.Quick

Item {
    required property NavigationBarNode node

    Rectangle {
        x: -parent.node.sideMargin
        width: parent.width + 2 * parent.node.sideMargin
        height: parent.height
        color: parent.node.theme.groupedBackground
    }
}
