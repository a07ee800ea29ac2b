import QtQuick
import Frelta.Quick

FocusItem {
    id: cell

    required property CellNode node
    readonly property double corner: 10
    readonly property double hairline: 1 / Screen.devicePixelRatio
    property Item content: contents
    // How far the row has moved aside for its actions.
    readonly property double shift: actions.item
                                    ? actions.item.distance * (node.mirrored ? 1 : -1) : 0

    readonly property bool hovered: hover.hovered && node.selectable

    // From whatever has the keyboard in the row.
    function move(forwards) {
        const next = cell.Window.activeFocusItem.nextItemInFocusChain(forwards);
        if (next)
            next.forceActiveFocus(forwards ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    function activateOnce(event) {
        if (!event.isAutoRepeat)
            node.activate();
    }

    // What has the keyboard must stay a stop until it has lost it: the window refuses anything else.
    activeFocusOnTab: activeFocus || node.focusable
    Keys.onSpacePressed: event => activateOnce(event)
    Keys.onReturnPressed: event => activateOnce(event)
    Keys.onEnterPressed: event => activateOnce(event)
    Keys.onUpPressed: move(false)
    Keys.onDownPressed: move(true)
    Keys.onDeletePressed: event => {
        event.accepted = node.editable;
        if (node.editable && !event.isAutoRepeat)
            node.pressDelete();
    }
    Keys.onMenuPressed: event => {
        event.accepted = node.editable;
        if (node.editable)
            actions.item.openMenu(width / 2, height / 2);
    }
    Keys.onEscapePressed: event => {
        event.accepted = node.actionsOpen;
        node.closeActions();
    }

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: node.accessibleRole
    Accessible.name: node.accessibleName
    Accessible.description: node.accessibleDescription
    Accessible.checkable: node.accessibleCheckable
    Accessible.checked: node.accessibleChecked
    Accessible.focusable: node.focusable
    Accessible.onPressAction: node.activate()
    Accessible.onToggleAction: node.activate()
    // The gesture that brings the actions out; then they are elements of their own.
    Accessible.onScrollLeftAction: node.openActions()
    Accessible.onScrollRightAction: node.closeActions()

    // A finger hovers over nothing.
    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
    MouseArea {
        id: press

        anchors.fill: parent
        onClicked: {
            if (cell.node.focusable)
                cell.forceActiveFocus(Qt.MouseFocusReason);
            cell.node.tap();
        }
    }
    Item {
        x: cell.shift
        width: cell.width
        height: cell.height
        // Corners that are not rounded are cut off with a piece of the card beyond the edge.
        clip: cell.node.roundedTop !== cell.node.roundedBottom

        Rectangle {
            y: cell.node.roundedTop ? 0 : -cell.corner
            width: parent.width
            height: parent.height - y + (cell.node.roundedBottom ? 0 : cell.corner)
            visible: cell.node.roundedTop || cell.node.roundedBottom
            radius: cell.corner
            color: fill.color
        }
        Rectangle {
            id: fill

            anchors.fill: parent
            visible: !cell.node.roundedTop && !cell.node.roundedBottom
            color: cell.node.selectable && (press.pressed || cell.node.selected)
                   ? cell.node.theme.pressed
                   : cell.hovered
                     ? Qt.tint(cell.node.backgroundColor, Qt.alpha(cell.node.theme.pressed, 0.4))
                     : cell.node.backgroundColor
        }
        Rectangle {
            visible: cell.node.separator
            x: cell.node.mirrored ? 0 : cell.node.separatorInset
            y: parent.height - cell.hairline
            width: parent.width - cell.node.separatorInset
            height: 1
            // The software renderer rounds a rectangle's own size up to whole points.
            transform: Scale { yScale: cell.hairline }
            color: cell.node.separatorColor
        }
        Glyph {
            visible: cell.node.disclosure
            x: cell.node.mirrored ? 16 : parent.width - 16 - width
            y: (parent.height - height) / 2
            width: 8
            height: 13
            shape: cell.node.mirrored ? Glyph.ChevronLeft : Glyph.ChevronRight
            color: cell.node.theme.chevron
        }
        Glyph {
            visible: cell.node.checkmark
            x: cell.node.mirrored ? 16 : parent.width - 16 - width
            y: (parent.height - height) / 2
            width: 14
            height: 12
            shape: Glyph.Checkmark
            color: cell.node.theme.tint
        }
        FocusRing {
            anchors.fill: parent
            anchors.margins: 1
            shown: cell.visualFocus
            theme: cell.node.theme
            radius: cell.corner - 1
        }
    }
    Item {
        id: contents

        x: cell.shift
        width: cell.width
        height: cell.height
    }
    Loader {
        id: actions

        anchors.fill: parent
        active: cell.node.editable
        // Few rows have actions; the others need not wait until what shows them is loaded.
        Component.onCompleted: setSource("RowActions.qml", { node: cell.node, row: cell })
    }
}
