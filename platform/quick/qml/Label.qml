import QtQuick
import Frelta.Quick

Text {
    id: label

    required property LabelNode node

    text: node.text
    textFormat: Text.PlainText
    font: node.font
    color: node.color
    horizontalAlignment: node.alignment
    verticalAlignment: Text.AlignVCenter
    elide: node.lines !== 1 ? Text.ElideNone : node.elidesMiddle ? Text.ElideMiddle : Text.ElideRight
    wrapMode: node.lines === 1 ? Text.NoWrap : Text.Wrap
    maximumLineCount: node.lines > 0 ? node.lines : 2147483647
    fontSizeMode: node.minimumPixelSize > 0 ? Text.HorizontalFit : Text.FixedSize
    minimumPixelSize: Math.max(1, node.minimumPixelSize)

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: node.accessibleRole
    Accessible.name: node.accessibleName

    // Nobody points at it yet, and what only seems cut off until it has its size needs none.
    Loader {
        anchors.fill: parent
        active: label.truncated && label.elide !== Text.ElideNone
        asynchronous: true
        sourceComponent: WholeText { cut: label }
    }
}
