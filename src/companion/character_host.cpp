#include "companion/character_host.h"

#include "companion/standing.h"
#include "text/numbers.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace brovin::companion {
namespace {

using language::Message;
using language::PhraseList;
namespace setting = settings::setting;

/// How far above the screen's lower edge a character stands that nobody has moved: its upper edge; and, where
/// the user wants it larger than the screen does, its lower edge.
constexpr int kStandingRoom = 147;
constexpr int kBelowFeet = 19;
/// A character whose corner is farther out than this is fetched back when it is loaded.
constexpr int kFarthestOut = -50;
constexpr int kLeftButton = 1;

/// As large as the character is on the screen under it.
platform::Area sized(platform::Area place, const platform::CharacterPlace& character,
                     const Screens& screens) {
    const platform::Area there = character.areaOn(screenUnder(place, screens));
    place.width = there.width;
    place.height = there.height;
    return place;
}

} // namespace

void CharacterHost::scanCharacters() {
    std::vector<ui::ListBox::Item> items;
    for (const std::string& file : needs_.service.files()) {
        const std::string_view name(file.data(),
                                    file.size() - std::min(file.size(), kCharacterFileEnding.size()));
        items.push_back({needs_.letters.properCase(name), 0});
    }
    needs_.pages.character.lstChars.setItems(std::move(items));
    if (needs_.actor.name.empty())
        needs_.actor.name = setting::kAgentName.fallback;
    for (int i = 0; i < needs_.pages.character.lstChars.count(); ++i)
        if (needs_.pages.character.lstChars.items()[static_cast<std::size_t>(i)].text == needs_.actor.name) {
            needs_.pages.character.lstChars.select(i);
            return;
        }
}

void CharacterHost::loadCharacter() {
    Actor& actor = needs_.actor;
    if (!needs_.pages.character.chkAgent.checked() || actor.name.empty())
        return;
    if (needs_.service.character(actor.name) == nullptr)
        needs_.service.load(actor.name, actor.name + std::string(kCharacterFileEnding));
    actor.character = needs_.service.character(actor.name);
    if (actor.character != nullptr) {
        place(actor.character->place);
        setVoice(actor.character->voice);
    }
    fillAnimations();
    loaded();
}

/// A stored place that does not fit its variable leaves the character where its service has put it.
void CharacterHost::place(platform::CharacterPlace& character) const {
    const Screens screens = needs_.service.screens();
    if (screens.empty())
        return;
    const auto storedLeft = needs_.settings.stored(setting::kAgentX);
    const auto storedTop = needs_.settings.stored(setting::kAgentY);
    platform::Area place = character.area();
    if (!storedLeft)
        place.left = screens.front().left;
    else if (const auto left = text::leadingInt16(*storedLeft))
        place.left = *left;
    if (!storedTop)
        place.top = topAtFirst(screens.front(), place.height);
    else if (const auto top = text::leadingInt16(*storedTop))
        place.top = *top;
    const platform::Area screen = screenUnder(place, screens);
    place = sized(place, character, screens);
    const int x = place.left - screen.left;
    const int y = place.top - screen.top;
    if (x > screen.width || x < kFarthestOut)
        place.left = screen.left;
    if (y > screen.height || y < kFarthestOut)
        place.top = topAtFirst(screen, place.height);
    place = onOneScreen(place, screens);
    character.put(place.left, place.top);
}

int CharacterHost::topAtFirst(const platform::Area& screen, int height) const {
    const bool larger = needs_.pages.character.cmbSize.selected() > 0;
    const int room = larger ? std::max(kStandingRoom, height + kBelowFeet) : kStandingRoom;
    return screen.top + screen.height - room;
}

void CharacterHost::setVoice(platform::CharacterVoice& voice) const {
    const language::LanguageTables& tables = needs_.tables;
    if (!tables.langLanguageId.empty())
        if (const auto id = text::leadingInt32(tables.langLanguageId))
            voice.setLanguageId(*id);
    if (!tables.langModeId.empty())
        voice.setTtsModeId(tables.langModeId);
}

void CharacterHost::fillAnimations() {
    std::vector<ui::ListBox::Item> items;
    if (needs_.actor.character != nullptr)
        for (std::string& name : needs_.actor.character->requests.animationNames())
            items.push_back({std::move(name), 0});
    needs_.pages.speech.lstAnims.setItems(std::move(items));
    if (!needs_.pages.speech.lstAnims.select(0))
        needs_.pages.speech.cmdDo.setEnabled(false);
}

void CharacterHost::unloadCharacter() {
    needs_.actor.character = nullptr;
    if (!needs_.actor.name.empty())
        needs_.service.unload(needs_.actor.name);
}

void CharacterHost::chkAgent_Click() {
    enableSpeechControls();
    if (!needs_.pages.frame.window.visible())
        return;
    if (!needs_.pages.character.chkAgent.checked()) {
        unloadCharacter();
        needs_.actor.name = needs_.settings.read(setting::kAgentName);
    }
    scanCharacters();
    loadCharacter();
}

void CharacterHost::enableSpeechControls() {
    ui::SpeechPage& page = needs_.pages.speech;
    const bool on = needs_.pages.character.chkAgent.checked();
    for (ui::Control* control : std::initializer_list<ui::Control*>{
             &page.cmdRepeat, &page.txtSay, &page.cmdSay, &needs_.pages.reminders.cmdSpeak, &page.lstAnims,
             &page.cmdDo, &page.cmdStop})
        control->setEnabled(on);
    if (page.lstAnims.selected() == ui::ListBox::kNone)
        page.cmdDo.setEnabled(false); // nothing is chosen that could be done
}

void CharacterHost::lstChars_Click() {
    if (needs_.pages.character.lstChars.selected() == ui::ListBox::kNone || needs_.pages.life.loading)
        return;
    unloadCharacter();
    needs_.actor.name = needs_.pages.character.lstChars.selectedText();
    needs_.settings.write(setting::kAgentName, needs_.actor.name);
    loadCharacter();
    if (needs_.pages.frame.window.visible() || needs_.settings.read(setting::kAgentShow) == "True")
        needs_.actor.show();
    say(PhraseList::SpkHello);
    nameLabels();
}

void CharacterHost::nameLabels() {
    const language::MessageTable& messages = needs_.tables.messageTable;
    needs_.pages.speech.lblSay.setCaption(messages.getMessage(Message::SayLabel, {needs_.actor.name}));
    needs_.pages.speech.lblDo.setCaption(messages.getMessage(Message::DoLabel, {needs_.actor.name}));
}

void CharacterHost::Agent1_Click(const platform::CharacterClick& click) {
    if (click.button != kLeftButton)
        return;
    needs_.actor.show();
    if (needs_.random.next() * 30 < 2) { // it has had enough
        needs_.actor.stopAll();
        say(PhraseList::SpkClickNoMore);
        needs_.actor.hide();
        return;
    }
    if (needs_.random.next() * 10 < 3)
        play(PhraseList::AniClick);
    if (const auto phrase = needs_.phrases.pickPhrase(clickList()))
        needs_.actor.speak(*phrase);
}

/// The character's own answers and those of all, joined as they stand: a language file divides them itself.
std::string CharacterHost::clickList() const {
    static constexpr std::pair<std::string_view, PhraseList> kOwn[] = {
        {"Peedy", PhraseList::SpkClickPeedy},
        {"Genie", PhraseList::SpkClickGenie},
        {"Merlin", PhraseList::SpkClickMerlin},
        {"Robby", PhraseList::SpkClickRobby},
    };
    for (const auto& [name, list] : kOwn)
        if (needs_.actor.name == name)
            return needs_.tables.list(list) + needs_.tables.list(PhraseList::SpkClick);
    return needs_.tables.list(PhraseList::SpkClick);
}

void CharacterHost::Agent1_DragStart() {
    needs_.actor.stopAll();
    play(PhraseList::AniClick);
}

void CharacterHost::Agent1_DragComplete() {
    say(PhraseList::SpkCharMove);
    const platform::Character* character = needs_.actor.character;
    if (character == nullptr)
        return;
    const Screens screens = needs_.service.screens();
    if (screens.empty())
        return;
    const platform::Area dropped = character->place.area();
    platform::Area place = onOneScreen(dropped, screens);
    if (isLost(dropped, screens)) {
        const platform::Area& screen = screenUnder(dropped, screens);
        place.left = screen.left;
        place.top = topAtFirst(screen, place.height);
    }
    remember(place);
    if (place != dropped)
        needs_.actor.moveTo(place.left, place.top);
}

void CharacterHost::remember(const platform::Area& place) {
    needs_.settings.write(setting::kAgentX, std::to_string(place.left));
    needs_.settings.write(setting::kAgentY, std::to_string(place.top));
}

void CharacterHost::sendToNextScreen() {
    const Screens screens = needs_.service.screens();
    if (needs_.actor.character == nullptr || screens.empty())
        return;
    const platform::CharacterPlace& character = needs_.actor.character->place;
    const platform::Area next = nextScreen(character.area(), screens);
    const platform::Area place = likewiseOn(next, character.area(), character.areaOn(next), screens);
    remember(place);
    needs_.actor.moveTo(place.left, place.top);
}

void CharacterHost::screensChanged() {
    const platform::Character* const character = needs_.actor.character;
    const Screens screens = needs_.service.screens();
    if (character == nullptr || screens.empty())
        return;
    platform::Area home = character->place.area();
    const auto left = needs_.settings.stored(setting::kAgentX);
    const auto top = needs_.settings.stored(setting::kAgentY);
    if (left && top) {
        home.left = text::leadingInt16(*left).value_or(home.left);
        home.top = text::leadingInt16(*top).value_or(home.top);
    }
    home = sized(home, character->place, screens);
    if (isLost(home, screens)) {
        home = broughtBack(character->place.area(), screens);
        home = broughtBack(sized(home, character->place, screens), screens);
    }
    home = onOneScreen(home, screens);
    character->place.put(home.left, home.top);
}

void CharacterHost::Agent1_Hide(int cause) {
    if (cause == platform::kHiddenByItsMenu)
        needs_.settings.write(setting::kAgentShow, "False");
}

void CharacterHost::say(PhraseList list) {
    if (const auto phrase = needs_.phrases.pickPhrase(list))
        needs_.actor.speak(*phrase);
}

void CharacterHost::play(PhraseList list) {
    if (const auto animation = needs_.phrases.pickPhrase(list))
        needs_.actor.play(*animation);
}

} // namespace brovin::companion
