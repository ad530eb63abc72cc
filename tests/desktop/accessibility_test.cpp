// What a screen reader finds in the real program: its tree is walked over the accessibility bus (AT-SPI),
// page by page.

#include "desktop/program_process.h"
#include "desktop/window/options_window.h"
#include "language/language_file.h"
#include "ui/frm_options.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace brovin::tests {

/// How the accessibility bus names an object.
struct Reference {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& out, const Reference& reference) {
    out.beginStructure();
    out << reference.service << reference.path;
    out.endStructure();
    return out;
}
const QDBusArgument& operator>>(const QDBusArgument& in, Reference& reference) {
    in.beginStructure();
    in >> reference.service >> reference.path;
    in.endStructure();
    return in;
}

} // namespace brovin::tests
Q_DECLARE_METATYPE(brovin::tests::Reference)

namespace brovin::tests {
namespace {

const QString kAccessible = "org.a11y.atspi.Accessible";

/// One thing that a screen reader can stop at.
struct Node {
    Reference reference;
    std::string role;
    std::string name;
    std::string description;
};

class AccessibilityBus {
public:
    AccessibilityBus() {
        qDBusRegisterMetaType<Reference>();
        qDBusRegisterMetaType<QList<Reference>>();
        QDBusInterface launcher("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus");
        const QDBusReply<QString> address = launcher.call("GetAddress");
        if (address.isValid())
            bus_ = QDBusConnection::connectToBus(address.value(), "accessibility");
    }
    [[nodiscard]] bool connected() const { return bus_.isConnected(); }

    /// The program's window of this role, once it is on the screen.
    [[nodiscard]] std::optional<Reference> waitForWindow(const std::string& wanted = "frame") const {
        const Reference desktop{"org.a11y.atspi.Registry",
                                QDBusObjectPath("/org/a11y/atspi/accessible/root")};
        for (int i = 0; i < 100; ++i) {
            for (const Reference& application : children(desktop))
                if (property(application, "Name") == "Brovin")
                    for (const Reference& window : children(application))
                        if (showing(window) && role(window) == wanted) // the companion has windows too
                            return window;
            QThread::msleep(100);
        }
        return std::nullopt;
    }

    /// Everything below that is on the screen, in the order in which it is read.
    void collect(const Reference& from, std::vector<Node>& found) const {
        if (!showing(from))
            return;
        found.push_back({from, role(from), property(from, "Name"), property(from, "Description")});
        for (const Reference& child : children(from))
            collect(child, found);
    }

    /// From now on `listener` hears by `slot` of each state that changes.
    void listen(QObject* listener, const char* slot) {
        auto wish = QDBusMessage::createMethodCall("org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                                   "org.a11y.atspi.Registry", "RegisterEvent");
        bus_.call(wish << "object:state-changed:showing");
        bus_.connect({}, {}, "org.a11y.atspi.Event.Object", "StateChanged", listener, slot);
    }
    /// What it says where it is a notification, else nothing.
    [[nodiscard]] std::string notification(const Reference& what) const {
        return role(what) == "notification" ? property(what, "Name") : std::string();
    }

    void press(const Reference& what) const {
        QDBusInterface action(what.service, what.path.path(), "org.a11y.atspi.Action", bus_);
        action.call("DoAction", 0);
    }

private:
    [[nodiscard]] bool showing(const Reference& what) const {
        constexpr unsigned kShowing = 1U << 25;
        const QDBusReply<QList<uint>> state = call(what, "GetState");
        return state.isValid() && (state.value().value(0) & kShowing) != 0;
    }
    [[nodiscard]] std::string role(const Reference& what) const {
        const QDBusReply<QString> name = call(what, "GetRoleName");
        return name.value().toStdString();
    }
    [[nodiscard]] QDBusMessage call(const Reference& what, const char* method) const {
        return bus_.call(QDBusMessage::createMethodCall(what.service, what.path.path(), kAccessible, method));
    }
    [[nodiscard]] QList<Reference> children(const Reference& of) const {
        const QDBusReply<QList<Reference>> reply = call(of, "GetChildren");
        return reply.value();
    }
    [[nodiscard]] std::string property(const Reference& of, const char* name) const {
        QDBusMessage get = QDBusMessage::createMethodCall(of.service, of.path.path(),
                                                          "org.freedesktop.DBus.Properties", "Get");
        get << kAccessible << name;
        const QDBusReply<QDBusVariant> reply = bus_.call(get);
        return reply.value().variant().toString().toStdString();
    }

    QDBusConnection bus_{QString()};
};

} // namespace

/// Hears the notifications that come up, as a screen reader does.
class Listener final : public QObject {
    Q_OBJECT
public:
    explicit Listener(AccessibilityBus& bus)
        : textOf_([&bus](const QDBusMessage& of) {
              return bus.notification({of.service(), QDBusObjectPath(of.path())});
          }) {
        bus.listen(this, SLOT(changed(QDBusMessage)));
    }

    std::string heard;

public slots:
    void changed(const QDBusMessage& message) {
        if (message.arguments().value(0) == "showing" && message.arguments().value(1).toInt() == 1)
            heard += textOf_(message);
    }

private:
    std::function<std::string(const QDBusMessage&)> textOf_;
};

namespace {

/// The role in which a control has to appear; empty: a control that is not a thing on the window.
std::string roleOf(const ui::Control& control) {
    static const std::set<std::string> elsewhere = {
        "Picture1", "mHelp",      "mPopRestore",    "mPopExit",
        "mQuiet",   "mQuietHour", "mQuietTomorrow", "sbScore"}; // which is read as the numbers that it shows
    const std::string& name = control.name();
    if (elsewhere.contains(name) || name.starts_with("lblTabs")) // a tab is read as one with its caption
        return "";
    if (name.starts_with("imgTabs"))
        return "page tab";
    if (name.starts_with("picTab"))
        return "filler";
    if (name == "picAdd" || name == "picAddFile")
        return "graphic";
    if (name == "lblFeedback")
        return "link";
    if (dynamic_cast<const ui::Window*>(&control) != nullptr)
        return "frame";
    if (dynamic_cast<const ui::Image*>(&control) != nullptr) // the buttons too
        return "push button";
    if (dynamic_cast<const ui::CheckBox*>(&control) != nullptr)
        return "check box";
    if (dynamic_cast<const ui::OptionButton*>(&control) != nullptr)
        return "radio button";
    if (dynamic_cast<const ui::TextBox*>(&control) != nullptr)
        return "text";
    if (dynamic_cast<const ui::ListBox*>(&control) != nullptr)
        return "list";
    if (dynamic_cast<const ui::ComboBox*>(&control) != nullptr)
        return "combo box";
    if (dynamic_cast<const ui::Picker*>(&control) != nullptr)
        return "spin box";
    if (dynamic_cast<const ui::Slider*>(&control) != nullptr ||
        dynamic_cast<const ui::Volume*>(&control) != nullptr)
        return "slider";
    if (dynamic_cast<const ui::Panel*>(&control) != nullptr)
        return "panel";
    if (dynamic_cast<const ui::Label*>(&control) != nullptr ||
        dynamic_cast<const ui::StatusBar*>(&control) != nullptr)
        return "label";
    return "";
}

/// What the language file that ships calls a control.
std::string captionOf(const std::string& name) {
    QFile file(QStringLiteral(BROVIN_ASSETS "/default.blp"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    if (name.starts_with("imgTabs") || name.starts_with("picTab"))
        for (const QByteArray& line : bytes.split('\n'))
            if (line.startsWith("envButtons="))
                return line.mid(11).split(',').value(name.back() - '0').trimmed().toStdString();
    const QByteArray key = "lbl" + QByteArray::fromStdString(name) + "=";
    for (const QByteArray& line : bytes.split('\n'))
        if (line.startsWith(key))
            return line.mid(key.size()).replace("&", "").trimmed().toStdString();
    return "";
}

/// The page that a control is on; nullopt: it is around the pages, or not on the window.
std::optional<std::size_t> pageOf(const desktop::OptionsWindow& window, const std::string& control) {
    for (const QWidget* widget = window.findChild<QWidget*>(QString::fromStdString(control));
         widget != nullptr; widget = widget->parentWidget())
        if (widget->objectName().startsWith("picTab"))
            return static_cast<std::size_t>(widget->objectName().back().digitValue());
    return std::nullopt;
}

bool tells(const Node& node, const std::string& role, const std::string& caption) {
    return node.role == role && !node.name.empty() &&
           (node.name.find(caption) != std::string::npos ||
            node.description.find(caption) != std::string::npos);
}

TEST(Accessibility, everyControlHasANameAndARole) {
    const AccessibilityBus bus;
    ASSERT_TRUE(bus.connected());
    const QTemporaryDir root;
    const Process program(root.path(), {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"});
    bringUp(root.path());
    const auto window = bus.waitForWindow();
    ASSERT_TRUE(window);

    ui::FrmOptions form;
    desktop::OptionsWindow plan(form); // tells which control is on which page
    plan.furnish();
    form.picAnim.setVisible(false);    // there only while something is fetched
    form.lblNoNames.setVisible(false); // and that while there are folders without names
    form.lblNoAgent.setVisible(false); // and that where no character can be shown
    form.lblQuiet.setVisible(false);   // and that while it is quiet
    form.sbProgress.setVisible(false); // and these while a scan runs
    form.cmdStopScan.setVisible(false);
    std::set<std::string> missing;
    for (std::size_t page = 0; page < ui::FrmOptions::kTabs; ++page) {
        std::vector<Node> shown;
        bus.collect(*window, shown);
        for (const Node& node : shown)
            if (tells(node, "page tab", captionOf("imgTabs" + std::to_string(page))))
                bus.press(node.reference);
        shown.clear();
        bus.collect(*window, shown);
        for (const ui::Control* control : form.controls()) {
            const std::string role = roleOf(*control);
            const auto home = pageOf(plan, control->name());
            const bool whole = control == &form.window;
            if (role.empty() || (home && *home != page) || (!control->visible() && !whole))
                continue;
            const std::string caption = whole ? "Brovin" : captionOf(control->name());
            EXPECT_NE("", caption) << control->name() << " has no name in the language file";
            if (std::none_of(shown.begin(), shown.end(),
                             [&](const Node& node) { return tells(node, role, caption); }))
                missing.insert(QStringLiteral("page %1: %2 %3 \"%4\"")
                                   .arg(page)
                                   .arg(role.c_str(), control->name().c_str(), caption.c_str())
                                   .toStdString());
        }
    }
    for (const std::string& control : missing)
        ADD_FAILURE() << "not found: " << control;
}

TEST(Accessibility, whatTheCharacterSaysIsAnnouncedWhereTheUserWantsIt) {
    AccessibilityBus bus;
    ASSERT_TRUE(bus.connected());
    Listener listener(bus);
    for (const bool wanted : {false, true}) {
        const QTemporaryDir root;
        QDir(root.path()).mkpath("config/Brovin");
        QFile settings(root.filePath("config/Brovin/Brovin.conf"));
        ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
        settings.write("[Settings]\nAgentName=Peedy\nTotalDate=x\nUpdateOnStart=0\nMuteVoice=1\nReadOut=");
        settings.write(wanted ? "1\n" : "0\n");
        settings.close();
        const Process program(root.path(), {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"});
        ASSERT_TRUE(waitForWindow("^Peedy$"));
        const auto greets = [&listener] { return listener.heard.size() > 3; };
        if (wanted)
            EXPECT_TRUE(waitUntil(greets));
        else
            letPass(2500);
        EXPECT_EQ(wanted, greets()) << listener.heard;
        EXPECT_EQ(std::string::npos, listener.heard.find('\\')) << "no speech tags: " << listener.heard;
    }
}

/// Opens the window behind a button, on whatever page that is; what can be read in it.
std::vector<Node> opened(const AccessibilityBus& bus, const Reference& window, const std::string& button) {
    bool pressed = false;
    for (std::size_t page = 0; page < ui::FrmOptions::kTabs && !pressed; ++page) {
        std::vector<Node> shown;
        bus.collect(window, shown);
        for (const Node& node : shown)
            if (tells(node, "page tab", captionOf("imgTabs" + std::to_string(page))))
                bus.press(node.reference);
        shown.clear();
        bus.collect(window, shown);
        for (const Node& node : shown)
            if (!pressed && (pressed = tells(node, "push button", captionOf(button))))
                bus.press(node.reference);
    }
    std::vector<Node> found;
    if (const auto dialog = bus.waitForWindow("dialog"))
        bus.collect(*dialog, found);
    return found;
}

/// A file in a shared folder goes, and is logged.
void scan(const QTemporaryDir& root) {
    ASSERT_TRUE(QDir(root.path()).mkpath("share"));
    QFile clutter(root.filePath("share/Thumbs.db"));
    ASSERT_TRUE(clutter.open(QIODevice::WriteOnly) && clutter.write(QByteArray(3000, 'x')) == 3000);
    clutter.close();
    QProcess scan;
    scan.setProcessEnvironment(environmentWith(root.filePath("config"), root.filePath("data")));
    scan.start(QStringLiteral(BROVIN_PROGRAM),
               {"--scan", "--nasty", "thumbs.db", "--folder", root.filePath("share")});
    ASSERT_TRUE(scan.waitForFinished() && scan.exitCode() == 0) << scan.readAllStandardError().toStdString();
}

// What is drawn of the score is read as a table beside the picture, and the log as a list.
TEST(Accessibility, theScoreIsReadAsATableAndTheLogAsAList) {
    const AccessibilityBus bus;
    ASSERT_TRUE(bus.connected());
    const struct {
        const char* button;
        std::vector<std::pair<const char*, const char*>> reads; ///< role and a part of the name
    } windows[] = {
        {"cmdScore",
         {{"combo box", "Week"},
          {"table", "The score"},
          {"column header", "Items"},
          {"cell", "1"},
          {"cell", "4"}}},
        {"cmdSearchLog", {{"text", "Search"}, {"list", "log"}, {"list item", "Deleted file "}}},
    };
    for (const auto& [button, reads] : windows) {
        const QTemporaryDir root;
        const Process program(root.path(), {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"});
        bringUp(root.path());
        const auto window = bus.waitForWindow();
        ASSERT_TRUE(window);
        scan(root);
        const std::vector<Node> found = opened(bus, *window, button);
        for (const auto& [role, name] : reads)
            EXPECT_TRUE(std::any_of(found.begin(), found.end(),
                                    [role = role, name = name](const Node& node) {
                                        return node.role == role && node.name.find(name) != std::string::npos;
                                    }))
                << button << ": " << role << " " << name;
        if (testing::Test::HasFailure())
            for (const Node& node : found)
                std::cerr << node.role << " | " << node.name << " | " << node.description << "\n";
    }
}

} // namespace
} // namespace brovin::tests

#ifndef __clang_analyzer__ // which is not to judge what the toolkit generates
#include "accessibility_test.moc"
#endif
