#include "desktop/machine/qt_shell.h"

#include "desktop/widgets/text.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>

namespace brovin::desktop {
namespace {

/// Where an internet shortcut leads: the URL in its section "InternetShortcut".
QUrl shortcutTarget(const QString& path) {
    const QSettings shortcut(path, QSettings::IniFormat);
    const QUrl target(shortcut.value(QStringLiteral("InternetShortcut/URL")).toString());
    const bool web = target.scheme() == QLatin1String("https") || target.scheme() == QLatin1String("http");
    return web ? target : QUrl();
}

/// Whether the desktop has a program for compiled help files.
bool canShowCompiledHelp() {
    QProcess asking;
    asking.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"),
                                              QStringLiteral("application/vnd.ms-htmlhelp")});
    constexpr int kPatience = 3000;
    return asking.waitForFinished(kPatience) && !asking.readAllStandardOutput().trimmed().isEmpty();
}

/// Gives the target to the desktop's own opener. False: it says that there is nothing to open it with, which
/// the toolkit's way would not tell.
bool openByDesktop(const QUrl& target) {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty())
        return QDesktopServices::openUrl(target);
    auto* process =
        new QProcess; // on some desktops it lives as long as what it has opened, and may outlive us
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(opener, {target.toString(QUrl::FullyEncoded)});
    constexpr int kPatience = 2000; // milliseconds: whoever fails does so at once
    return !process->waitForFinished(kPatience) || process->exitCode() == 0;
}

} // namespace

bool QtShell::openDocument(const std::string& path) {
    QString file = QFile::decodeName(QByteArray::fromStdString(path));
    if (file.endsWith(QLatin1String(".chm")) && !(QFile::exists(file) && canShowCompiledHelp()))
        file = manual();
    if (!QFile::exists(file))
        return false;
    const bool shortcut = file.endsWith(QLatin1String(".url"), Qt::CaseInsensitive);
    const QUrl target = shortcut ? shortcutTarget(file) : QUrl::fromLocalFile(file);
    return target.isValid() && openByDesktop(target);
}

QString QtShell::manual() const {
    const QString page = manualPage ? QString::fromStdString(manualPage()) : QString();
    const bool there = !page.contains(QLatin1Char('/')) && page.endsWith(QLatin1String(".html")) &&
                       QFile::exists(manual_ + QLatin1Char('/') + page);
    return manual_ + QLatin1Char('/') + (there ? page : QStringLiteral("index.html"));
}

void QtShell::setForegroundWindow() {
    if (window_ == nullptr || !window_->isVisible())
        return;
    window_->raise();
    window_->activateWindow();
}

void QtShell::endProgram() {
    if (ending)
        ending();
    QMetaObject::invokeMethod(qApp, "quit", Qt::QueuedConnection); // the running handler returns first
}

bool QtClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(qtLines(text));
    return true;
}

void QtEventPump::pump() {
    constexpr qint64 kEvery = 10; // milliseconds: smooth for an eye, nothing for a processor
    if (!sinceLast_.hasExpired(kEvery))
        return;
    QCoreApplication::processEvents();
    sinceLast_.restart();
}

} // namespace brovin::desktop
