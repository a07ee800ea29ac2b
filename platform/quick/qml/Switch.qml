import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

T.Switch {
    id: control

    required property SwitchNode node

    enabled: node.enabled
    checked: node.on
    // The row that holds it takes the keyboard and speaks for it.
    focusPolicy: Qt.NoFocus
    LayoutMirroring.enabled: node.mirrored
    onToggled: node.toggle()

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.CheckBox
    Accessible.name: node.accessibleName
    Accessible.checkable: true
    Accessible.checked: node.on
    Accessible.onPressAction: node.toggle()
    Accessible.onToggleAction: node.toggle()

    indicator: Pill {
        width: control.width
        height: control.height
        color: control.position > 0.5 ? control.node.theme.switchOn : control.node.theme.fill
        outline: control.node.theme.border
        opacity: control.enabled ? 1 : 0.5

        Behavior on color { ColorAnimation { duration: 150 * control.node.theme.motion } }

        Pill {
            x: 2 + control.visualPosition * (parent.width - width - 4)
            y: 2
            width: height + (control.pressed ? 4 : 0)
            height: parent.height - 4
            color: "white"
            outline: "#1a000000"

            Behavior on x {
                enabled: !control.pressed
                NumberAnimation { duration: 150 * control.node.theme.motion; easing.type: Easing.OutCubic }
            }
            Behavior on width { NumberAnimation { duration: 100 * control.node.theme.motion } }
        }
    }
}
