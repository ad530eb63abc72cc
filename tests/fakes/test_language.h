#pragma once

#include <string>

namespace brovin::fakes {

/// A small language file in which each message tells its number and its arguments.
inline std::string testLanguage() {
    std::string file = "language=Test\nlanguageDesc=for tests\nlangversion=1.5\n"
                       "envButtons=folders,nasty files,scanning,character,speech,reminders,program,about\n"
                       "envDudeOptions=both,male,female\n"
                       "envCheckOptions=day,week,two weeks,month\n"
                       "spkDudeM=Squire\nspkDudeF=Lady\nlblcmdNuke=&Scan NOW\n";
    for (int i = 0; i <= 77; ++i)
        file += "dlg" + std::to_string(i) + "=m" + std::to_string(i) + "(%1,%2)\n";
    return file;
}

} // namespace brovin::fakes
