#pragma once

#include "fakes/fake_machine.h"
#include "language/language_catalogue.h"
#include "language/language_loader.h"

#include <string>

namespace brovin::language {

/// The languages on a machine in memory: picking an entry of `lstLang` loads it.
struct LanguageWorld : fakes::FakeMachine {
    LanguageWorld() {
        form.lstLang.click = [this] { loader.lstLang_Click(); };
    }
    /// Installs a language file with these lines behind the ones that every file needs.
    void install(const std::string& name, const std::string& lines) {
        folder.files[name] = "language=A\nlanguageDesc=b\nlangversion=1\n" + lines;
        catalogue.buildLanguageCatalogue();
    }
    /// Loads a file with these lines that has the two drop-down lists too.
    void load(const std::string& lines) {
        install("default.blp", "envDudeOptions=both,male,female\nenvCheckOptions=day,week,month\n" + lines);
        form.lstLang.select(0);
    }

    ui::FrmOptions form;
    settings::Settings options{settings};
    LanguageTables tables;
    LanguageCatalogue catalogue{form, folder};
    LanguageLoader loader{{form, options, catalogue, tables, folder, dialogs, regional}};
};

} // namespace brovin::language
