// Another language under the running program: every text on the window, the character's voice, its menu and
// what it says.

#include "desktop/companion_world.h"
#include "desktop/machine/toolkit_language.h"
#include "desktop/room_for_text.h"

#include <QMessageBox>

namespace brovin::tests {
namespace {

struct Language {
    QString name; ///< in its own letters, as it begins in the list
    const char* file;
    const char* voice;         ///< what the synthesizer calls its voice, at the beginning
    const char* yes = nullptr; ///< on the button of a question, where one is asked
};
const Language kLanguages[] = {
    {"Deutsch", "german", "gmw/de", "&Ja"},   {"Français", "french", "roa/fr"},
    {"Español", "spanish", "roa/es"},         {"Русский", "russian", "zle/ru"},
    {"English", "default", "gmw/en", "&Yes"},
};

/// The text that a widget shows as its caption; what tells a state is called so by screen readers.
QString captionOn(const QWidget* widget) {
    if (widget->objectName().startsWith("sb"))
        return widget->accessibleName();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->text();
    const auto* group = qobject_cast<const QGroupBox*>(widget);
    return group == nullptr ? QString() : group->title();
}

/// The caption that a language file has for a widget.
QString captionIn(const Phrases& phrases, const QString& widget) {
    if (widget == "lblSay" || widget == "lblDo")
        return phrases.value(widget == "lblSay" ? "dlg50" : "dlg51").replace("%1", "Peedy");
    return phrases.value("lbl" + widget);
}

/// Every page has its captions from the file, and room for them.
void lookAtAllPages(const CompanionWorld& world, const Phrases& phrases, const Language& language) {
    const QStringList tabs = phrases.value("envButtons").split(',');
    for (std::size_t page = 0; page < ui::FrmOptions::kTabs; ++page) {
        const std::string where = language.file + (" page " + std::to_string(page)) + " ";
        world.form().imgTabs[page].click();
        letPass(50);
        EXPECT_EQ(tabs.value(static_cast<int>(page)).toLower(),
                  captionOn(world.widget(world.form().imgTabs[page].name().c_str())).toLower());
        const QList<QWidget*> shown = shownOn(world.widget(world.form().picTab[page].name().c_str()));
        for (const QWidget* widget : shown) {
            expectRoomFor(widget, where);
            const QString caption = captionIn(phrases, widget->objectName());
            EXPECT_TRUE(captionOn(widget).isEmpty() || captionOn(widget).contains(caption))
                << where << captionOn(widget).toStdString() << " but not " << caption.toStdString();
        }
        expectNoOverlap(shown, where);
        if (page == 3 || page == 4)
            Journey::takePicture(QString("%1-%2").arg(language.file).arg(page));
    }
}

/// Asks to leave, reads the button, and stays.
std::string yesOfTheExitQuestion(const CompanionWorld& world) {
    std::string yes;
    QTimer looking;
    looking.callOnTimeout([&yes] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible())
            return;
        yes = box->button(QMessageBox::Yes)->text().toStdString();
        box->button(QMessageBox::No)->click();
    });
    looking.start(50);
    world.form().cmdExit.click(); // comes back when it has its answer
    return yes;
}

TEST(LanguageJourney, changesEveryTextAndTheVoiceAtOnce) {
    CompanionWorld world;
    world.open();
    world.turnTo(6);
    for (const Language& language : kLanguages) {
        const Phrases phrases(CompanionWorld::kShipped + '/' + language.file + ".blp");
        world.form().imgTabs[6].click();
        world.choose("lstLang", language.name);
        EXPECT_TRUE(waitUntil([&] {
            const auto& texts = world.heard.texts;
            return !texts.empty() && phrases.have({"spkHello"}, texts.back());
        })) << language.file
            << ": " << (world.heard.texts.empty() ? "" : world.heard.texts.back());
        EXPECT_EQ(language.voice, world.heard.voices.back().substr(0, std::string(language.voice).size()));
        EXPECT_TRUE(language.yes == nullptr || yesOfTheExitQuestion(world) == language.yes) << language.file;
        lookAtAllPages(world, phrases, language);
    }
}

TEST(ToolkitLanguage, staysEnglishWithoutATranslation) {
    const auto yes = [] { return QCoreApplication::translate("QPlatformTheme", "&Yes").toStdString(); };
    const QTemporaryDir empty;
    desktop::ToolkitLanguage missing(empty.path());
    missing.speak(1031);
    EXPECT_EQ("&Yes", yes());
    {
        desktop::ToolkitLanguage installed;
        const struct {
            long id;
            const char* yes;
        } kCases[] = {{1031, "&Ja"}, {3079, "&Ja"},  {1046, "&Sim"},
                      {0, "&Yes"},   {1036, "&Oui"}, {99999, "&Yes"}};
        for (const auto& [id, wanted] : kCases) {
            installed.speak(id);
            EXPECT_EQ(wanted, yes()) << id;
        }
        installed.speak(1031);
    }
    EXPECT_EQ("&Yes", yes()) << "it ends with its program";
}

} // namespace
} // namespace brovin::tests
