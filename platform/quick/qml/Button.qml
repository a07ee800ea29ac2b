import QtQuick
import Frelta.Quick

FocusItem {
    id: button

    required property ButtonNode node
    readonly property string text: node.title
    readonly property bool filled: node.backgroundColor.a > 0
    readonly property bool pressed: pointer.pressed && pointer.containsMouse
    readonly property bool hovered: hover.hovered
    readonly property double fade: !enabled ? 0.3
                                 : pressed ? filled ? 0.6 : 0.4
                                 : hovered ? filled ? 0.85 : 0.75 : 1

    function pressOnce(event) {
        if (!event.isAutoRepeat)
            node.press();
    }

    enabled: node.enabled
    activeFocusOnTab: true
    Keys.onSpacePressed: event => pressOnce(event)
    Keys.onReturnPressed: event => pressOnce(event)
    Keys.onEnterPressed: event => pressOnce(event)

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.Button
    Accessible.name: node.accessibleName
    Accessible.focusable: true
    Accessible.onPressAction: node.press()

    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
    MouseArea {
        id: pointer

        anchors.fill: parent
        onPressed: button.forceActiveFocus(Qt.MouseFocusReason)
        onClicked: button.node.press()
    }
    Loader {
        anchors.fill: parent
        active: button.filled
        sourceComponent: Pill {
            color: button.node.backgroundColor
            radius: button.node.cornerRadius
            opacity: button.fade
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
    Item {
        anchors.fill: parent
        opacity: button.fade

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
            text: button.text
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
