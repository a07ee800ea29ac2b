import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

T.Slider {
    id: control

    required property SliderNode node
    /// Finer than a key's step: drags snap to it.
    readonly property double stepsPerUnit: 10 / node.keyStep
    // By these names assistive technology finds the bounds.
    readonly property double minimumValue: from
    readonly property double maximumValue: to

    function goTo(value) {
        node.drag(value);
        node.commit();
    }
    function step(count) {
        goTo(node.value + count * node.keyStep);
    }

    enabled: node.enabled
    from: node.minimum
    to: node.maximum
    stepSize: 1 / stepsPerUnit
    value: Math.round(node.value * stepsPerUnit) / stepsPerUnit
    focusPolicy: Qt.StrongFocus
    LayoutMirroring.enabled: node.mirrored
    Keys.onLeftPressed: step(mirrored ? 1 : -1)
    Keys.onRightPressed: step(mirrored ? -1 : 1)
    Keys.onPressed: event => {
        event.accepted = true;
        if (event.key === Qt.Key_PageUp)
            step(10);
        else if (event.key === Qt.Key_PageDown)
            step(-10);
        else if (event.key === Qt.Key_Home)
            goTo(node.minimum);
        else if (event.key === Qt.Key_End)
            goTo(node.maximum);
        else
            event.accepted = false;
    }
    onMoved: {
        node.drag(value);
        if (!pressed)
            node.commit();
    }
    onPressedChanged: if (!pressed) node.commit()

    Accessible.ignored: node.accessibleHidden
    // What changes with every step is no name.
    Accessible.name: node.label
    Accessible.description: node.valueText
    Accessible.onIncreaseAction: step(1)
    Accessible.onDecreaseAction: step(-1)

    background: Rectangle {
        y: (control.height - height) / 2
        width: control.width
        height: control.node.trackColors.length > 0 ? 14 : 4
        radius: 2
        color: control.node.trackColors.length > 0 ? "transparent" : control.node.theme.fill
        border.color: control.node.theme.border
        // The colours have an outline of their own, of another shape.
        border.width: control.node.theme.highContrast && control.node.trackColors.length === 0 ? 1 : 0

        GradientTrack {
            anchors.fill: parent
            visible: control.node.trackColors.length > 0
            colors: control.node.trackColors
            mirrored: control.mirrored
            outline: control.node.theme.highContrast ? control.node.theme.border
                                                     : control.node.theme.separator
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
