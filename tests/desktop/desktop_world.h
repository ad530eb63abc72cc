#pragma once

#include "desktop/desktop_program.h"
#include "desktop/window/options_window.h"
#include "ui/frm_options.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace brovin::tests {

/// The real program with settings, a program's folder and a shared disk of its own, all thrown away
/// afterwards.
struct DesktopWorld {
    QTemporaryDir scratch;
    posix::Places places;
    desktop::AudioMaker audio; ///< empty: this machine's
    std::unique_ptr<desktop::DesktopProgram> program;

    DesktopWorld() {
        const std::string root = scratch.path().toStdString();
        places.settingsFolder = root + "/config/Brovin";
        places.settingsFile = places.settingsFolder + "/Brovin.conf";
        places.autostartFolder = root + "/config/autostart";
        places.runningLock = root + "/running.lock";
        places.installedFolder = BROVIN_ASSETS;
        places.ownFolder = root + "/data";
    }

    void start() {
        program = std::make_unique<desktop::DesktopProgram>(places, settings::ProgramInfo{"Brovin", 1, 2, 3},
                                                            desktop::UpdateSource{}, audio);
        ASSERT_TRUE(program->start());
    }

    [[nodiscard]] ui::FrmOptions& form() const { return program->form(); }

    /// The widget that shows a control, also before the window has been shown.
    [[nodiscard]] QWidget* widget(const char* name) const {
        program->window().furnish();
        return program->window().findChild<QWidget*>(QLatin1String(name));
    }

    [[nodiscard]] QString path(const QString& below) const { return scratch.filePath(below); }

    void makeFile(const QString& below, const QByteArray& content = "x") const {
        QDir().mkpath(QFileInfo(path(below)).path());
        QFile file(path(below));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    [[nodiscard]] bool exists(const QString& below) const { return QFileInfo(path(below)).exists(); }

    [[nodiscard]] QList<QByteArray> logLines() const {
        QFile log(QString::fromStdString(places.ownFolder + "/deletions.log"));
        if (!log.open(QIODevice::ReadOnly))
            return {};
        QList<QByteArray> lines = log.readAll().split('\n');
        for (QByteArray& line : lines)
            line = line.trimmed();
        return lines;
    }
};

} // namespace brovin::tests
