import QtQuick
import Frelta.Quick

// The row that holds it takes the keyboard and speaks for it.
Pill {
    id: control

    required property SwitchNode node
    readonly property bool checked: node.on
    readonly property double travel: width - height
    // From the left, while it is dragged as well as at rest.
    readonly property double visualPosition: press.drag.active ? handle.x / travel
                                                               : checked !== node.mirrored ? 1 : 0
    readonly property bool looksOn: node.mirrored ? visualPosition < 0.5 : visualPosition > 0.5

    enabled: node.enabled
    color: looksOn ? node.theme.switchOn : node.theme.fill
    outline: node.theme.border
    opacity: enabled ? 1 : 0.5

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.CheckBox
    Accessible.name: node.accessibleName
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: node.toggle()
    Accessible.onToggleAction: node.toggle()

    Behavior on color { ColorAnimation { duration: 150 * control.node.theme.motion } }

    Pill {
        x: 2 + control.visualPosition * (parent.width - width - 4)
        y: 2
        width: height + (press.pressed ? 4 : 0)
        height: parent.height - 4
        color: "white"
        outline: "#1a000000"

        Behavior on x {
            enabled: !press.pressed
            NumberAnimation {
                duration: 150 * control.node.theme.motion
                easing.type: Easing.OutCubic
            }
        }
        Behavior on width { NumberAnimation { duration: 100 * control.node.theme.motion } }
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
            if (drag.active && control.looksOn !== control.checked)
                control.node.toggle();
        }
        onClicked: control.node.toggle()
    }
}
