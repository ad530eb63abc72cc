// The options window as a whole: nothing is cut off whatever the size of the letters and the length of the
// captions, and everything on it can be reached by the keyboard.

#include "desktop/desktop_world.h"
#include "desktop/room_for_text.h"
#include "desktop/widgets/page_scroller.h"
#include "desktop/widgets/tab_button.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPalette>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

namespace brovin::tests {
namespace {

/// The language file with captions 1.4 times as long, as translations of short English ones are.
QByteArray longWinded(const QByteArray& language) {
    QList<QByteArray> lines = language.split('\n');
    for (QByteArray& line : lines) {
        const auto value = line.indexOf('=') + 1;
        if (!line.startsWith("lbl") && !line.startsWith("env"))
            continue;
        QList<QByteArray> captions =
            line.startsWith("env") ? line.mid(value).split(',') : QList{line.mid(value)};
        for (QByteArray& caption : captions) // like many words in such a translation: longer at the end
            caption += QByteArray("ungenschaftenheit ist das zuweilen bei Beschriftungen")
                           .left(static_cast<qsizetype>(static_cast<double>(caption.size()) * 0.4 + 1));
        line = line.left(value) + captions.join(',');
    }
    return lines.join('\n');
}

/// The program with its window shown, in letters of a size and in a language.
struct WindowWorld : DesktopWorld {
    explicit WindowWorld(int percent = 100, bool longCaptions = false) {
        places.installedFolder = path("installed").toStdString();
        QFile shipped(QStringLiteral(BROVIN_ASSETS "/default.blp"));
        EXPECT_TRUE(shipped.open(QIODevice::ReadOnly));
        const QByteArray english = shipped.readAll();
        makeFile("installed/default.blp", longCaptions ? longWinded(english) : english);
        makeFile("config/Brovin/Brovin.conf", "[Settings]\nWeekly=1\n"); // the picker at its widest
        usual_ = QApplication::font();
        QFont letters = usual_;
        letters.setPointSizeF(letters.pointSizeF() * percent / 100);
        QApplication::setFont(letters);
        start();
        form().mPopRestore.click();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&program->window()));
    }
    ~WindowWorld() {
        program.reset();
        QApplication::setFont(usual_);
    }
    WindowWorld(const WindowWorld&) = delete;
    WindowWorld& operator=(const WindowWorld&) = delete;

    /// Turns to a page and gives its widgets.
    QList<QWidget*> turnTo(std::size_t page) const {
        form().imgTabs[page].click();
        QTest::qWait(20);
        return shownOn(widget(form().picTab[page].name().c_str()));
    }

private:
    QFont usual_;
};

QPalette darkPalette() {
    QPalette dark(QColor(0x2b, 0x2b, 0x2b));
    dark.setColor(QPalette::Base, QColor(0x1f, 0x1f, 0x1f));
    return dark;
}

TEST(Window, cutsNothingOffOnASmallScreen) {
    const QPalette light = QApplication::palette();
    for (const bool longCaptions : {false, true})
        for (const int percent : {100, 150, 200}) {
            const WindowWorld world(percent, longCaptions);
            const QRect screen = QApplication::primaryScreen()->availableGeometry();
            const std::string setting = std::to_string(percent) + (longCaptions ? " % long" : " %");
            const desktop::OptionsWindow& window = world.program->window();
            EXPECT_TRUE(screen.contains(window.frameGeometry()))
                << setting << ": " << window.frameGeometry().right() << ", "
                << window.frameGeometry().bottom();
            for (const QWidget* around : window.findChildren<QWidget*>())
                if (qobject_cast<const desktop::TabButton*>(around) != nullptr ||
                    around->objectName() == "cmdExit" || around->objectName() == "cmdHelp")
                    expectRoomFor(around, setting + " ");
            for (std::size_t page = 0; page < ui::FrmOptions::kTabs; ++page) {
                const std::string where = setting + " page " + std::to_string(page) + " ";
                QApplication::setPalette(longCaptions ? darkPalette() : light);
                const QList<QWidget*> widgets = world.turnTo(page);
                for (const QWidget* widget : widgets)
                    expectRoomFor(widget, where);
                expectNoOverlap(widgets, where);
                const auto* scroller = qobject_cast<const QScrollArea*>(
                    world.widget(world.form().picTab[page].name().c_str())->parentWidget()->parentWidget());
                ASSERT_NE(nullptr, scroller);
                EXPECT_FALSE(percent < 200 && scroller->horizontalScrollBar()->isVisible()) << where;
                EXPECT_FALSE(percent == 100 && scroller->verticalScrollBar()->isVisible()) << where;
                const QString folder = qEnvironmentVariable("SCREENSHOT_DIR");
                if (!folder.isEmpty())
                    world.program->window().grab().save(QString("%1/%2%3-%4.png")
                                                            .arg(folder)
                                                            .arg(percent)
                                                            .arg(longCaptions ? "long" : "")
                                                            .arg(page));
            }
            QApplication::setPalette(light);
        }
}

/// Whether `next` comes after `before` for one who reads line by line.
bool readsOn(const QWidget* before, const QWidget* next) {
    const QRect first(before->mapTo(before->window(), QPoint()), before->size());
    const QRect second(next->mapTo(next->window(), QPoint()), next->size());
    const bool oneLine = first.top() < second.bottom() && second.top() < first.bottom();
    return oneLine ? second.left() >= first.right() : second.top() >= first.bottom();
}

/// Presses Tab until the focus moves on: within a picker it goes from hours to minutes first.
QWidget* pressTab() {
    QWidget* const before = QApplication::focusWidget();
    for (int i = 0; i < 5 && QApplication::focusWidget() == before; ++i)
        QTest::keyClick(before, Qt::Key_Tab);
    return QApplication::focusWidget();
}

TEST(Window, showsWhatIsChosenAfterAClickBesideTheEntries) {
    const WindowWorld world;
    world.turnTo(6);
    auto* languages = qobject_cast<QListWidget*>(world.widget("lstLang"));
    ASSERT_EQ(1U, languages->selectedItems().size());
    QTest::mouseClick(languages->viewport(), Qt::LeftButton, {}, languages->viewport()->rect().center());
    EXPECT_EQ(1U, languages->selectedItems().size());
    EXPECT_EQ(0, world.form().lstLang.selected());
}

TEST(Keyboard, tabReachesEverythingInReadingOrder) {
    const WindowWorld world;
    QWidget& window = world.program->window();
    for (ui::Control* control : world.form().controls()) // grey ones have their place in the order too
        if (dynamic_cast<ui::Timer*>(control) == nullptr && dynamic_cast<ui::Window*>(control) == nullptr)
            control->setEnabled(true);
    world.form().lstAnims.add({"Wave", 0}); // with nothing to do, its button goes grey
    world.form().lstAnims.select(0);
    for (std::size_t page = 0; page < ui::FrmOptions::kTabs; ++page) {
        QList<QWidget*> waiting;
        for (QWidget* widget : world.turnTo(page))
            if ((widget->focusPolicy() & Qt::TabFocus) != 0)
                waiting += widget;
        EXPECT_FALSE(waiting.isEmpty());
        QWidget* before = world.widget(("imgTabs" + std::to_string(ui::FrmOptions::kTabs - 1)).c_str());
        before->setFocus();
        for (qsizetype left = waiting.size(); left > 0; --left) {
            QWidget* next = pressTab();
            EXPECT_TRUE(waiting.removeOne(next))
                << "page " << page << ": " << next->objectName().toStdString();
            EXPECT_TRUE(before->objectName().startsWith("imgTabs") || readsOn(before, next))
                << "page " << page << ": " << next->objectName().toStdString() << " after "
                << before->objectName().toStdString();
            before = next;
        }
        for (const char* last : {"cmdHelp", "cmdExit", "imgTabs0"}) {
            EXPECT_EQ(last, pressTab()->objectName().toStdString()) << "page " << page;
        }
        EXPECT_EQ(&window, QApplication::activeWindow());
    }
}

TEST(Keyboard, mnemonicsDifferWithinAPage) {
    const WindowWorld world;
    const QRegularExpression mnemonic("&(\\w)");
    for (std::size_t page = 0; page < ui::FrmOptions::kTabs; ++page) {
        std::map<QString, std::string> taken;
        QList<QWidget*> widgets = world.turnTo(page);
        widgets += {world.widget("cmdHelp"), world.widget("cmdExit")};
        for (const QWidget* widget : widgets) {
            const ui::Control* control = world.form().find(widget->objectName().toStdString());
            const QString caption =
                control == nullptr ? QString() : QString::fromStdString(control->caption());
            const QString letter = mnemonic.match(caption).captured(1).toLower();
            const bool added = letter.isEmpty() || taken.emplace(letter, control->name()).second;
            EXPECT_TRUE(added) << "page " << page << ": " << letter.toStdString() << " of " << control->name()
                               << " and " << taken[letter];
        }
        EXPECT_GT(taken.size(), 2U - (page == 7 ? 1U : 0U)) << "page " << page;
    }
}

} // namespace
} // namespace brovin::tests
