#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmap>
#include <QPoint>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace brovin::tests {

/// Drives the real program by real input events, as a list of steps: each waits until its condition holds and
/// then acts. The steps run on a timer, and so also inside the event loop of an open message box. Mouse and
/// keys come from outside, through the X server.
class Journey {
public:
    using Condition = std::function<bool()>;
    using Action = std::function<void()>;

    Journey() {
        QObject::connect(&timer_, &QTimer::timeout, [this] { advance(); });
    }

    /// Adds a step. `what` is told when the condition does not come true in time.
    void then(std::string what, Condition condition, Action action) {
        steps_.push_back({std::move(what), std::move(condition), std::move(action)});
    }

    /// Runs all steps. A step that waits longer than ten seconds fails the test and ends the journey.
    void run() {
        timer_.start(60);
        waiting_.start();
        QApplication::exec();
        timer_.stop();
    }

    /// A picture of the whole screen, where SCREENSHOT_DIR says that somebody wants to look at it.
    static void takePicture(const QString& name) {
        const QString folder = qEnvironmentVariable("SCREENSHOT_DIR");
        if (!folder.isEmpty())
            QApplication::primaryScreen()->grabWindow(0).save(folder + QLatin1Char('/') + name + ".png");
    }

private:
    struct Step {
        std::string what;
        Condition condition;
        Action action;
    };

    void advance() {
        if (inStep_)
            return;
        if (next_ >= steps_.size()) {
            QApplication::exit(0);
            return;
        }
        if (!steps_[next_].condition()) {
            constexpr qint64 kPatience = 10'000;
            if (!waiting_.hasExpired(kPatience))
                return;
            ADD_FAILURE() << "waited in vain for: " << steps_[next_].what;
            takePicture(QStringLiteral("failure"));
            giveUp();
            return;
        }
        const Action action = steps_[next_++].action;
        waiting_.restart();
        inStep_ = true;
        if (action)
            action();
        inStep_ = false;
    }

    /// Leaves every loop, those of open boxes too.
    void giveUp() {
        next_ = steps_.size() + 1;
        while (QWidget* box = QApplication::activeModalWidget())
            box->hide();
        QApplication::exit(1);
    }

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    bool inStep_ = false;
    QElapsedTimer waiting_;
    QTimer timer_;
};

/// The dialog or box that waits for an answer, if it is one of this kind.
template <class Dialog>
Dialog* openDialog() {
    return qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

/// Whether input reaches it. Null: no.
inline bool shownAndReady(const QWidget* widget) {
    return widget != nullptr && widget->isVisible() && widget->window()->isActiveWindow();
}

/// Sends input through the X server and comes back at once.
inline void sendInput(const QStringList& arguments) {
    QProcess::startDetached(QStringLiteral("xdotool"), arguments);
}

inline void clickAt(QPoint place, int button = 1) {
    sendInput({"mousemove", QString::number(place.x()), QString::number(place.y()), "sleep", "0.1", "click",
               QString::number(button)});
}

/// A real mouse click in the middle of a widget.
inline void click(const QWidget* widget) {
    clickAt(widget->mapToGlobal(widget->rect().center()));
}

inline void pressKeys(const QStringList& keys) {
    QStringList arguments{"key", "--delay", "40"};
    sendInput(arguments + keys);
}

inline void typeText(const QString& text, bool thenEnter) {
    QStringList arguments{"type", "--delay", "15", "--args", "1", text};
    if (thenEnter)
        arguments += QStringList{"sleep", "0.3", "key", "Return"};
    sendInput(arguments);
}

} // namespace brovin::tests
