#pragma once

#include <string>

struct statfs;

namespace brovin::posix {

/// Whether the numbers of entries last as long as the entries do. A disk that a program makes may give a file
/// another one whenever it is looked at, and one of the FAT family has none of its own.
[[nodiscard]] bool numbersLast(const struct statfs& disk);

/// What a disk was named by chance when it was formatted, so that it is known whatever its device number, and
/// another one, or the same one formatted anew, is told from it. `device` is the number that it has at this
/// moment. "": the system does not tell.
[[nodiscard]] std::string diskName(const struct statfs& disk, unsigned long device);

} // namespace brovin::posix
