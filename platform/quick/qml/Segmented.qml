import QtQuick
import Frelta.Quick

Rectangle {
    id: control

    required property SegmentedNode node
    readonly property int count: node.titles.length
    readonly property double segmentWidth: count > 0 ? (width - 4) / count : 0

    function moveTo(index) {
        if (index < 0 || index >= count)
            return;
        node.select(index);
        segments.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
    }
    function step(by) {
        moveTo(node.selected + (node.mirrored ? -by : by));
    }
    function leftOf(index) {
        return 2 + segmentWidth * (node.mirrored ? count - 1 - index : index);
    }

    color: node.theme.fill
    border.color: node.theme.border
    border.width: node.theme.highContrast ? 1 : 0
    radius: 9
    opacity: node.enabled ? 1 : 0.5

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: Accessible.Grouping
    Accessible.name: node.accessibleName

    Rectangle {
        visible: control.node.selected >= 0
        x: control.leftOf(control.node.selected)
        y: 2
        width: control.segmentWidth
        height: parent.height - 4
        radius: 7
        color: control.node.theme.segment
        border.width: 0.5
        border.color: control.node.theme.highContrast ? control.node.theme.border : "#14000000"

        Behavior on x { NumberAnimation { duration: 150 * control.node.theme.motion; easing.type: Easing.OutCubic } }
    }
    Repeater {
        id: segments

        model: control.node.titles

        FocusItem {
            id: segment

            required property int index
            required property string modelData
            readonly property bool current: control.node.selected === index

            x: control.leftOf(index)
            y: 2
            width: control.segmentWidth
            height: control.height - 4
            enabled: control.node.enabled
            // One stop for the Tab key; the arrow keys go on from there. What has the keyboard must stay
            // one until it has lost it: the window refuses anything else.
            activeFocusOnTab: activeFocus || current || (control.node.selected < 0 && index === 0)
            Keys.onLeftPressed: control.step(-1)
            Keys.onRightPressed: control.step(1)
            Keys.onSpacePressed: control.node.select(index)
            Keys.onReturnPressed: control.node.select(index)
            Keys.onEnterPressed: control.node.select(index)

            Accessible.ignored: control.node.accessibleHidden
            Accessible.role: Accessible.RadioButton
            Accessible.name: modelData
            Accessible.checkable: true
            Accessible.checked: current
            Accessible.focusable: true
            Accessible.onPressAction: control.node.select(index)
            Accessible.onToggleAction: control.node.select(index)

            MouseArea {
                id: press

                anchors.fill: parent
                onClicked: {
                    segment.forceActiveFocus(Qt.MouseFocusReason);
                    control.node.select(segment.index);
                }
            }
            Text {
                anchors.fill: parent
                text: segment.modelData
                textFormat: Text.PlainText
                font.pixelSize: 13
                font.family: control.node.fontFamily
                font.weight: segment.current ? Font.DemiBold : Font.Normal
                color: control.node.theme.label
                opacity: press.pressed && !segment.current ? 0.4 : 1
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
            FocusRing {
                anchors.fill: parent
                shown: segment.visualFocus
                theme: control.node.theme
                radius: 7
            }
        }
    }
}
