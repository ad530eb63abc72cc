#pragma once

#include <QApplication>
#include <QThread>

#include <algorithm>
#include <ctime>
#include <utility>

namespace brovin::tests {

/// Measures how long the event loop is kept from its next event: in processor time of its thread, which other
/// programs do not add to.
class MeteredApplication final : public QApplication {
public:
    using QApplication::QApplication;

    [[nodiscard]] static MeteredApplication& self() { return *static_cast<MeteredApplication*>(qApp); }

    /// Milliseconds of the longest time since the last call.
    double takeLongest() { return std::exchange(longest_, 0); }

    bool notify(QObject* receiver, QEvent* event) override {
        if (QThread::currentThread() != thread())
            return QApplication::notify(receiver, event);
        const int level = thread()->loopLevel();
        if (level <= level_) // sent by a handler, which goes on with it
            return QApplication::notify(receiver, event);
        const int outer = std::exchange(level_, level);
        lap(outer >= 0);
        const bool done = QApplication::notify(receiver, event);
        lap(true);
        level_ = outer;
        return done;
    }

private:
    void lap(bool counts) {
        timespec now{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        const double at = static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
        if (counts)
            longest_ = std::max(longest_, at - last_);
        last_ = at;
    }

    int level_ = -1;
    double last_ = 0;
    double longest_ = 0;
};

} // namespace brovin::tests
