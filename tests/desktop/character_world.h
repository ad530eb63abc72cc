#pragma once

#include "desktop/character/desktop_character_service.h"
#include "desktop/drawn_character.h"
#include "desktop/journey.h"
#include "desktop/real_input.h"

#include <QImage>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPixmap>
#include <QTemporaryDir>

#include <memory>
#include <string>
#include <vector>

namespace brovin::tests {

/// Another program's window, as far as a character can tell: blue, with the focus in a line of text.
class BlueWindow final : public QWidget {
public:
    std::vector<QPoint> clicks; ///< on the screen

    BlueWindow() {
        setPalette(Qt::blue);
        line_.move(20, 20);
        setGeometry(100, 100, 824, 568);
        show();
        EXPECT_TRUE(waitUntil([this] { return isActiveWindow() && line_.hasFocus(); }));
        letPass(200);
    }
    [[nodiscard]] bool hasTheFocus() const { return isActiveWindow() && line_.hasFocus(); }

protected:
    void mousePressEvent(QMouseEvent* event) override { clicks.push_back(event->globalPosition().toPoint()); }

private:
    QLineEdit line_{this};
};

/// The service with the drawn character, loaded and shown over the blue window, and what it tells.
struct CharacterWorld {
    QTemporaryDir scratch;
    BlueWindow below;
    bool busy = false;
    std::vector<std::string> events; ///< "click 1 0 412 300", "hide 3"
    std::unique_ptr<desktop::DesktopCharacterService> service;

    static constexpr const char* kId = "Ring";

    explicit CharacterWorld(const character::CharacterData& data = drawnCharacter()) {
        writeCharacterFile(scratch.filePath("ring.acs"), data);
        service = std::make_unique<desktop::DesktopCharacterService>(desktop::DesktopCharacterService::Needs{
            {scratch.path().toStdString()}, desktop::silentAudio, [this] { return busy; }});
        service->setEvents({.click = [this](const auto& click) { note("click", click); },
                            .dragStart = [this](const auto& click) { note("drag", click); },
                            .dragComplete = [this](const auto& click) { note("dropped", click); },
                            .hide = [this](const std::string& /*id*/,
                                           int cause) { events.push_back("hide " + std::to_string(cause)); },
                            .nextScreen = [this](const std::string& /*id*/) { events.emplace_back("next"); },
                            .screensChanged = [this] { events.emplace_back("screens"); }});
        EXPECT_TRUE(service->load(kId, "RING.ACS"));
    }

    [[nodiscard]] const platform::Character& ring() const { return *service->character(kId); }

    void showAt(QPoint place) const {
        ring().place.put(place.x(), place.y());
        ring().requests.show();
        EXPECT_TRUE(waitUntil([this] { return ring().place.visible(); }));
        letPass(300);
    }

    void note(const std::string& what, const platform::CharacterClick& click) {
        events.push_back(what + ' ' + std::to_string(click.button) + ' ' + std::to_string(click.shift) + ' ' +
                         std::to_string(click.x) + ' ' + std::to_string(click.y));
    }

    template <class Window>
    [[nodiscard]] static Window* window() {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const found = dynamic_cast<Window*>(widget))
                return found;
        return nullptr;
    }

    [[nodiscard]] static QImage screen() { return QApplication::primaryScreen()->grabWindow(0).toImage(); }
};

} // namespace brovin::tests
