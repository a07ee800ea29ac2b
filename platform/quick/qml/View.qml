import QtQuick
import Frelta.Quick

Rectangle {
    required property ViewNode node

    color: node.masked ? "transparent" : node.backgroundColor
    radius: node.cornerRadius

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: node.accessibleRole
    Accessible.name: node.accessibleName
    Accessible.description: node.accessibleDescription
}
