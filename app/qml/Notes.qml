import QtQuick

// The notes at the foot of the window, the newest lowest.
Column {
    objectName: "notes"
    z: 1000
    spacing: 8
    width: parent ? Math.min(parent.width - 32, 420) : 0
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - 24 : 0
}
