import QtQuick

// Said to screen readers, and to nobody else.
Item {
    property string text

    objectName: "announcement"
    width: 1
    height: 1
    visible: false

    Accessible.role: Accessible.Notification
    Accessible.name: text
}
