// Controls of the window under real keys: what the toolkit's own widgets would get wrong.

#include "desktop/desktop_world.h"
#include "desktop/machine/qt_dialogs.h"
#include "desktop/machine/timer_binding.h"
#include "desktop/widgets/bindings.h"
#include "desktop/widgets/table_view.h"
#include "desktop/widgets/whole_frames.h"

#include <QDateTimeEdit>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QValidator>

#include <ctime>

namespace brovin::tests {
namespace {

/// The program with a page of its window shown.
struct ControlsWorld : DesktopWorld {
    explicit ControlsWorld(std::size_t page, const QByteArray& settings = {}) {
        makeFile("config/Brovin/Brovin.conf", "[Settings]\n" + settings);
        start();
        form().mPopRestore.click();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&program->window()));
        form().imgTabs[page].click();
    }
    template <class Widget>
    [[nodiscard]] Widget* find(const char* name) const {
        return qobject_cast<Widget*>(widget(name));
    }
    [[nodiscard]] QByteArray stored(const QByteArray& key) const {
        QFile file(QString::fromStdString(places.settingsFile));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QByteArray& line : file.readAll().split('\n'))
            if (line.startsWith(key + '='))
                return line.mid(key.size() + 1);
        return {};
    }
};

TEST(WholeFrames, haveFourSidesBetweenWholeScales) {
    desktop::WholeFrames style;
    for (const double scale : {1.25, 1.5})
        for (int at = 0; at < 4; ++at) {
            QWidget page;
            page.resize(60, 60);
            QFrame frame(&page);
            frame.setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
            frame.setGeometry(8 + at, 8 + at, 41, 41);
            frame.setStyle(&style);
            QImage picture(QSize(60, 60) * scale, QImage::Format_RGB32);
            picture.setDevicePixelRatio(scale);
            page.render(&picture);
            const QRgb below = picture.pixel(0, 0);
            const int middle = qRound((at + 28) * scale);
            int across = 0;
            int down = 0;
            for (int i = 0; i < picture.width(); ++i) {
                across += picture.pixel(i, middle) != below ? 1 : 0;
                down += picture.pixel(middle, i) != below ? 1 : 0;
            }
            EXPECT_EQ(2, across) << scale << " at " << at;
            EXPECT_EQ(2, down) << scale << " at " << at;
        }
}

TEST(ReminderPicker, letsTheWeekdayBeChosen) {
    const ControlsWorld world(5, "Backup=1\nBackupDate=2026-11-18T21:30:00\n"); // a Wednesday
    auto* picker = world.find<QDateTimeEdit>("dtpBackup");
    const QString shown = picker->text();
    const int narrow = picker->sizeHint().width();
    QTest::mouseClick(world.widget("optWeekly"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ((shown + " Wed").toStdString(), picker->text().toStdString());
    EXPECT_GT(picker->sizeHint().width(), narrow) << "it widens";
    picker->setFocus();
    picker->setCurrentSectionIndex(3);
    QTest::keyClick(picker, Qt::Key_Up);
    EXPECT_EQ("2026-11-19T21:30:00", world.stored("BackupDate").toStdString());
    picker->setCurrentSectionIndex(0);
    QTest::keyClick(picker, Qt::Key_Up);
    EXPECT_EQ("2026-11-19T22:30:00", world.stored("BackupDate").toStdString());
}

TEST(ReminderPicker, letsTheWeekdayBeChosenInOtherLanguages) {
    const QLocale usual;
    for (const auto& [language, day] : {std::pair{"de_DE", "Do"}, {"ru_RU", "\u0447\u0442"}}) {
        QLocale::setDefault(QLocale(language));
        const ControlsWorld world(5, "Backup=1\nBackupDate=2026-11-18T21:30:00\nWeekly=1\n");
        auto* picker = world.find<QDateTimeEdit>("dtpBackup");
        picker->setFocus();
        picker->setCurrentSectionIndex(picker->sectionCount() - 1);
        EXPECT_EQ(QDateTimeEdit::DaySection, picker->currentSection()) << language;
        QTest::keyClick(picker, Qt::Key_Up);
        EXPECT_TRUE(picker->text().contains(QString::fromUtf8(day))) << picker->text().toStdString();
        EXPECT_EQ("2026-11-19T21:30:00", world.stored("BackupDate").toStdString()) << language;
    }
    QLocale::setDefault(usual);
}

TEST(ReminderPicker, showsTheStoredTimeAfterARestart) {
    for (const char* weekly : {"Weekly=0\n", "Weekly=1\n"}) {
        const ControlsWorld world(5, QByteArray("Backup=1\nBackupDate=2026-11-19T22:30:00\n") + weekly);
        auto* picker = world.find<QDateTimeEdit>("dtpBackup");
        EXPECT_EQ(QDateTime({2026, 11, 19}, {22, 30}, Qt::UTC), picker->dateTime()) << weekly;
        picker->setCurrentSectionIndex(0);
        QTest::keyClick(picker, Qt::Key_Down);
        EXPECT_EQ("2026-11-19T21:30:00", world.stored("BackupDate").toStdString()) << weekly;
    }
}

TEST(Interval, takesWhatIsTyped) {
    const ControlsWorld world(0, "Interval=7\n");
    auto* box = world.find<QLineEdit>("txtInterval");
    const struct {
        const char* keys;
        const char* stored;
    } cases[] = {{"24", "24"}, {"2.5", "2.5"}, {"2,5", "2.5"}, {"1.", "1"}, {"036", "36"}, {"x8", "8"}};
    for (const auto& [keys, stored] : cases) {
        const_cast<QValidator*>(box->validator())->setLocale(QLocale(keys[1] == ',' ? "de_DE" : "en_GB"));
        box->setFocus();
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
        EXPECT_EQ("1", box->text().toStdString());
        QTest::keyClicks(box, keys);
        EXPECT_EQ(stored, world.stored("Interval").toStdString()) << keys;
    }
}

TEST(TextBox, takesWhatIsTypedWhileItsChangeIsAtWork) {
    struct : ui::Form {
        ui::TextBox text{*this, "txtFilter"};
    } form;
    QLineEdit box;
    desktop::bind(&box, form.text);
    QString waiting = "sic";
    form.text.change = [&] {
        const QString next = waiting.left(1);
        waiting.remove(0, 1);
        QTest::keyClicks(&box, next);
    };
    QTest::keyClicks(&box, "mu");
    EXPECT_EQ("msicu", box.text().toStdString());
    EXPECT_EQ(box.text().toStdString(), form.text.text());
}

TEST(Boxes, fitOnTheScreenWhateverThePathIs) {
    desktop::QtDialogs dialogs;
    const std::string deep = "Shall /" + std::string(3000, 'x') + "/y z";
    std::string many = "end?";
    for (int i = 0; i < 200; ++i)
        many.insert(0, "word and word\r\n");
    for (const std::string& text : {deep + " go?", many, std::string(deep).append("\r\n").append(many)}) {
        QTimer::singleShot(800, [&text] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(nullptr, box);
            EXPECT_TRUE(box->screen()->availableGeometry().contains(box->frameGeometry()));
            EXPECT_TRUE(box->text().startsWith(QString::fromStdString(text.substr(0, 4))));
            EXPECT_TRUE(box->text().endsWith(QString::fromStdString(text.substr(text.size() - 4))));
            EXPECT_EQ(QString::fromStdString(text).remove('\r'), box->detailedText()) << "the whole of it";
            const QString folder = qEnvironmentVariable("SCREENSHOT_DIR");
            if (!folder.isEmpty())
                box->grab().save(folder + "/long-box.png");
            QTest::keyClick(box, Qt::Key_Escape);
        });
        EXPECT_EQ(platform::Button::No,
                  dialogs.messageBox(text, platform::box::kYesNo | platform::box::kQuestion, "Title"));
    }
}

TEST(Ticks, comeWhenTheyAreDue) {
    struct : ui::Form {
        ui::Timer timer{*this, "Timer1"};
    } form;
    desktop::Initiative initiative;
    const desktop::TimerBinding binding(form.timer, initiative, [] { return false; });
    form.timer.setInterval(std::chrono::milliseconds(30'500));
    form.timer.setEnabled(true);
    EXPECT_LE(binding.untilNextTick(), form.timer.interval()) << "not rounded to whole seconds";
    EXPECT_GT(binding.untilNextTick(), std::chrono::seconds(30));
}

TEST(TableView, answersAtOnceWithAMillionLines) {
    ui::Form form;
    ui::Table table(form, "tblFound");
    std::vector<std::string> told;
    table.setColumns({{"Name"}, {"Size", true}});
    table.line = [](std::size_t line) {
        return ui::Table::Line{line % 100 == 0, true, line == 1, {"line " + std::to_string(line), "4 KB"}};
    };
    table.titleClick = [&told](std::size_t column) { told.push_back("title " + std::to_string(column)); };
    table.tick = [&told](std::size_t line, bool on) {
        told.push_back("tick " + std::to_string(line) + (on ? " on" : " off"));
    };
    table.activate = [&told](std::size_t line) { told.push_back("open " + std::to_string(line)); };
    desktop::TableView view(table);
    view.resize(600, 400);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    std::clock_t longest = 0; // of the processor: the machine may be busy with something else
    const auto timed = [&longest](const std::function<void()>& act) {
        const std::clock_t begun = std::clock();
        act();
        QCoreApplication::processEvents();
        longest = std::max(longest, std::clock() - begun);
    };
    constexpr std::size_t kLines = 1'000'000;
    for (std::size_t lines = 50'000; lines <= kLines; lines += 50'000)
        timed([&] { table.setLines(lines); });
    timed([&] { table.renew(kLines); });
    view.selectRow(0);
    timed([&] { QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier); });
    EXPECT_EQ(kLines - 1, table.selected());
    timed([&] { table.refresh(); });
    EXPECT_LE(longest * 1000 / CLOCKS_PER_SEC, 50) << "milliseconds";

    view.selectRow(1);
    QTest::keyClick(&view, Qt::Key_Space);
    QTest::keyClick(&view, Qt::Key_Return);
    const QRect title(view.horizontalHeader()->sectionViewportPosition(1), 0, 20, 10);
    QTest::mouseClick(view.horizontalHeader()->viewport(), Qt::LeftButton, {}, title.center());
    EXPECT_EQ((std::vector<std::string>{"tick 1 off", "open 1", "title 1"}), told);
}

} // namespace
} // namespace brovin::tests
