import QtQuick
import Frelta.Quick

// Shows for a while which part of the content is in view, and moves it.
Item {
    id: bar

    required property Flickable flickable
    required property Theme theme
    readonly property double thumbHeight: Math.max(24, height * flickable.visibleArea.heightRatio)
    readonly property double end: flickable.contentHeight - flickable.height
    readonly property bool active: flickable.moving || pointer.containsMouse || pointer.pressed

    visible: end > 0
    opacity: active ? 1 : 0

    Behavior on opacity { NumberAnimation { duration: 200 * bar.theme.motion } }

    Rectangle {
        id: thumb

        anchors.horizontalCenter: parent.horizontalCenter
        y: bar.end > 0 ? Math.max(0, Math.min(1, bar.flickable.contentY / bar.end))
                         * (bar.height - height) : 0
        width: 4
        height: bar.thumbHeight
        radius: 2
        color: bar.theme.dark ? "#66ffffff" : "#66000000"
    }
    MouseArea {
        id: pointer

        // Of the place in the thumb that is held.
        property double grip: 0

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            const inside = mouse.y >= thumb.y && mouse.y <= thumb.y + thumb.height;
            grip = inside ? mouse.y - thumb.y : thumb.height / 2;
            moveTo(mouse.y);
        }
        onPositionChanged: mouse => {
            if (pressed)
                moveTo(mouse.y);
        }

        function moveTo(y) {
            const room = Math.max(1, bar.height - thumb.height);
            bar.flickable.contentY = Math.max(0, Math.min(1, (y - grip) / room)) * bar.end;
        }
    }
}
