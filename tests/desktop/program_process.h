#pragma once

#include "desktop/real_input.h"

#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <iostream>

namespace brovin::tests {

/// The environment of a program that has its settings and its own files there.
inline QProcessEnvironment environmentWith(const QString& config, const QString& data) {
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert("XDG_CONFIG_HOME", config);
    variables.insert("XDG_DATA_HOME", data);
    return variables;
}

/// The program as a process of its own, which can be killed; its settings are below `root`.
class Process {
public:
    explicit Process(const QString& root, const QStringList& environment = {}) {
        QProcessEnvironment variables = environmentWith(root + "/config", root + "/data");
        for (const QString& variable : environment)
            variables.insert(variable.section('=', 0, 0), variable.section('=', 1));
        process_.setProcessEnvironment(variables);
        process_.setProcessChannelMode(QProcess::ForwardedOutputChannel);
        process_.start(QStringLiteral(BROVIN_PROGRAM), {});
    }
    ~Process() {
        kill();
        std::cerr << process_.readAllStandardError().toStdString();
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void kill() {
        process_.kill(); // SIGKILL
        process_.waitForFinished();
    }
    bool ends(int milliseconds) {
        return process_.state() == QProcess::NotRunning || process_.waitForFinished(milliseconds);
    }
    /// What it has complained of since it was asked last.
    [[nodiscard]] QByteArray complaints() { return process_.readAllStandardError(); }
    [[nodiscard]] qint64 pid() const { return process_.processId(); }

private:
    QProcess process_;
};

/// Whether a window of this title comes onto the screen within ten seconds.
inline bool waitForWindow(const QString& title) {
    QProcess search;
    search.start("timeout", {"10", "xdotool", "search", "--sync", "--onlyvisible", "--name", title});
    return search.waitForFinished(15'000) && search.exitCode() == 0;
}

/// Runs xdotool to its end; what it printed.
inline QByteArray askDesktop(const QStringList& arguments) {
    QProcess asking;
    asking.start("xdotool", arguments);
    asking.waitForFinished(10'000);
    return asking.readAllStandardOutput().trimmed();
}

/// The title of the options window, as a pattern.
inline const QString kWindow = "^Brovin v";

inline bool windowOnScreen() {
    return !askDesktop({"search", "--onlyvisible", "--name", kWindow}).isEmpty();
}

/// Whether a program gets on so far that another one finds it running. Its language it stores before.
inline bool startedIn(const QString& root) {
    return waitUntil([&root] {
        QFile settings(root + "/config/Brovin/Brovin.conf");
        return settings.open(QIODevice::ReadOnly) && settings.readAll().contains("\nTotalDate=");
    });
}

/// Brings up the window of a program that has no icon: by starting it again.
inline void bringUp(const QString& root, const QStringList& environment = {}) {
    EXPECT_TRUE(startedIn(root));
    Process second(root, environment);
    EXPECT_TRUE(second.ends(10'000)) << "without a word";
    EXPECT_TRUE(waitForWindow(kWindow));
}

} // namespace brovin::tests
