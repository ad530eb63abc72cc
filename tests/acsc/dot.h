#pragma once

#include "acsc/file/compile.h"
#include "acsc/problems.h"
#include "acsc/sources/character_source.h"
#include "character/bitmap.h"
#include "character/character_data.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace brovin::acsc::tests {

/// A copy of the character Dot, a circle with an arm, that a test can spoil.
class DotFolder {
public:
    DotFolder();
    [[nodiscard]] QString path(const QString& name = {}) const;
    /// Replaces the first `text` of a file, which must be there.
    void replace(const QString& file, const QString& text, const QString& by);
    [[nodiscard]] CharacterSource read(Problems& problems) const {
        return readCharacterSource(path(), problems);
    }
    /// All problems in one text; empty: it compiles.
    [[nodiscard]] QString problems() const;
    /// Fails the test where there are problems.
    [[nodiscard]] character::CharacterData compile() const;

private:
    QTemporaryDir folder_;
};

[[nodiscard]] const character::Animation& animation(const character::CharacterData& data, const char* name);
[[nodiscard]] character::Bitmap painted(const character::CharacterData& data, const character::Frame& frame,
                                        const character::MouthOverlay* mouth = nullptr);
[[nodiscard]] QByteArray contentOf(const QString& path);

} // namespace brovin::acsc::tests
