#include "posix/line_file.h"

#include "posix/write_all.h"

namespace brovin::posix {

platform::Status LineFile::writeLine(std::string_view line) {
    buffer_.assign(line).append("\r\n");
    return writeAll(file_.number(), buffer_);
}

} // namespace brovin::posix
