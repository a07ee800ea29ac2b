import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

Item {
    id: view

    required property TextViewNode node
    readonly property var document: editor.textDocument
    readonly property bool scrolls: flickable.contentHeight > flickable.height + 1

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.StaticText
    Accessible.name: node.accessibleName

    Flickable {
        id: flickable

        anchors.fill: parent
        contentWidth: width
        contentHeight: editor.height
        clip: true
        interactive: view.scrolls
        boundsBehavior: Flickable.StopAtBounds

        // In the margin, where it covers no text.
        T.ScrollBar.vertical: T.ScrollBar {
            parent: view
            x: view.width + 4
            width: 6
            height: view.height
            minimumSize: 0.08
            visible: size < 1

            contentItem: Rectangle {
                radius: 3
                color: view.node.theme.dark ? "#66ffffff" : "#66000000"
            }
        }

        TextEdit {
            id: editor

            function keepCursorVisible() {
                if (!activeFocus)
                    return;
                const top = cursorRectangle.y;
                const bottom = top + cursorRectangle.height;
                if (top < flickable.contentY)
                    flickable.contentY = top;
                else if (bottom > flickable.contentY + flickable.height)
                    flickable.contentY = bottom - flickable.height;
            }

            width: flickable.width
            readOnly: true
            selectByMouse: true
            selectByKeyboard: true
            // What has the keyboard must stay a stop until it has lost it.
            activeFocusOnTab: activeFocus || view.scrolls
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.WrapAtWordBoundaryOrAnywhere
            font: view.node.font
            color: view.node.theme.label
            selectionColor: view.node.theme.tint
            selectedTextColor: "white"
            horizontalAlignment: view.node.alignment
            onCursorRectangleChanged: keepCursorVisible()
            Keys.onPressed: event => {
                if (event.matches(StandardKey.Copy) || event.matches(StandardKey.Cut)) {
                    view.node.copy(selectedText);
                    event.accepted = true;
                }
            }

            Accessible.ignored: true
        }
        FocusRing {
            width: editor.width
            height: flickable.height
            y: flickable.contentY
            shown: editor.activeFocus && view.scrolls
            theme: view.node.theme
        }
    }
}
