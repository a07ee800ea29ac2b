import QtQuick
import Frelta.Quick

// Shows where the keyboard's input goes.
Rectangle {
    required property bool shown
    required property Theme theme

    visible: shown
    color: "transparent"
    border.width: 2
    border.color: theme.tint
}
