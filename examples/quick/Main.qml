import QtQuick 2.15
import QtQuick.Window 2.15
import Lesson 1.0

Window {
    visible: true
    width: page.width
    height: page.height + bar.height
    title: "A lesson in Qt Quick"

    component Choice: Rectangle {
        property alias text: label.text
        property bool chosen: false
        signal clicked

        width: label.width + 8
        height: 32
        color: chosen ? "lightsteelblue" : "whitesmoke"

        Text { id: label; anchors.centerIn: parent }
        MouseArea { anchors.fill: parent; onClicked: parent.clicked() }
    }

    Row {
        id: bar

        Repeater {
            model: ["pencil", "rectangle", "ellipse", "polygon", "eraser"]
            Choice { text: modelData; chosen: page.tool === text; onClicked: page.tool = text }
        }
        Repeater {
            model: ["black", "red", "blue"]
            Choice { text: modelData; chosen: Qt.colorEqual(page.color, text); onClicked: page.color = text }
        }
        Choice { text: "undo"; onClicked: page.undo() }
        Choice { text: "redo"; onClicked: page.redo() }
    }

    LessonPage {
        id: page
        anchors.top: bar.bottom
        tool: "pencil"
        color: "black"
    }
}
