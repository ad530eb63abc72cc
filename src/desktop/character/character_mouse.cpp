#include "desktop/character/character_mouse.h"

#include <QApplication>

#include <cstdint>

namespace brovin::desktop {
namespace {

using character::Place;
using character::Pointer;

std::uint16_t number(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

Pointer pointerOf(const QMouseEvent& event, Qt::MouseButton button) {
    const Qt::KeyboardModifiers keys = event.modifiers();
    const int shift = (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) +
                      (keys.testFlag(Qt::ControlModifier) ? 2 : 0) + (keys.testFlag(Qt::AltModifier) ? 4 : 0);
    const QPoint at = event.globalPosition().toPoint();
    return {number(button), static_cast<std::uint16_t>(shift), {at.x(), at.y()}};
}

bool farFrom(Place a, Place b) {
    return (QPoint(a.x, a.y) - QPoint(b.x, b.y)).manhattanLength() >= QApplication::startDragDistance();
}

} // namespace

void CharacterMouse::press(const QMouseEvent& event) {
    if (!held_ && number(event.button()) != 0)
        held_ = Held{event.button(), pointerOf(event, event.button()), false, false};
}

void CharacterMouse::pressAgain(const QMouseEvent& event) {
    press(event);
    if (held_)
        held_->second = true;
}

void CharacterMouse::move(const QMouseEvent& event) {
    if (!held_ || held_->button != Qt::LeftButton)
        return;
    const Pointer pointer = pointerOf(event, held_->button);
    if (!held_->dragging) {
        if (!farFrom(pointer.at, held_->pointer.at))
            return;
        held_->dragging = true;
        stage_.beginDrag(held_->pointer);
    }
    held_->pointer = pointer;
    stage_.dragTo(pointer.at);
}

CharacterMouse::Released CharacterMouse::release(const QMouseEvent& event, bool inside) {
    if (!held_ || held_->button != event.button())
        return Released::Nothing;
    const Held held = *held_;
    held_.reset();
    const Pointer pointer = pointerOf(event, held.button);
    if (held.dragging) {
        stage_.endDrag(pointer);
        return Released::Nothing;
    }
    if (!inside)
        return Released::Nothing;
    if (held.second)
        stage_.doubleClick(pointer);
    else
        stage_.click(pointer);
    return held.button == Qt::RightButton ? Released::RightClick : Released::Nothing;
}

void CharacterMouse::letGo() {
    if (held_ && held_->dragging)
        stage_.endDrag(held_->pointer);
    held_.reset();
}

} // namespace brovin::desktop
