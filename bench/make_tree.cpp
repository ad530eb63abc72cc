// Makes a folder tree to sweep, always the same one for the same arguments.
// Usage: make_tree FOLDER KEY=VALUE...   Prints what it made.

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Shape {
    std::uint64_t folders = 1'000; ///< below the top
    std::uint64_t files = 10'000;
    std::uint64_t fan = 8;      ///< folders in one folder; 1: a chain
    std::uint64_t clutter = 5;  ///< files in a thousand whose name is on a list of clutter
    std::uint64_t least = 6;    ///< letters of a name, at least
    std::uint64_t most = 18;    ///< and at most; up to 120
    std::uint64_t foreign = 50; ///< names in a thousand with letters beyond ASCII
    std::uint64_t seed = 1;
};

struct Option {
    std::string_view name;
    std::uint64_t Shape::*value;
};
constexpr Option kOptions[] = {
    {"folders", &Shape::folders}, {"files", &Shape::files}, {"fan", &Shape::fan},
    {"clutter", &Shape::clutter}, {"least", &Shape::least}, {"most", &Shape::most},
    {"foreign", &Shape::foreign}, {"seed", &Shape::seed},
};

bool set(Shape& shape, std::string_view argument) {
    const std::size_t equals = argument.find('=');
    for (const auto& [name, value] : kOptions) {
        if (equals != std::string_view::npos && argument.substr(0, equals) == name) {
            const std::string_view number = argument.substr(equals + 1);
            return std::from_chars(number.begin(), number.end(), shape.*value).ptr == number.end();
        }
    }
    return false;
}

class TreeMaker {
public:
    TreeMaker(const Shape& shape, int top) : shape_(shape), random_(shape.seed), top_(top) {}

    /// False: the disk refused something. Folder number n lies in folder number (n - 1) / fan.
    bool make() {
        const std::uint64_t places = shape_.folders + 1;
        return fill(top_, 0, shape_.files / places + (shape_.files % places > 0 ? 1 : 0));
    }

    std::uint64_t filesMade = 0;
    std::uint64_t foldersMade = 0;
    std::uint64_t clutterMade = 0;

private:
    /// A chain is followed by a loop: it may be deeper than the stack of this program.
    bool fill(int place, std::uint64_t number, std::uint64_t filesEach) {
        int mine = -1;
        for (;;) {
            for (std::uint64_t i = 0; i < filesEach && filesMade < shape_.files; ++i) {
                if (!makeFile(place))
                    return false;
            }
            if (shape_.fan == 1) {
                const int below = number < shape_.folders ? makeFolder(place, number + 1) : -1;
                if (mine >= 0)
                    close(mine);
                if (++number > shape_.folders)
                    return true;
                if (below < 0)
                    return false;
                place = mine = below;
                continue;
            }
            for (std::uint64_t below = number * shape_.fan + 1;
                 below <= std::min(number * shape_.fan + shape_.fan, shape_.folders); ++below) {
                const int folder = makeFolder(place, below);
                if (folder < 0 || !fill(folder, below, filesEach))
                    return false;
                close(folder);
            }
            return true;
        }
    }

    bool makeFile(int place) {
        constexpr std::array kClutter = {"Thumbs.db", ".DS_Store", "desktop.ini"};
        constexpr std::array kEndings = {".JPG", ".txt", ".odt", ".mp3", ".PDF", ".cpp", ".html"};
        const std::uint64_t number = filesMade++;
        const bool clutter = pick(1'000) < shape_.clutter;
        std::string file =
            clutter ? kClutter[pick(kClutter.size())] : name(number) + kEndings[number % kEndings.size()];
        const int made = openat(place, file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (made >= 0) {
            clutterMade += clutter ? 1 : 0;
            close(made);
        }
        return made >= 0 || errno == EEXIST; // a second one of the same clutter
    }

    int makeFolder(int place, std::uint64_t number) {
        const std::string folder = name(number);
        if (mkdirat(place, folder.c_str(), 0755) != 0)
            return -1;
        ++foldersMade;
        return openat(place, folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }

    std::string name(std::uint64_t number) {
        constexpr std::string_view kLetters = "eTaoinSHrdlu_mWfgypbvk-x ";
        constexpr std::array kForeign = {"ä", "É", "ß", "ж", "Ω", "日", "ñ"};
        std::string text = std::to_string(number) + "_";
        const std::uint64_t length = shape_.least + pick(shape_.most - shape_.least + 1);
        const bool foreign = pick(1'000) < shape_.foreign;
        while (text.size() < length)
            text.push_back(kLetters[pick(kLetters.size())]);
        return foreign ? text + kForeign[pick(kForeign.size())] : text;
    }

    std::uint64_t pick(std::uint64_t below) { return random_() % below; }

    Shape shape_;
    std::mt19937_64 random_;
    int top_;
};

} // namespace

int main(int argc, char** argv) {
    Shape shape;
    for (int i = 2; i < argc; ++i) {
        if (!set(shape, argv[i]))
            argc = 0;
    }
    if (argc < 2 || shape.fan == 0 || shape.most < shape.least || shape.most > 120) {
        std::fprintf(stderr,
                     "Usage: make_tree FOLDER [folders|files|fan|clutter|least|most|foreign|seed=N]...\n");
        return 2;
    }
    umask(022);
    const int top = mkdir(argv[1], 0755) == 0 ? open(argv[1], O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1;
    TreeMaker maker(shape, top);
    if (top < 0 || !maker.make()) {
        std::perror(argv[1]);
        return 1;
    }
    std::printf("%llu files, %llu of them clutter, %llu folders\n",
                static_cast<unsigned long long>(maker.filesMade),
                static_cast<unsigned long long>(maker.clutterMade),
                static_cast<unsigned long long>(maker.foldersMade));
    return 0;
}
