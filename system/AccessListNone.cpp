// For a build without libacl: access lists are seen but not copied.

#include "system/FileAccessPosix.h"

#ifdef __linux__
#include <cerrno>
#include <sys/xattr.h>

namespace quarnel {

namespace {
constexpr const char* ListAttribute = "system.posix_acl_access";

bool ThereIsNone() {
    return errno == ENODATA || errno == ENOTSUP || errno == ENOSYS;
}

} // namespace

bool RemoveAccessList(int file) {
    return fremovexattr(file, ListAttribute) == 0 || ThereIsNone();
}

AccessList CopyAccessList(int file, const std::string& original) {
    const bool none = getxattr(original.c_str(), ListAttribute, nullptr, 0) < 0 && ThereIsNone();
    return none && RemoveAccessList(file) ? AccessList::None : AccessList::Lost;
}

} // namespace quarnel
#else
namespace quarnel {

bool RemoveAccessList(int) {
    return true;
}

AccessList CopyAccessList(int, const std::string&) {
    return AccessList::None;
}

} // namespace quarnel
#endif
