#pragma once

#include "desktop/desktop_world.h"
#include "desktop/journey.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QMessageBox>

namespace brovin::tests {

/// Presses "add", types the answer into the dialog that comes and confirms it with Enter.
template <class Dialog>
void add(Journey& journey, const DesktopWorld& world, const char* button, const QString& text) {
    journey.then(
        "the button to add", [&world, button] { return shownAndReady(world.widget(button)); },
        [&world, button] { click(world.widget(button)); });
    journey.then(
        "the dialog", [] { return shownAndReady(openDialog<Dialog>()); }, [text] { typeText(text, true); });
    journey.then(
        "the dialog's end", [] { return openDialog<Dialog>() == nullptr; }, nullptr);
}

/// From the window's coming to the click on "Scan NOW".
inline void scanTheShare(Journey& journey, const DesktopWorld& world) {
    journey.then(
        "the window", [&world] { return world.program->window().isActiveWindow(); }, nullptr);
    add<QFileDialog>(journey, world, "cmdAddFolder", world.path("Share"));
    journey.then(
        "the button", [&world] { return shownAndReady(world.widget("cmdNuke")); },
        [&world] { click(world.widget("cmdNuke")); });
}

/// Reads the message with an OK button that comes, and closes it.
inline void closeMessage(Journey& journey, const QString& picture,
                         const std::function<void(const QString&)>& check) {
    journey.then(
        "the message",
        [] {
            const auto* box = openDialog<QMessageBox>(); // a question before it has no OK button
            return shownAndReady(box) && box->button(QMessageBox::Ok) != nullptr;
        },
        [picture, check] {
            check(openDialog<QMessageBox>()->text());
            Journey::takePicture(picture);
            click(openDialog<QMessageBox>()->button(QMessageBox::Ok));
        });
    journey.then(
        "the message's end", [] { return openDialog<QMessageBox>() == nullptr; }, nullptr);
}

} // namespace brovin::tests
