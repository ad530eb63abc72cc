#include "language/language_loader.h"

#include "language/language_file.h"
#include "text/numbers.h"
#include "text/strings.h"

#include <vector>

namespace brovin::language {

void LanguageLoader::lstLang_Click() {
    loadLanguage();
    loaded();
}

void LanguageLoader::loadLanguage() {
    const auto selected = needs_.catalogue.selectedFile();
    const std::string file = selected.value_or(std::string());
    if (selected)
        needs_.settings.write(settings::setting::kLanguage, file);
    needs_.tables = {};
    needs_.form.cmbDudeSex.clear();
    needs_.form.cmbCheck.clear();
    if (const auto bytes = needs_.folder.read(file, kLargestFile))
        for (const std::string& line : linesOf(*bytes))
            if (const auto keyed = keyedLine(line))
                applyLine(keyed->key, keyed->value);
    if (needs_.form.cmbDudeSex.count() == 0 || needs_.form.cmbCheck.count() == 0)
        askAfterBrokenFile(file);
}

void LanguageLoader::applyLine(std::string_view key, std::string_view value) {
    if (const auto list = phraseListOf(key))
        needs_.tables.append(*list, value);
    else if (key == "modeid")
        needs_.tables.langModeId = value;
    else if (key == "languageid")
        needs_.tables.langLanguageId = value;
    else if (key == "envButtons")
        applyTabCaptions(value);
    else if (key == "envDudeOptions")
        fill(needs_.form.cmbDudeSex, value, settings::setting::kDudeSex);
    else if (key == "envCheckOptions")
        fill(needs_.form.cmbCheck, value, settings::setting::kCheckFreq);

    if (key.starts_with("lbl"))
        applyCaption(key.substr(3), value);
    constexpr std::string_view kText = "text.";
    if (key.starts_with(kText))
        needs_.tables.messageTable.setText(key.substr(kText.size()), value);
    if (!key.starts_with("dlg"))
        return;
    if (const auto number = text::leadingInt32(key.substr(3)))
        needs_.tables.messageTable.set(*number, value);
}

void LanguageLoader::applyTabCaptions(std::string_view captions) {
    std::size_t tab = 0;
    for (const std::string_view piece : text::split(captions, ',')) {
        if (tab == ui::FrmOptions::kTabs)
            return;
        ui::Image& image = needs_.form.imgTabs[tab];
        ui::Label& label = needs_.form.lblTabs[tab];
        const std::string caption = needs_.letters.properCase(piece);
        image.setPicture("img" + std::to_string(tab));
        image.setCaption(caption); // a picture shows no caption, but tells it to a screen reader
        image.setToolTip(caption);
        image.setHand(true);
        label.setCaption(caption);
        label.setToolTip(caption);
        label.setHand(true);
        ++tab;
    }
}

void LanguageLoader::fill(ui::ComboBox& list, std::string_view entries, const settings::Setting& selection) {
    // Pieces are added to what an earlier line of the file has put there.
    auto items = list.items();
    for (const std::string_view piece : text::split(entries, ','))
        items.push_back({std::string(piece), 0});
    list.setItems(std::move(items));
    if (const auto index = text::leadingInt16(needs_.settings.read(selection)))
        list.select(*index);
}

void LanguageLoader::applyCaption(std::string_view controlName, std::string_view caption) {
    ui::Control* control = needs_.form.find(controlName);
    if (control == nullptr || control == &needs_.form.window) // its title is the statistics
        return;
    control->setCaption(std::string(caption));
    control->setToolTip(text::replaceAll(caption, "&", ""));
}

void LanguageLoader::askAfterBrokenFile(const std::string& file) {
    const platform::Button answer = needs_.dialogs.messageBox(
        "An error occurred loading your language file - you may need to download an update for " + file +
            ".\r\n\r\nClick OK to load the default language or Cancel to quit.",
        platform::box::kOkCancel | platform::box::kExclamation, "Language error");
    if (answer != platform::Button::Ok)
        quit();
    else
        needs_.form.lstLang.select(0); // always the first entry, whichever file it stands for
}

} // namespace brovin::language
