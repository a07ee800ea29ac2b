import QtQuick

// What selector_scrolling is measured against: the same cards in a plain list.
ListView {
    id: list

    required property var pictures

    model: 10000
    cacheBuffer: height / 2
    reuseItems: true
    delegate: Item {
        id: card

        required property int index

        width: list.width
        height: 130

        Rectangle {
            x: 7.5
            y: 7.5
            width: parent.width - 15
            height: 115
            radius: 15
            color: "#f5f5f5"

            Image {
                x: 10
                y: 11.5
                width: 92
                height: 92
                source: list.pictures[card.index % list.pictures.length]
                sourceSize: Qt.size(184, 184)
                fillMode: Image.PreserveAspectFit
                cache: false
            }
            Text {
                x: 112
                y: 57.5 - height
                width: Math.min(implicitWidth, parent.width - 228)
                text: "Style number " + card.index
                textFormat: Text.PlainText
                font.family: "Inter"
                font.pixelSize: 24
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 4
            }
            Text {
                x: 112
                y: 57.5
                text: "Images Theme"
                textFormat: Text.PlainText
                font.family: "Inter"
                font.pixelSize: 18
                color: "#555555"
            }
            Rectangle {
                x: parent.width - 86
                y: 42
                width: 76
                height: 31
                radius: 15.5
                color: "#29787880"

                Text {
                    anchors.centerIn: parent
                    text: "Enable"
                    textFormat: Text.PlainText
                    font.family: "Inter"
                    font.pixelSize: 16
                    font.bold: true
                    color: "#007aff"
                }
                MouseArea {
                    anchors.fill: parent
                }
            }
        }
    }
}
