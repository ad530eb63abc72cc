// Picking a phrase and filling in its tokens, with the English language file and the settings store that the
// program uses.

#include "companion/phrase_engine.h"
#include "language/language_file.h"
#include "platform/standard_random.h"
#include "posix/ini_settings_store.h"
#include "posix/unicode_letters.h"
#include "ui/frm_options.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <string>

namespace brovin::bench {
namespace {

using language::PhraseList;

struct World {
    World() {
        std::ifstream file(BROVIN_ASSETS "/default.blp", std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        for (const std::string& line : language::linesOf(bytes))
            if (const auto keyed = language::keyedLine(line))
                if (const auto list = language::phraseListOf(keyed->key))
                    tables.append(*list, keyed->value);
        actor.name = "Peedy";
    }
    QTemporaryDir scratch;
    posix::IniSettingsStore store{scratch.filePath(QStringLiteral("Brovin.conf")).toStdString()};
    settings::Settings settings{store};
    posix::UnicodeLetters letters;
    platform::StandardRandom random;
    ui::FrmOptions form;
    language::LanguageTables tables;
    companion::Actor actor;
    companion::PhraseEngine phrases{{form, settings, tables, actor, letters, random}};
};

void pick(benchmark::State& state, PhraseList list) {
    World world;
    if (world.tables.list(list).empty())
        state.SkipWithError("the list is empty");
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(world.phrases.pickPhrase(list));
}
BENCHMARK_CAPTURE(pick, chatter, PhraseList::SpkRandomVisible)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(pick, popOut, PhraseList::SpkRandomHidden)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(pick, click, PhraseList::SpkClick)->Unit(benchmark::kMicrosecond);

/// The costliest phrase that a user is likely to type: every token.
void typedWithEveryToken(benchmark::State& state) {
    World world;
    const std::string typed =
        "&dude& &col& &teeth& &animal& &name& &song& &job& &stupid& &music& &crown& &poo& "
        "&namem& &namem& &word& &word&";
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(world.phrases.pickPhrase(typed));
}
BENCHMARK(typedWithEveryToken)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace brovin::bench

BENCHMARK_MAIN();
