#include "desktop/widgets/movie.h"

#include "posix/places.h"

#include <QFile>

#include <dlfcn.h>

namespace brovin::desktop {
namespace {

using Decode = void (*)(const QString& path, Movie& movie);

/// Null: the module, or a library that it needs, is not installed. Once loaded it stays.
Decode decoder() {
    static void* const module =
        ::dlopen(posix::moduleFile(BROVIN_MOVIE_MODULE).c_str(), RTLD_NOW | RTLD_LOCAL);
    return module == nullptr ? nullptr : reinterpret_cast<Decode>(::dlsym(module, "brovinDecodeMovie"));
}

} // namespace

Movie readMovie(const QString& path) {
    Movie movie;
    if (const Decode decode = QFile::exists(path) ? decoder() : nullptr)
        decode(path, movie);
    return movie;
}

} // namespace brovin::desktop
