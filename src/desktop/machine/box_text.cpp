#include "desktop/machine/box_text.h"

#include <QStringList>

#include <algorithm>

namespace brovin::desktop {

QString fittingText(const QString& text, const QFontMetrics& letters, QSize screen) {
    constexpr int kLinesOfParagraph = 5;
    const int width = std::min(screen.width() / 2, letters.averageCharWidth() * 70);
    const int mostLines = std::max(screen.height() / 2 / letters.lineSpacing(), kLinesOfParagraph + 2);
    QStringList fitting;
    int lines = 0;
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        QStringList words = paragraph.split(QLatin1Char(' '));
        for (QString& word : words)
            word = letters.elidedText(word, Qt::ElideMiddle, width);
        fitting +=
            letters.elidedText(words.join(QLatin1Char(' ')), Qt::ElideMiddle, width * kLinesOfParagraph);
        lines += 1 + letters.horizontalAdvance(fitting.back()) / width;
    }
    // The first and the last paragraphs say the most: what it is about, and what is asked.
    while (lines > mostLines && fitting.size() > 2) {
        const qsizetype middle = fitting.size() / 2;
        lines -= 1 + letters.horizontalAdvance(fitting.takeAt(middle)) / width;
        if (lines <= mostLines)
            fitting.insert(middle, QStringLiteral("\u2026"));
    }
    return fitting.join(QLatin1Char('\n'));
}

} // namespace brovin::desktop
