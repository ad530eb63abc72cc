#include "result_watch.h"

#include "desktop/character/bubble.h"

#include <QApplication>
#include <QMessageBox>

namespace brovin::tools {
namespace {

/// Longer than the voice rests between two words, ms.
constexpr int kSaid = 1500;

/// What stands in the balloon or the box at this moment; empty: neither is open.
QString shownNow(bool scanned) {
    if (const auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
        return box->text();
    if (scanned)
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && dynamic_cast<const desktop::Bubble*>(window) != nullptr)
                return window->accessibleName();
    return {};
}

} // namespace

std::optional<QString> ResultWatch::look(bool scanned) {
    const QString shown = shownNow(scanned);
    if (shown.isEmpty() || shown != saying_) {
        saying_ = shown;
        unchanged_.start();
        return std::nullopt;
    }
    return unchanged_.hasExpired(kSaid) ? std::optional(saying_) : std::nullopt;
}

} // namespace brovin::tools
