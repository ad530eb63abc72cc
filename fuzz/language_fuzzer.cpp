#include "companion/teller.h"
#include "fakes/fake_machine.h"
#include "language/language.h"
#include "language/language_file.h"
#include "require.h"
#include "text/numbers.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

using namespace brovin;
using fuzz::require;

/// Draws that the input decides.
class DrawnFromInput final : public platform::Random {
public:
    [[nodiscard]] double next() override {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<double>(state_) / 4294967296.0;
    }
    void seed(std::uint64_t value) override { state_ = static_cast<std::uint32_t>(value); }

private:
    std::uint32_t state_ = 0;
};

/// Languages and phrases on a machine in memory. It is built once: that takes a hundred times as long as a
/// load.
struct World : fakes::FakeMachine {
    World() { teller.actor.name = "Peedy"; }

    ui::FrmOptions form;
    settings::Settings options{settings};
    language::Language language{{form, options, folder, dialogs, letters}};
    DrawnFromInput draws;
    companion::Teller teller{{form, options, language.tables, dialogs, letters, draws}};
};

void load(World& world, std::string_view bytes) {
    static_cast<void>(language::languageInfo(bytes));
    // With the lines that every usable file has.
    std::string& file = world.folder.files["a.blp"];
    file = "language=A\nlanguageDesc=b\nlangversion=1\nenvDudeOptions=1,2\nenvCheckOptions=1,2\n";
    file.append(bytes);
    world.language.catalogue.buildLanguageCatalogue();
    world.form.lstLang.select(0);
    world.dialogs.boxes.clear();
}

void say(World& world, std::string_view bytes) {
    constexpr std::size_t kLongest = std::size_t{1} << 17U;
    const language::LanguageTables& tables = world.language.tables;
    // One of the lists, which the input decides: their expansion is one and the same, and with all of them in
    // each run there would be time for a tenth of the runs.
    constexpr std::size_t kLists = language::kPhraseListKeys.size();
    world.draws.seed(bytes.size());
    auto list = static_cast<std::size_t>(world.draws.next() * kLists);
    for (std::size_t tried = 1; tried < kLists && tables.list(language::PhraseList(list)).empty(); ++tried)
        list = (list + 1) % kLists;
    const auto phrase = world.teller.phrases.pickPhrase(language::PhraseList(list));
    require(!phrase || phrase->size() < kLongest);
    for (const std::string& line : language::linesOf(bytes))
        if (const auto keyed = language::keyedLine(line); keyed && keyed->key.starts_with("dlg"))
            if (const auto number = text::leadingInt32(keyed->key.substr(3));
                number && *number >= 0 && *number < 101)
                static_cast<void>(tables.messageTable.getMessage(language::Message{*number}, {"a%2", "\\n"}));
    static_cast<void>(tables.messageTable.getText("folderReplaced", {"%1", "b"}));
}

} // namespace

/// Loads a language file, fills phrases in and reads its messages.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    static World world;
    load(world, bytes);
    say(world, bytes);
    return 0;
}
