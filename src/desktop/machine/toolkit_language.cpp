#include "desktop/machine/toolkit_language.h"

#include "text/language_ids.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include <utility>

namespace brovin::desktop {

ToolkitLanguage::ToolkitLanguage(QString folder)
    : folder_(folder.isEmpty() ? QLibraryInfo::path(QLibraryInfo::TranslationsPath) : std::move(folder)) {}

void ToolkitLanguage::speak(long languageId) {
    QCoreApplication::removeTranslator(&translator_);
    const auto tag = text::languageTag(languageId);
    if (!tag)
        return;
    // By its locale and not by its name alone, so that "pt-br" finds "qtbase_pt_BR" and "de-at" "qtbase_de".
    const QLocale locale(QString::fromStdString(*tag).replace(QLatin1Char('-'), QLatin1Char('_')));
    if (translator_.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), folder_))
        QCoreApplication::installTranslator(&translator_);
}

} // namespace brovin::desktop
