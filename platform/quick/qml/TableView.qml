import QtQuick
import Frelta.Quick

Item {
    id: table

    required property TableNode node
    property Item content: rows

    // The page: it has the keyboard while none of its rows has.
    Keys.onDownPressed: {
        const first = nextItemInFocusChain(true);
        if (first)
            first.forceActiveFocus(Qt.TabFocusReason);
    }

    Accessible.ignored: node.accessibleHidden
    Accessible.role: Accessible.List
    Accessible.name: node.title
    Accessible.focusable: true

    Rectangle {
        x: flickable.x
        width: flickable.width
        height: flickable.height
        color: table.node.backgroundColor
    }
    // The views stand in a column; the rest of the window's width scrolls and shows the bar too.
    Flickable {
        id: flickable

        x: -table.node.sideMargin
        width: table.width + 2 * table.node.sideMargin
        height: table.height
        contentWidth: width
        contentHeight: table.node.contentHeight
        clip: true
        flickableDirection: Flickable.VerticalFlick
        onContentYChanged: table.node.scrolledTo(contentY)

        Rectangle {
            x: table.node.sideMargin
            y: table.node.contentHeight
            width: table.width
            height: flickable.height
            color: table.node.groundBelow
        }
        Item {
            id: rows

            x: table.node.sideMargin
            width: table.width
            height: table.node.contentHeight
        }
    }
    ScrollBar {
        x: flickable.x + flickable.width - width
        width: 10
        height: flickable.height
        flickable: flickable
        theme: table.node.theme
    }
    Connections {
        target: table.node
        function onChanged() {
            const end = Math.max(0, flickable.contentHeight - flickable.height);
            const shown = Math.max(0, Math.min(end, flickable.contentY));
            if (Math.abs(shown - table.node.contentY) > 0.5)
                flickable.contentY = table.node.contentY;
        }
    }
    Connections {
        target: table.Window.window
        function onActiveFocusItemChanged() {
            const item = table.Window.window.activeFocusItem;
            // What is pressed stays under the pointer.
            if (item && item.focusReason !== Qt.MouseFocusReason)
                table.node.makeVisible(item);
        }
    }
}
