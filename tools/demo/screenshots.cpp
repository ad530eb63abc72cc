// Takes the pictures of the windows that the documents show: every page of the options window and the windows
// that it opens, in a light and in a dark theme; and one of the characters. Usage: brovin_screenshots FOLDER

#include "demo_world.h"
#include "desktop/desktop_program.h"
#include "desktop/window/options_window.h"
#include "group_picture.h"
#include "posix/history_module.h"
#include "posix/system_clock.h"
#include "ui/frm_options.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPalette>
#include <QPixmap>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <iostream>
#include <iterator>
#include <vector>

namespace {

using namespace brovin;

QPalette darkPalette() {
    const QColor window(0x2b, 0x2b, 0x2b);
    const QColor text(0xe8, 0xe8, 0xe8);
    QPalette dark(window);
    dark.setColor(QPalette::Base, QColor(0x1f, 0x1f, 0x1f));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xa8));
    dark.setColor(QPalette::Link, QColor(0x7a, 0xb8, 0xff));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        dark.setColor(role, text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    return dark;
}

/// Half a year of scans, for the windows of the score and the log.
void makeRecords(const posix::Places& places) {
    constexpr int kWeeks = 26;
    constexpr int kRhythm[] = {41, 12, 0, 33, 67, 25, 18};
    const char* const names[] = {".ds_store", "._*", "thumbs.db", "desktop.ini", "__macosx", "icon?"};
    posix::HistoryModule history(places.ownFolder + posix::kScoreFile);
    const auto today = posix::SystemClock().now();
    for (int week = kWeeks; week > 0; --week) {
        std::vector<platform::DeletedShare> shares;
        std::int64_t items = kRhythm[week % std::ssize(kRhythm)];
        for (const char* name : names) {
            if (items > 0)
                shares.push_back(
                    {name, week % 3 == 0 ? "/srv/share/holiday" : "/srv/share", items, 6 * items});
            items = items * 2 / 3;
        }
        static_cast<void>(history.append(today - std::chrono::days(7 * week), shares));
    }
    QFile log(QString::fromStdString(places.ownFolder + "/deletions.log"));
    if (!log.open(QIODevice::WriteOnly))
        return;
    for (int scan = 1; scan < kWeeks; ++scan) {
        log.write(QByteArray(48, '-') + "\r\nScan begun at 04:00:01 on Saturday, 21 November 2026\r\n");
        for (const char* name : names)
            log.write("Deleted file /srv/share/holiday/" + QByteArray(name) + "\r\n");
        log.write("Items deleted: 6 (36 KB)\r\nScan finished at 04:00:02 on Saturday, 21 November 2026\r\n");
    }
}

/// One picture after another, each when the window has settled.
class Series {
public:
    Series(desktop::DesktopProgram& program, const QString& folder) : program_(program), folder_(folder) {
        ui::FrmOptions& form = program.form();
        for (const QString& theme : {QStringLiteral("light"), QStringLiteral("dark")}) {
            for (std::size_t page = 0; page < ui::FrmOptions::kTabs; ++page)
                shots_.push_back({theme, QStringLiteral("page%1").arg(page), nullptr,
                                  [&form, page] { form.imgTabs[page].click(); }, nullptr});
            shots_.push_back({theme, QStringLiteral("starter"), "frmStarter",
                              [&form] { form.cmdStarter.click(); },
                              [&form] { form.frmStarter.window.close(); }});
            shots_.push_back(
                {theme, QStringLiteral("score"), "scoreWindow", [&form] { form.cmdScore.click(); }, nullptr});
            shots_.push_back(
                {theme, QStringLiteral("log"), "logWindow", [&form] { form.cmdSearchLog.click(); }, nullptr});
            shots_.push_back({theme, QStringLiteral("preview"), "frmPreview", [this] { openPreview(); },
                              [this] { closePreview(); }});
        }
        QObject::connect(&timer_, &QTimer::timeout, [this] { advance(); });
        constexpr std::size_t kCharacterPage = 3; // its pictures come one by one
        form.imgTabs[kCharacterPage].click();
        timer_.start(3000);
    }

private:
    struct Shot {
        QString theme;
        QString name;
        const char* window; ///< beside the options window; null: that one
        std::function<void()> pose;
        std::function<void()> leave;
    };

    void advance() {
        timer_.setInterval(250);
        if (posed_)
            take(shots_[next_++]);
        posed_ = next_ < shots_.size();
        if (!posed_) {
            QApplication::exit(0);
            return;
        }
        if (shots_[next_].theme == QLatin1String("dark"))
            QApplication::setPalette(darkPalette());
        shots_[next_].pose();
    }

    /// Grouped by folder, and with a line chosen, so that it tells what is lost.
    void openPreview() {
        program_.form().cmdPreview.click();
        auto* group = program_.window().findChild<QComboBox*>(QStringLiteral("cmbGroup"));
        group->setCurrentIndex(1);
        emit group->activated(1);
        program_.window().findChild<QTableView*>(QStringLiteral("tblFound"))->selectRow(2);
    }
    /// By its close box.
    void closePreview() { program_.window().findChild<QWidget*>(QStringLiteral("frmPreview"))->close(); }

    void take(const Shot& shot) {
        QWidget* shown = &program_.window();
        if (shot.window != nullptr)
            shown = shown->findChild<QWidget*>(QLatin1String(shot.window));
        const QString file = QStringLiteral("%1/%2-%3.png").arg(folder_, shot.name, shot.theme);
        if (shown == nullptr || !shown->grab().save(file))
            std::cerr << "could not save " << file.toStdString() << "\n";
        if (shot.leave)
            shot.leave();
    }

    desktop::DesktopProgram& program_;
    QString folder_;
    std::vector<Shot> shots_;
    std::size_t next_ = 0;
    bool posed_ = false;
    QTimer timer_;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brovin"));
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));
    const QString folder = QDir::current().filePath(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    QDir().mkpath(folder);
    const QTemporaryDir world(QDir::temp().filePath(QStringLiteral("brovin-demo-XXXXXX")));
    const posix::Places places = tools::makeDemoWorld(world.path());
    makeRecords(places);
    if (!tools::drawGroup(QFile::decodeName(places.installedFolder.c_str()) + "/msagent/chars",
                          folder + "/characters.png"))
        std::cerr << "could not draw the characters\n";
    desktop::DesktopProgram program(places, {"Brovin", 1, 0, 0});
    if (!program.start())
        return 1;
    program.form().mPopRestore.click();
    const Series series(program, folder);
    return QApplication::exec();
}
