#include "acsc/command.h"

#include "acsc/drawing/edges.h"
#include "acsc/drawing/loops.h"
#include "acsc/drawing/moving_picture.h"
#include "acsc/drawing/rest.h"
#include "acsc/drawing/sheet.h"
#include "acsc/drawing/silhouettes.h"
#include "acsc/file/compile.h"
#include "acsc/file/example.h"
#include "acsc/file/listing.h"
#include "acsc/file/unpack.h"
#include "acsc/movement/smoothness.h"
#include "acsc/problems.h"
#include "acsc/sources/character_source.h"
#include "character/acs_reader.h"
#include "character/acs_writer.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>

namespace brovin::acsc {
namespace {

constexpr const char* kUsage =
    "Usage:\n"
    "  acsc FOLDER -o FILE.acs                     compile a character\n"
    "  acsc --new FOLDER                           write a small complete example, named like its folder\n"
    "  acsc --sheet FOLDER OUT.png [ANIMATION...]  draw a contact sheet\n"
    "  acsc --silhouettes FOLDER OUT.png [ANIMATION...]  each animation in black on white\n"
    "  acsc --film FOLDER ANIMATION OUT            OUT.gif (needs ffmpeg) or OUT-%03d.png\n"
    "  acsc --check FOLDER [PIXELS]                show the largest jump of a part; fail above PIXELS\n"
    "  acsc --edges FOLDER                         show where pictures touch the frame's edges\n"
    "  acsc --list FILE.acs                        tell what is in a character file\n"
    "  acsc --loops FILE.acs                       show how much changes where each loop closes; fail where\n"
    "                                              it is more than anywhere inside\n"
    "  acsc --preview FILE.acs                     show it on the desktop, with all that it can do\n"
    "  acsc --export FILE.acs ANIMATION OUT.png    an animation as an animated PNG\n"
    "  acsc --rest FILE.acs SHEET.png [FILM.png [MINUTE]]  what it does in a minute that nobody asks "
    "anything\n"
    "  acsc --unpack FILE.acs FOLDER               take a character file apart into sources\n";

constexpr std::size_t kMostAlike = 10;

int report(const Problems& problems) {
    for (const QString& warning : problems.warnings())
        std::fprintf(stderr, "acsc: warning: %s\n", qUtf8Printable(warning));
    for (const QString& problem : problems.list())
        std::fprintf(stderr, "acsc: %s\n", qUtf8Printable(problem));
    return problems.none() ? 0 : 1;
}

void writeFile(const QString& path, const std::vector<std::uint8_t>& bytes, Problems& problems) {
    QSaveFile file(path);
    const auto size = static_cast<qint64>(bytes.size());
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(reinterpret_cast<const char*>(bytes.data()), size) != size || !file.commit())
        problems.add(path, QStringLiteral("cannot be written (%1)").arg(file.errorString()));
}

void compile(const QStringList& arguments, Problems& problems) {
    const CharacterSource source = readCharacterSource(arguments[0], problems);
    if (!problems.none())
        return;
    const character::CharacterData data = compileCharacter(source, problems);
    if (!problems.none())
        return;
    const auto bytes = character::writeCharacter(data);
    if (!bytes)
        problems.add(arguments[0], QString::fromStdString(bytes.failure().reason));
    else
        writeFile(arguments[2], *bytes, problems);
}

void sheet(const QStringList& arguments, Problems& problems) {
    const CharacterSource source = readCharacterSource(arguments[1], problems);
    if (problems.none())
        writeSheet(source, arguments[2], arguments.mid(3), problems);
}

void silhouettes(const QStringList& arguments, Problems& problems) {
    const CharacterSource source = readCharacterSource(arguments[1], problems);
    if (!problems.none())
        return;
    const std::vector<Likeness> pairs = writeSilhouettes(source, arguments[2], arguments.mid(3), problems);
    for (std::size_t i = 0; i < std::min(pairs.size(), kMostAlike); ++i)
        std::printf("%5.2f  %s, %s\n", pairs[i].overlap, qUtf8Printable(pairs[i].one),
                    qUtf8Printable(pairs[i].other));
}

void film(const QStringList& arguments, Problems& problems) {
    const CharacterSource source = readCharacterSource(arguments[1], problems);
    if (problems.none())
        writeFilm(source, arguments[2], arguments[3], problems);
}

void check(const QStringList& arguments, Problems& problems) {
    bool good = true;
    const double limit = arguments.size() > 2 ? arguments[2].toDouble(&good) : 1e9;
    if (!good)
        problems.add(arguments[2], QStringLiteral("is not a number of pixels"));
    const CharacterSource source = readCharacterSource(arguments[1], problems);
    if (!problems.none())
        return;
    for (const Step& step : largestSteps(source, problems)) {
        std::printf("%7.2f  %s  %s\n", step.pixels, qUtf8Printable(step.what), qUtf8Printable(step.part));
        if (step.pixels > limit)
            problems.add(step.what, QStringLiteral("%1 jumps %2 pixels").arg(step.part).arg(step.pixels));
    }
}

void edges(const QStringList& arguments, Problems& problems) {
    const CharacterSource source = readCharacterSource(arguments[1], problems);
    if (!problems.none())
        return;
    for (const QString& line : touchedEdges(source, problems))
        std::printf("%s\n", qUtf8Printable(line));
}

std::optional<character::CharacterData> load(const QString& path, Problems& problems) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problems.add(path, QStringLiteral("cannot be read (%1)").arg(file.errorString()));
        return std::nullopt;
    }
    const QByteArray bytes = file.readAll();
    auto data = character::readCharacter(
        character::SharedBytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end())));
    if (data)
        return std::move(*data);
    problems.add(path, QString::fromStdString(character::message(data.failure())));
    return std::nullopt;
}

void list(const QStringList& arguments, Problems& problems) {
    if (const auto data = load(arguments[1], problems))
        std::fputs(qUtf8Printable(listing(*data)), stdout);
}

void loops(const QStringList& arguments, Problems& problems) {
    const auto data = load(arguments[1], problems);
    if (!data)
        return;
    for (const LoopSeam& loop : loopSeams(*data)) {
        std::printf("%5.2f  %5.2f inside  %s\n", loop.seam, loop.largest, qUtf8Printable(loop.animation));
        if (loop.seam > loop.largest)
            problems.add(loop.animation, QStringLiteral("jumps where its loop closes"));
    }
}

void unpack(const QStringList& arguments, Problems& problems) {
    if (const auto data = load(arguments[1], problems))
        unpackCharacter(*data, arguments[2], problems);
}

void exportFilm(const QStringList& arguments, Problems& problems) {
    if (const auto data = load(arguments[1], problems))
        exportAnimation(*data, arguments[2], arguments[3], problems);
}

void rest(const QStringList& arguments, Problems& problems) {
    bool good = true;
    const int minute = arguments.size() > 4 ? arguments[4].toInt(&good) : 1;
    if (!good || minute < 1 || minute > 60)
        problems.add(arguments[4], QStringLiteral("is not a minute of the first hour"));
    else if (const auto data = load(arguments[1], problems))
        writeRest(*data, minute, arguments[2], arguments.value(3), problems);
}

void example(const QStringList& arguments, Problems& problems) {
    writeExample(arguments[1], problems);
}

const struct {
    const char* name;
    int fewest; ///< arguments, with the name
    int most;
    void (*run)(const QStringList&, Problems&);
} kCommands[] = {
    {"--sheet", 3, 10000, sheet}, {"--silhouettes", 3, 10000, silhouettes},
    {"--film", 4, 4, film},       {"--check", 2, 3, check},
    {"--edges", 2, 2, edges},     {"--list", 2, 2, list},
    {"--unpack", 3, 3, unpack},   {"--export", 4, 4, exportFilm},
    {"--new", 2, 2, example},     {"--rest", 3, 5, rest},
    {"--loops", 2, 2, loops},
};

} // namespace

int run(const QStringList& arguments) {
    Problems problems;
    if (arguments.value(0) == QLatin1String("--help")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    for (const auto& command : kCommands)
        if (arguments.value(0) == QLatin1String(command.name) && arguments.size() >= command.fewest &&
            arguments.size() <= command.most) {
            command.run(arguments, problems);
            return report(problems);
        }
    if (arguments.size() == 3 && arguments[1] == QLatin1String("-o")) {
        compile(arguments, problems);
        return report(problems);
    }
    std::fputs(kUsage, stderr);
    return 2;
}

} // namespace brovin::acsc
