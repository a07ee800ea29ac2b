import QtQuick
import Frelta.Quick

Rectangle {
    required property ViewNode node

    color: node.backgroundColor
    radius: node.cornerRadius

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: node.accessibleRole
    Accessible.name: node.accessibleName
}
