// The faces of the buttons of `Form2`: a raised button shows while the pointer is on its picture.
#include "editing/Form2.h"

namespace velorin {

void Form2::Cmd2_MouseUp(int index) {
    if (index >= 1 && index <= editButtons) {
        raised_.reset(static_cast<std::size_t>(index));
    }
}

void Form2::ImgPic_MouseDown(int) {
    raised_.reset();
}

void Form2::ImgPic_MouseMove(int index) {
    if (index < 1 || index > editButtons) {
        return;
    }
    raised_.set(static_cast<std::size_t>(index));
    Cmd2_MouseUp(index - 1);
    Cmd2_MouseUp(index + 1);
}

void Form2::ImgPic_MouseUp(int) {
    raised_.reset();
}

void Form2::Form_MouseMove() {
    raised_.reset();
}

bool Form2::isCmd2Visible(int index) const {
    return index >= 1 && index <= editButtons && raised_.test(static_cast<std::size_t>(index));
}

/// Also for what lies on the window and takes no move of its own.
void Form2::mouseMoveEvent(QMouseEvent* event) {
    ToolFrame::mouseMoveEvent(event);
    Form_MouseMove();
}

} // namespace velorin
