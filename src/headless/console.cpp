#include "headless/console.h"

#include "text/strings.h"

#include <istream>
#include <ostream>
#include <string>

namespace brovin::headless {

namespace box = platform::box;
using platform::Button;

bool ConsoleDialogs::comesAnswer() const {
    return !console_.waitForAnswer || console_.in.rdbuf()->in_avail() > 0 || console_.waitForAnswer();
}

Button ConsoleDialogs::messageBox(const std::string& text, platform::BoxStyle style,
                                  const std::string& title) {
    const int buttons = style & box::kButtons;
    const std::string question = text::replaceAll(text, "\r\n", "\n");
    if (!title.empty())
        console_.err << title << ": ";
    console_.err << question;
    if (buttons == box::kOk) {
        console_.err << "\n";
        return Button::Ok;
    }
    const bool yesNo = buttons == box::kYesNo;
    std::string answer;
    console_.err << (yesNo ? " [y/N] " : " [o/C] ") << std::flush;
    if (!console_.interactive || !comesAnswer() || !std::getline(console_.in, answer)) {
        console_.err << "\n";
        ++unanswered_;
    }
    const std::string lowered = text::asciiLower(text::trim(answer));
    if (yesNo)
        return lowered == "y" || lowered == "yes" ? Button::Yes : Button::No;
    return lowered == "o" || lowered == "ok" ? Button::Ok : Button::Cancel;
}

} // namespace brovin::headless
