#pragma once

#include <QString>
#include <QTranslator>

namespace brovin::desktop {

/// The language of what the toolkit itself says: the buttons of message boxes and the dialogs of files.
class ToolkitLanguage {
public:
    /// The toolkit's translations are looked for in this folder; empty: where the toolkit has them.
    explicit ToolkitLanguage(QString folder = {});
    ToolkitLanguage(const ToolkitLanguage&) = delete;
    ToolkitLanguage& operator=(const ToolkitLanguage&) = delete;

    /// By a Windows language identifier, as a language file has it. English where the toolkit has no
    /// translation, or this machine does not have it.
    void speak(long languageId);

private:
    QString folder_;
    QTranslator translator_; ///< takes itself out when it ends
};

} // namespace brovin::desktop
