import QtQuick
import Frelta.Quick

Picture {
    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.Graphic
    Accessible.name: node.accessibleName
}
