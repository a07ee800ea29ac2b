import QtQuick
import QtQuick.Templates as T

// Shows all of a label that is cut off: to a pointer that stays on it, to a finger that stays down.
Item {
    id: whole

    required property Text cut

    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
    TapHandler {
        id: finger

        property bool held: false

        acceptedDevices: PointerDevice.TouchScreen
        onLongPressed: held = true
        onPressedChanged: if (!pressed) held = false
        onCanceled: held = false
    }
    T.ToolTip {
        readonly property real room: whole.Window.width - 2 * margins

        y: -height - 6
        margins: 8
        padding: 10
        implicitWidth: Math.min(room, text.implicitWidth + 2 * padding)
        implicitHeight: text.height + 2 * padding
        delay: finger.held ? 0 : Application.styleHints.mousePressAndHoldInterval
        visible: hover.hovered || finger.held
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

        background: Rectangle {
            radius: 8
            color: whole.cut.node.theme.dark ? "#2c2c2e" : "#f9f9f9"
            border.width: 1
            border.color: whole.cut.node.theme.separator
        }
        contentItem: Item {
            Text {
                id: text

                objectName: "wholeText"
                width: parent.width
                text: whole.cut.text
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                maximumLineCount: 8
                elide: Text.ElideRight
                font.family: whole.cut.font.family
                font.pixelSize: 15
                color: whole.cut.node.theme.label
                Accessible.ignored: true
            }
        }
    }
}
