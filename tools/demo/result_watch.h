#pragma once

#include <QElapsedTimer>
#include <QString>

#include <optional>

namespace brovin::tools {

/// Waits for what the program says at the end of a scan, in a box or by its character.
class ResultWatch {
public:
    /// To be called a few times in a second. What was said, when it has been said to its end. `scanned`: the
    /// scan is over, so that a balloon tells its result and no greeting.
    [[nodiscard]] std::optional<QString> look(bool scanned);

private:
    QString saying_;
    QElapsedTimer unchanged_;
};

} // namespace brovin::tools
