#pragma once

#include <QString>

#include <string>

namespace brovin::desktop {

/// The program's text for the screen; bytes that are not UTF-8 become U+FFFD.
inline QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

/// A text of several lines, whose CR LF become the line ends that widgets know.
inline QString qtLines(const std::string& text) {
    return qt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

/// A text without the "&" of its mnemonic.
inline QString withoutMnemonic(QString text) {
    return text.remove(QLatin1Char('&'));
}

/// A tool tip that shows the text as it stands, whatever a file's name may look like.
inline QString plainToolTip(const std::string& text) {
    return text.empty() ? QString() : QStringLiteral("<span>%1</span>").arg(qtLines(text).toHtmlEscaped());
}

} // namespace brovin::desktop
