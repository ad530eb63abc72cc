#pragma once

#include "platform/clipboard.h"
#include "platform/event_pump.h"
#include "platform/shell.h"

#include <QElapsedTimer>
#include <QString>

#include <functional>
#include <string>

class QWidget;

namespace brovin::desktop {

class QtShell final : public platform::Shell {
public:
    void setWindow(QWidget* window) { window_ = window; }
    /// Where the pages of the manual are, for desktops that cannot show them in one compiled file.
    void setManual(const QString& folder) { manual_ = folder; }
    /// The first of them in the language of the user. One that is not among them gives way to "index.html".
    std::function<std::string()> manualPage;
    /// Called when the program ends, before the event loop does.
    std::function<void()> ending;

    bool openDocument(const std::string& path) override;
    void setForegroundWindow() override;
    void endProgram() override;

private:
    QWidget* window_ = nullptr;
    [[nodiscard]] QString manual() const;

    QString manual_;
};

class QtClipboard final : public platform::Clipboard {
public:
    [[nodiscard]] bool setText(const std::string& text) override;
};

/// Handles pending events when some milliseconds have passed since the last time.
class QtEventPump final : public platform::EventPump {
public:
    QtEventPump() { sinceLast_.start(); }
    void pump() override;

private:
    QElapsedTimer sinceLast_;
};

} // namespace brovin::desktop
