import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

T.AbstractButton {
    id: button

    required property ButtonNode node
    readonly property bool filled: node.backgroundColor.a > 0

    enabled: node.enabled
    text: node.title
    focusPolicy: Qt.StrongFocus
    onClicked: node.press()
    Keys.onReturnPressed: node.press()
    Keys.onEnterPressed: node.press()

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.Button
    Accessible.name: node.accessibleName
    Accessible.onPressAction: node.press()

    background: Item {
        Loader {
            anchors.fill: parent
            active: button.filled
            sourceComponent: Pill {
                color: button.node.backgroundColor
                radius: button.node.cornerRadius
                opacity: button.enabled ? button.pressed ? 0.6 : 1 : 0.3
            }
        }
        FocusRing {
            anchors.fill: parent
            // Beside a fill of its own colour the ring would not show.
            anchors.margins: button.filled ? -4 : 0
            shown: button.visualFocus
            theme: button.node.theme
            radius: button.filled ? button.node.cornerRadius + 4 : 8
        }
    }
    contentItem: Item {
        opacity: button.enabled ? button.pressed ? button.filled ? 0.6 : 0.4 : 1 : 0.3

        Glyph {
            id: chevron

            visible: button.node.back
            width: 10
            height: 18
            x: button.node.mirrored ? parent.width - width : 0
            anchors.verticalCenter: parent.verticalCenter
            shape: button.node.mirrored ? Glyph.ChevronRight : Glyph.ChevronLeft
            color: button.node.color
            thickness: 2.5
        }
        Glyph {
            visible: button.node.add
            anchors.centerIn: parent
            width: 18
            height: 18
            shape: Glyph.Plus
            color: button.node.color
        }
        Text {
            anchors.fill: parent
            anchors.leftMargin: button.node.back && !button.node.mirrored ? 16 : 0
            anchors.rightMargin: button.node.back && button.node.mirrored ? 16 : 0
            text: button.node.title
            textFormat: Text.PlainText
            font: button.node.font
            color: button.node.color
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
            horizontalAlignment: button.node.back
                                 ? button.node.mirrored ? Text.AlignRight : Text.AlignLeft
                                 : Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
