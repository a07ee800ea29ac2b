import QtQuick
import QtQuick.Templates as T
import Frelta.Quick

T.TextField {
    id: control

    required property TextFieldNode node
    // Where the cursor goes with the next text, counted from its end; -1 where it will.
    property int cursorFromEnd: -1

    // The item itself would lay out a megabyte at once, and only knows what it shows.
    function pasteInNode(mouseSelection) {
        cursorFromEnd = length - selectionEnd;
        node.paste(selectionStart, selectionEnd, mouseSelection);
    }

    enabled: node.enabled
    // The item's own limit is 32767 characters.
    maximumLength: 2147483647
    text: node.text
    font: node.font
    color: node.theme.label
    selectionColor: node.theme.tint
    selectedTextColor: "white"
    placeholderTextColor: node.theme.placeholder
    horizontalAlignment: node.alignment
    verticalAlignment: TextInput.AlignVCenter
    rightPadding: node.clearButton && !node.mirrored ? clear.width : 0
    leftPadding: node.clearButton && node.mirrored ? clear.width : 0
    selectByMouse: true
    onTextEdited: node.edited(text)
    onTextChanged: {
        if (cursorFromEnd >= 0)
            cursorPosition = Math.max(0, length - cursorFromEnd);
        cursorFromEnd = -1;
    }
    Keys.onPressed: event => {
        event.accepted = true;
        if (event.matches(StandardKey.Paste)) {
            pasteInNode(false);
        } else if (event.matches(StandardKey.Copy)) {
            node.copy(selectionStart, selectionEnd);
        } else if (event.matches(StandardKey.Cut)) {
            node.copy(selectionStart, selectionEnd);
            remove(selectionStart, selectionEnd);
            node.edited(text);
        } else {
            event.accepted = false;
        }
    }
    onActiveFocusChanged: node.focusChanged(activeFocus)
    onAccepted: focus = false

    Accessible.ignored: node.accessibleHidden
    Accessible.name: node.accessibleName !== "" ? node.accessibleName : node.placeholder

    Connections {
        target: control.node
        function onChanged() {
            if (control.node.editing !== control.activeFocus) {
                if (control.node.editing)
                    control.forceActiveFocus();
                else
                    control.focus = false;
            }
        }
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.MiddleButton
        onClicked: mouse => {
            control.forceActiveFocus(Qt.MouseFocusReason);
            control.cursorPosition = control.positionAt(mouse.x, mouse.y);
            control.pasteInNode(true);
        }
    }
    T.AbstractButton {
        id: clear

        visible: control.node.clearButton
        x: control.node.mirrored ? 0 : control.width - width
        width: 24
        height: control.height
        focusPolicy: Qt.NoFocus
        onClicked: control.node.edited("")

        Accessible.ignored: control.node.accessibleHidden
        Accessible.name: qsTr("Clear")

        contentItem: Item {
            Glyph {
                anchors.centerIn: parent
                width: 16
                height: 16
                shape: Glyph.Clear
                color: control.node.theme.placeholder
            }
        }
    }
    Text {
        anchors.fill: parent
        visible: control.length === 0 && control.preeditText === ""
        text: control.node.placeholder
        textFormat: Text.PlainText
        font: control.font
        color: control.placeholderTextColor
        elide: Text.ElideRight
        horizontalAlignment: control.horizontalAlignment
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
