#include "system/Wildcards.h"

#include <glob.h>

namespace quarnel {

bool HasWildcards(const std::string& path) {
    return path.find_first_of("*?[") != std::string::npos;
}

std::vector<std::string> PathsMatching(const std::string& pattern) {
    std::vector<std::string> paths;
    glob_t matches{};
    if (glob(pattern.c_str(), GLOB_NOSORT, nullptr, &matches) == 0)
        paths.assign(matches.gl_pathv, matches.gl_pathv + matches.gl_pathc);
    globfree(&matches);
    return paths;
}

} // namespace quarnel
