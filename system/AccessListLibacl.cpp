// Access lists by libacl (POSIX.1e draft 17).

#include "system/FileAccessPosix.h"

#include <acl/libacl.h>
#include <cerrno>
#include <memory>
#include <sys/acl.h>

namespace quarnel {

namespace {

struct ListFreer {
    void operator()(acl_t list) const { acl_free(list); }
};
using List = std::unique_ptr<std::remove_pointer_t<acl_t>, ListFreer>;

bool SystemKnowsNoLists() {
    return errno == ENOTSUP || errno == EOPNOTSUPP || errno == ENOSYS;
}

} // namespace

bool RemoveAccessList(int file) {
    // Permissions come after this; until then the file is its owner's alone.
    const List plain(acl_from_mode(0600));
    return plain && (acl_set_fd(file, plain.get()) == 0 || SystemKnowsNoLists());
}

AccessList CopyAccessList(int file, const std::string& original) {
    const List list(acl_get_file(original.c_str(), ACL_TYPE_ACCESS));
    if (!list)
        return SystemKnowsNoLists() && RemoveAccessList(file) ? AccessList::None : AccessList::Lost;
    mode_t mode = 0;
    const int beyondPermissions = acl_equiv_mode(list.get(), &mode);
    if (beyondPermissions < 0)
        return AccessList::Lost;
    if (beyondPermissions == 0)
        return RemoveAccessList(file) ? AccessList::None : AccessList::Lost;
    return acl_set_fd(file, list.get()) == 0 ? AccessList::Copied : AccessList::Lost;
}

} // namespace quarnel
