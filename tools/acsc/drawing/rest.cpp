#include "acsc/drawing/rest.h"

#include "acsc/drawing/moving_png.h"
#include "acsc/drawing/sheet.h"
#include "character/stage/silence.h"
#include "character/stage/stage.h"
#include "platform/standard_random.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <utility>

namespace brovin::acsc {
namespace {

using character::Frame;
using character::Milliseconds;
using character::Moment;

constexpr Milliseconds kMinute{60'000};
constexpr int kColumns = 16;
constexpr int kLabel = 12; ///< the height of what stands below a picture
constexpr QRgb kBehind = 0xFF707070U;

class NoBalloon final : public character::BalloonView {
public:
    [[nodiscard]] int textWidth(std::string_view /*text*/) const override { return 1; }
    [[nodiscard]] int averageCharacterWidth() const override { return 1; }
    [[nodiscard]] int mostLines() const override { return 1; }
    void beginStatement(const std::string& /*text*/) override {}
    void show(const character::BalloonPage& /*page*/) override {}
    void hide() override {}
};

/// A desktop in memory, which keeps what it is shown.
class Desk final : public character::Surface {
public:
    struct Shot {
        Moment at;
        const Frame* frame;
    };
    Moment now;
    std::vector<Shot> shots; ///< one a moment

    void showFrame(const Frame& frame, const character::MouthOverlay* /*mouth*/) override {
        if (!shots.empty() && shots.back().at == now)
            shots.pop_back();
        shots.push_back({now, &frame});
    }
    void setPlace(character::Place /*place*/) override {}
    void setShown(character::Shown /*shown*/) override {}
    /// Once round in twenty seconds, far from the character.
    [[nodiscard]] std::optional<character::Place> pointer() const override {
        const double angle = static_cast<double>(now.time_since_epoch().count()) / 20'000 * 6.2832;
        return character::Place{static_cast<int>(900 * std::cos(angle)),
                                static_cast<int>(900 * std::sin(angle))};
    }
};

/// The pictures from `begin` on for a minute, the one before them included.
std::vector<Desk::Shot> watch(const character::CharacterData& data, Moment begin) {
    NoBalloon balloon;
    character::NoSounds sounds;
    character::NoVoice voice;
    platform::StandardRandom chance;
    chance.seed(static_cast<std::uint64_t>(begin.time_since_epoch().count()));
    Desk desk;
    bool asked = true;
    const std::shared_ptr<const character::CharacterData> borrowed(std::shared_ptr<void>(), &data);
    character::Stage stage(borrowed, {desk, balloon, sounds, voice, chance, [&asked] { asked = true; },
                                      [] {
                                          return character::TimeOfYear{1, 15};
                                      }});
    stage.show(character::Manner::Fast);
    character::Wake wake;
    while (asked || (wake && *wake < begin + kMinute)) {
        desk.now = std::exchange(asked, false) ? desk.now : *wake;
        wake = stage.advance(desk.now);
        while (stage.takeEvent())
            ;
    }
    std::vector<Desk::Shot> seen = std::exchange(desk.shots, {});
    const auto first =
        std::find_if(seen.begin(), seen.end(), [begin](auto& shot) { return shot.at > begin; });
    if (first - seen.begin() > 1)
        seen.erase(seen.begin(), first - 1);
    if (!seen.empty())
        seen.front().at = begin;
    return seen;
}

/// What each frame belongs to.
std::map<const Frame*, QString> titles(const character::CharacterData& data) {
    std::map<const Frame*, QString> result;
    for (const character::Animation& animation : data.animations)
        for (std::size_t i = 0; i < animation.frames.size(); ++i)
            result[&animation.frames[i]] =
                QString::fromStdString(animation.name) + QLatin1Char(' ') + QString::number(i);
    return result;
}

} // namespace

void writeRest(const character::CharacterData& data, int minute, const QString& sheet, const QString& film,
               Problems& problems) {
    const Moment begin = Moment{} + (minute - 1) * kMinute;
    const std::vector<Desk::Shot> shots = watch(data, begin);
    const auto names = titles(data);
    const QSize cell(data.width + 2, data.height + kLabel);
    const int rows = (static_cast<int>(shots.size()) + kColumns - 1) / kColumns;
    QImage picture(kColumns * cell.width(), std::max(rows, 1) * cell.height(), QImage::Format_RGB32);
    picture.fill(kBehind);
    QPainter painter(&picture);
    QFont font = painter.font();
    font.setPixelSize(kLabel - 2);
    painter.setFont(font);
    character::ImageStore images(data.images);
    character::FramePainter frames(data, images);
    character::Bitmap canvas;
    MovingPng moving;
    for (std::size_t i = 0; i < shots.size(); ++i) {
        const Moment until = i + 1 < shots.size() ? shots[i + 1].at : begin + kMinute;
        const auto name = names.find(shots[i].frame);
        const auto since = static_cast<double>((shots[i].at - begin).count()) / 1000;
        frames.paint(*shots[i].frame, nullptr, canvas);
        moving.add(canvas, static_cast<int>((until - shots[i].at).count() / 10));
        const int number = static_cast<int>(i);
        const QPoint corner(number % kColumns * cell.width(), number / kColumns * cell.height());
        painter.drawImage(corner, imageOf(canvas));
        painter.drawText(QRect(corner + QPoint(2, data.height), QSize(data.width, kLabel)),
                         Qt::TextSingleLine,
                         QString::number(since, 'f', 2) + QLatin1Char(' ') +
                             (name == names.end() ? QString() : name->second));
    }
    painter.end();
    savePicture(picture, sheet, problems);
    if (!film.isEmpty())
        moving.save(film, problems);
}

} // namespace brovin::acsc
