#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPoint>
#include <QProcess>
#include <QStringList>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>

namespace brovin::tests {

/// Lets events through for a while.
inline void letPass(int milliseconds) {
    QElapsedTimer time;
    time.start();
    do {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    } while (!time.hasExpired(milliseconds));
}

/// Lets events through until the condition holds. False: it did not within ten seconds.
inline bool waitUntil(const std::function<bool()>& condition) {
    QElapsedTimer waiting;
    waiting.start();
    while (!condition() && !waiting.hasExpired(10'000))
        letPass(0);
    return condition();
}

/// Input through the X server; comes back when it has been made, while events go on.
inline void input(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    EXPECT_TRUE(waitUntil([&process] { return process.state() == QProcess::NotRunning; }));
    letPass(100);
}

inline QStringList at(QPoint place) {
    return {"mousemove", QString::number(place.x()), QString::number(place.y()), "sleep", "0.1"};
}

} // namespace brovin::tests
