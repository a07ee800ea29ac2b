import QtQuick
import Frelta.Quick

Text {
    required property LabelNode node

    text: node.text
    textFormat: Text.PlainText
    font: node.font
    color: node.color
    horizontalAlignment: node.alignment
    verticalAlignment: Text.AlignVCenter
    elide: node.lines === 1 ? Text.ElideRight : Text.ElideNone
    wrapMode: node.lines === 1 ? Text.NoWrap : Text.Wrap
    maximumLineCount: node.lines > 0 ? node.lines : 2147483647
    fontSizeMode: node.minimumPixelSize > 0 ? Text.HorizontalFit : Text.FixedSize
    minimumPixelSize: Math.max(1, node.minimumPixelSize)

    Accessible.ignored: node.accessibleIgnored
    Accessible.role: node.accessibleRole
    Accessible.name: node.accessibleName
}
