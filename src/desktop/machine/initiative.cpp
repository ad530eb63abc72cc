#include "desktop/machine/initiative.h"

#include <QApplication>
#include <QEvent>

namespace brovin::desktop {

Initiative::Initiative() {
    qApp->installEventFilter(this);
}

bool Initiative::userAsked() const {
    if (byTheClock_ > 0)
        return false;
    constexpr qint64 kWhile = 1000; // milliseconds: nobody types elsewhere sooner after a click on the icon
    return QApplication::activeWindow() != nullptr || (sinceAct_.isValid() && !sinceAct_.hasExpired(kWhile));
}

bool Initiative::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
        userActs();
        break;
    default:
        break;
    }
    return false;
}

} // namespace brovin::desktop
