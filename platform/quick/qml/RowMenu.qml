import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

// A row's actions for whoever has a pointer with a second button or a keyboard.
T.Menu {
    id: menu

    required property CellNode node
    property Item focusBefore

    // The reason decides whether a focus ring shows, as before.
    onClosed: if (focusBefore) focusBefore.forceActiveFocus(focusBefore.focusReason ?? Qt.PopupFocusReason)

    implicitWidth: 180
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 8
    padding: 6
    modal: true
    T.Overlay.modal: Item {}

    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: false
    }
    background: Rectangle {
        radius: 10
        color: menu.node.theme.dark ? "#2c2c2e" : "#f9f9f9"
        border.width: 1
        border.color: menu.node.theme.separator
    }

    Repeater {
        model: menu.node.actionTitles

        T.MenuItem {
            id: item

            required property int index
            required property string modelData

            implicitWidth: 168
            implicitHeight: 36
            text: modelData
            onTriggered: menu.node.pressAction(index)

            background: Rectangle {
                radius: 6
                color: item.highlighted ? menu.node.theme.fill : "transparent"
            }
            contentItem: Text {
                leftPadding: 12
                rightPadding: 12
                text: item.text
                textFormat: Text.PlainText
                font: menu.node.actionFont
                color: menu.node.theme.label
                verticalAlignment: Text.AlignVCenter
                horizontalAlignment: menu.node.mirrored ? Text.AlignRight : Text.AlignLeft
            }
        }
    }
}
