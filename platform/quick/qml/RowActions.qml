import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

// What lies behind a row: a swipe, a two-finger scroll or the context menu brings it out.
Item {
    id: actions

    required property CellNode node
    /// Takes the gestures: a row that lay under an item that does would not feel a tap.
    required property Item row
    readonly property double buttonWidth: 84
    readonly property double breadth: buttonWidth * node.actionTitles.length
    readonly property int towardsEnd: node.mirrored ? 1 : -1
    /// How far the row has moved aside.
    property double distance: 0

    function openMenu(x, y) {
        node.askActions();
        if (node.actionTitles.length === 0)
            return;
        menu.active = true;
        menu.item.focusBefore = actions.Window.activeFocusItem;
        menu.item.popup(x, y);
    }
    function settle() {
        distance = node.actionsOpen ? breadth : 0;
    }

    Behavior on distance {
        enabled: !drag.active
        NumberAnimation { duration: 200 * actions.node.theme.motion; easing.type: Easing.OutCubic }
    }

    Item {
        x: actions.node.mirrored ? 0 : actions.width - width
        width: actions.distance
        height: actions.height
        visible: width > 0
        clip: true

        // They stand still, the first at the edge, while the row uncovers them.
        Item {
            x: actions.node.mirrored ? 0 : parent.width - width
            width: actions.breadth
            height: parent.height

            Repeater {
                model: actions.node.actionTitles

                T.AbstractButton {
                    id: button

                    required property int index
                    required property string modelData

                    objectName: "rowAction"
                    text: modelData
                    x: actions.node.mirrored ? index * width
                                             : actions.breadth - (index + 1) * width
                    width: actions.buttonWidth
                    height: actions.height
                    enabled: actions.node.actionsOpen
                    focusPolicy: Qt.StrongFocus
                    onClicked: actions.node.pressAction(index)
                    Keys.onReturnPressed: actions.node.pressAction(index)
                    Keys.onEnterPressed: actions.node.pressAction(index)

                    Accessible.ignored: actions.node.accessibleHidden
                    Accessible.role: Accessible.Button
                    Accessible.name: modelData
                    Accessible.onPressAction: actions.node.pressAction(index)

                    background: Rectangle {
                        color: actions.node.actionColors[button.index]
                        opacity: button.pressed ? 0.7 : 1

                        FocusRing {
                            anchors.fill: parent
                            anchors.margins: 2
                            shown: button.visualFocus
                            theme: actions.node.theme
                            border.color: "white"
                        }
                    }
                    contentItem: Text {
                        text: button.modelData
                        textFormat: Text.PlainText
                        font: actions.node.actionFont
                        color: "white"
                        elide: Text.ElideRight
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
    DragHandler {
        id: drag

        parent: actions.row
        property double before: 0

        target: null
        yAxis.enabled: false
        onActiveChanged: {
            if (active) {
                before = actions.distance;
                actions.node.openActions();
            } else {
                if (actions.distance < actions.breadth / 2)
                    actions.node.closeActions();
                actions.settle();
            }
        }
        onTranslationChanged: {
            if (active)
                actions.distance = Math.max(0, Math.min(actions.breadth, before
                                            + translation.x * actions.towardsEnd));
        }
    }
    WheelHandler {
        id: wheel

        parent: actions.row
        property double turned: 0

        target: null
        orientation: Qt.Horizontal
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => {
            turned += event.angleDelta.x * actions.towardsEnd;
            forget.restart();
            if (turned >= 90)
                actions.node.openActions();
            else if (turned <= -90)
                actions.node.closeActions();
        }

        property Timer forget: Timer {
            interval: 400
            onTriggered: wheel.turned = 0
        }
    }
    TapHandler {
        parent: actions.row
        acceptedButtons: Qt.RightButton
        onTapped: point => actions.openMenu(point.position.x, point.position.y)
    }
    Connections {
        target: actions.node
        function onActionsOpenChanged() {
            if (!drag.active)
                actions.settle();
        }
    }
    Loader {
        id: menu

        active: false
        sourceComponent: RowMenu { node: actions.node }
    }
}
