#pragma once

#include "fakes/fake_machine.h"
#include "language/language.h"

#include <string>

namespace brovin::language {

/// The languages on a machine in memory: picking an entry of `lstLang` loads it.
struct LanguageWorld : fakes::FakeMachine {
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
    Language language{{form, options, folder, dialogs, letters}};
    LanguageTables& tables = language.tables;
    LanguageCatalogue& catalogue = language.catalogue;
    LanguageLoader& loader = language.loader;
};

} // namespace brovin::language
