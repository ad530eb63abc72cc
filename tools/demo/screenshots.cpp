// Takes the pictures of the options window that the documents show: every page, in a light and in a dark
// theme. Usage: brovin_screenshots FOLDER

#include "demo_world.h"
#include "desktop/desktop_program.h"
#include "desktop/window/options_window.h"
#include "ui/frm_options.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTimer>

#include <iostream>
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

/// One picture after another, each when the window has settled.
class Series {
public:
    Series(desktop::DesktopProgram& program, const QString& folder) : program_(program), folder_(folder) {
        for (const QString& theme : {QStringLiteral("light"), QStringLiteral("dark")})
            for (std::size_t page = 0; page < ui::FrmOptions::kTabs; ++page)
                shots_.push_back({theme, page});
        QObject::connect(&timer_, &QTimer::timeout, [this] { advance(); });
        timer_.start(250);
    }

private:
    struct Shot {
        QString theme;
        std::size_t page;
    };

    void advance() {
        if (posed_) {
            const QString name = QStringLiteral("%1/page%2-%3.png")
                                     .arg(folder_)
                                     .arg(shots_[next_].page)
                                     .arg(shots_[next_].theme);
            if (!program_.window().grab().save(name))
                std::cerr << "could not save " << name.toStdString() << "\n";
            ++next_;
        }
        posed_ = next_ < shots_.size();
        if (!posed_) {
            QApplication::exit(0);
            return;
        }
        if (shots_[next_].theme == QLatin1String("dark"))
            QApplication::setPalette(darkPalette());
        program_.form().imgTabs[shots_[next_].page].click();
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
    desktop::DesktopProgram program(tools::makeDemoWorld(world.path()), {"Brovin", 1, 0, 0});
    if (!program.start())
        return 1;
    program.form().mPopRestore.click();
    const Series series(program, folder);
    return QApplication::exec();
}
