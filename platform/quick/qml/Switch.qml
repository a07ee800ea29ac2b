import QtQuick
import Frelta.Quick

// The row that holds it takes the keyboard and speaks for it.
Pill {
    id: control

    required property SwitchNode node
    readonly property bool checked: node.on
    readonly property bool hovered: hover.hovered
    readonly property double travel: width - height
    // From the left, while it is dragged as well as at rest.
    readonly property double visualPosition: press.drag.active ? handle.x / travel
                                                               : checked !== node.mirrored ? 1 : 0
    readonly property bool looksOn: node.mirrored ? visualPosition < 0.5 : visualPosition > 0.5
    // Where the knob is drawn, and how much of the colour: on the way to the visual position.
    property double shownPosition: 0
    readonly property double share: node.mirrored ? 1 - shownPosition : shownPosition
    property bool letGo: false
    property bool ready: false

    // Only what a hand does glides, not a value that comes with the row.
    function follow() {
        glide.stop();
        if (!ready || press.drag.active || (!node.animated && !letGo)) {
            shownPosition = visualPosition;
        } else {
            glide.to = visualPosition;
            glide.start();
        }
        letGo = false;
    }
    function mixed(from, to) {
        return Qt.rgba(from.r + (to.r - from.r) * share, from.g + (to.g - from.g) * share,
                       from.b + (to.b - from.b) * share, from.a + (to.a - from.a) * share);
    }

    onVisualPositionChanged: follow()
    Component.onCompleted: {
        follow();
        ready = true;
    }

    enabled: node.enabled
    color: Qt.tint(mixed(node.theme.fill, node.theme.switchOn),
                   hovered ? Qt.alpha(node.theme.label, 0.1) : "transparent")
    outline: node.theme.border
    opacity: enabled ? 1 : 0.5

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.CheckBox
    Accessible.name: node.accessibleName
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: node.toggle()
    Accessible.onToggleAction: node.toggle()

    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
    NumberAnimation {
        id: glide

        target: control
        property: "shownPosition"
        duration: 150 * control.node.theme.motion
        easing.type: Easing.OutCubic
    }

    Pill {
        property double stretch: press.pressed ? 4 : 0

        x: 2 + control.shownPosition * (parent.width - width - 4)
        y: 2
        width: height + stretch
        height: parent.height - 4
        color: "white"
        outline: "#1a000000"

        Behavior on stretch { NumberAnimation { duration: 100 * control.node.theme.motion } }
    }
    Item { id: handle }
    MouseArea {
        id: press

        anchors.fill: parent
        drag.target: handle
        drag.axis: Drag.XAxis
        drag.minimumX: 0
        drag.maximumX: control.travel
        onPressed: handle.x = control.visualPosition * control.travel
        onReleased: {
            control.letGo = drag.active;
            if (drag.active && control.looksOn !== control.checked)
                control.node.toggle();
        }
        onClicked: control.node.toggle()
    }
}
