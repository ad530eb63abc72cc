#pragma once

#include <string>

namespace brovin::platform {

/// What the program asks of the desktop around it.
class Shell {
public:
    virtual ~Shell() = default;

    /// Opens a document with the user's own program for it. False: there is none, or the file is missing.
    virtual bool openDocument(const std::string& path) = 0;

    /// Brings the options window in front of the others and gives it the keyboard.
    virtual void setForegroundWindow() = 0;

    /// Ends the program as soon as the running handler has returned.
    virtual void endProgram() = 0;
};

} // namespace brovin::platform
