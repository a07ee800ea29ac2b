import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

T.Slider {
    id: control

    required property SliderNode node

    function step(direction) {
        node.drag(node.value + direction * node.keyStep);
        node.commit();
    }

    enabled: node.enabled
    from: node.minimum
    to: node.maximum
    value: node.value
    focusPolicy: Qt.StrongFocus
    LayoutMirroring.enabled: node.mirrored
    // A step size would have drags snap to it.
    Keys.onLeftPressed: step(mirrored ? 1 : -1)
    Keys.onRightPressed: step(mirrored ? -1 : 1)
    onMoved: {
        node.drag(value);
        if (!pressed)
            node.commit();
    }
    onPressedChanged: if (!pressed) node.commit()

    Accessible.ignored: node.accessibleHidden
    Accessible.name: node.accessibleName
    Accessible.onIncreaseAction: step(1)
    Accessible.onDecreaseAction: step(-1)

    background: Rectangle {
        y: (control.height - height) / 2
        width: control.width
        height: control.node.trackColors.length > 0 ? 14 : 4
        radius: 2
        color: control.node.trackColors.length > 0 ? "transparent" : control.node.theme.fill
        border.color: control.node.theme.border
        border.width: control.node.theme.highContrast ? 1 : 0

        GradientTrack {
            anchors.fill: parent
            visible: control.node.trackColors.length > 0
            colors: control.node.trackColors
            mirrored: control.mirrored
            outline: control.node.theme.separator
        }

        Rectangle {
            visible: control.node.trackColors.length === 0
            x: control.mirrored ? parent.width - width : 0
            width: control.position * parent.width
            height: parent.height
            radius: 2
            color: control.node.theme.tint
        }
    }
    handle: Rectangle {
        x: control.visualPosition * (control.width - width)
        y: (control.height - height) / 2
        width: 28
        height: 28
        radius: 14
        color: "white"
        border.width: control.visualFocus ? 2 : 0.5
        border.color: control.visualFocus ? control.node.theme.tint : "#33000000"
    }
}
