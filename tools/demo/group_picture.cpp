#include "group_picture.h"

#include "character/acs_reader.h"
#include "character/bitmap.h"
#include "character/image_store.h"

#include <QFile>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

namespace brovin::tools {
namespace {

constexpr QSize kGroup{640, 170};
constexpr int kGround = 156; ///< where they stand
constexpr QColor kWall{0xe4, 0xeb, 0xf2};

struct Member {
    const char* file;
    std::string_view animation;
};
constexpr Member kMembers[] = {
    {"peedy.acs", "Wave"}, {"merlin.acs", "Congratulate"}, {"genie.acs", "Explain"}, {"robby.acs", "Wave"}};

/// The frame on which an animation stands, and from which the character speaks.
const character::Frame* standsOn(const character::CharacterData& data, std::string_view name) {
    for (const character::Animation& animation : data.animations)
        if (animation.name == name)
            for (const character::Frame& frame : animation.frames)
                if (!frame.mouths.empty())
                    return &frame;
    return nullptr;
}

bool drawMember(const QString& path, std::string_view animation, QPoint feet, QPainter& painter) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    const auto data = character::readCharacter(
        character::SharedBytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end())));
    const character::Frame* const frame = data ? standsOn(*data, animation) : nullptr;
    if (frame == nullptr)
        return false;
    character::ImageStore images(data->images);
    character::Bitmap canvas;
    const auto laughing = std::find_if(frame->mouths.begin(), frame->mouths.end(), [](const auto& overlay) {
        return overlay.mouth == character::Mouth::OpenWide2;
    });
    character::FramePainter(*data, images)
        .paint(*frame, laughing == frame->mouths.end() ? nullptr : &*laughing, canvas);
    painter.drawImage(feet - QPoint(canvas.width / 2, canvas.height),
                      QImage(reinterpret_cast<const uchar*>(canvas.pixels.data()), canvas.width,
                             canvas.height, QImage::Format_ARGB32));
    return true;
}

} // namespace

bool drawGroup(const QString& characters, const QString& file) {
    QImage group(kGroup, QImage::Format_RGB32);
    group.fill(kWall);
    QPainter painter(&group);
    const int room = kGroup.width() / static_cast<int>(std::size(kMembers));
    QPoint feet(room / 2, kGround);
    for (const Member& member : kMembers) {
        if (!drawMember(characters + QLatin1Char('/') + QLatin1String(member.file), member.animation, feet,
                        painter))
            return false;
        feet.rx() += room;
    }
    painter.end();
    return group.save(file);
}

} // namespace brovin::tools
