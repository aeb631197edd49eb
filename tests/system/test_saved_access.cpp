// Who may read and write a file after it was replaced: whoever might before, and nobody else.

#include "system/ReplaceFile.h"

#include "tests/system/SaveTestSupport.h"

#include <cerrno>
#include <cstdint>
#include <grp.h>
#include <optional>
#include <sys/xattr.h>

namespace quarnel::test {

namespace {

constexpr const char* AccessListName = "system.posix_acl_access";
constexpr const char* FolderListName = "system.posix_acl_default";

enum Tag : std::uint16_t { Owner = 1, User = 2, Group = 4, Mask = 0x10, Others = 0x20 };
constexpr std::uint32_t NoId = 0xFFFFFFFF;
constexpr std::uint32_t SomeUser = 12345;

struct ListEntry {
    std::uint16_t tag;
    std::uint16_t permissions;
    std::uint32_t id;
};

/// An access list as the system keeps it: little-endian, version 2.
std::string List(const std::vector<ListEntry>& entries) {
    std::string bytes;
    const auto put = [&bytes](std::uint32_t number, int size) {
        for (int i = 0; i < size; ++i)
            bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFFU));
    };
    put(2, 4);
    for (const ListEntry& entry : entries) {
        put(entry.tag, 2);
        put(entry.permissions, 2);
        put(entry.id, 4);
    }
    return bytes;
}

/// user:SomeUser:rw, group::---, mask::rw: the permissions look like 0660.
std::string OneUsersList() {
    return List({{Owner, 6, NoId},
                 {User, 6, SomeUser},
                 {Group, 0, NoId},
                 {Mask, 6, NoId},
                 {Others, 0, NoId}});
}

std::string Attribute(const std::string& path, const char* name) {
    char value[1024];
    const ssize_t size = getxattr(path.c_str(), name, value, sizeof value);
    return size < 0 ? "" : std::string(value, static_cast<std::size_t>(size));
}

bool SetAttribute(const std::string& path, const char* name, const std::string& value) {
    return setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

/// A group that this process may pass a file to, other than its own.
std::optional<gid_t> AnotherGroup() {
    constexpr gid_t AnyGroup = 54321;
    if (geteuid() == 0)
        return AnyGroup;
    std::vector<gid_t> groups(256);
    const int count = getgroups(static_cast<int>(groups.size()), groups.data());
    for (int i = 0; i < count; ++i)
        if (groups[static_cast<std::size_t>(i)] != getegid())
            return groups[static_cast<std::size_t>(i)];
    return std::nullopt;
}

class SavedAccess : public SaveTest {
protected:
    void SetUp() override {
        SaveTest::SetUp();
        Write(Path("a"), "old");
        Write(Beside("new"), "new");
    }
    struct stat Now() const {
        struct stat info {};
        EXPECT_EQ(stat(Path("a").c_str(), &info), 0);
        return info;
    }
    void Save() const { EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::None); }
    /// Saves where every call of that name is refused.
    void SaveWithout(const std::string& call) const {
        const Environment settings = {{"QUARNEL_FAIL_NAME", call},
                                      {"QUARNEL_FAIL_ERRNO", std::to_string(EPERM)}};
        EXPECT_EQ(
            Finish(Start({QUARNEL_REPLACE_DRIVER, Beside("new"), Path("a")}, Failing(settings))),
            0);
        EXPECT_EQ(Read(Path("a")), "new");
    }
    void SetMode(mode_t mode) const { ASSERT_EQ(chmod(Path("a").c_str(), mode), 0); }
    void ReplaceWithNew() const {
        std::filesystem::remove(Path("a"));
        Write(Path("a"), "old");
    }
};

} // namespace

TEST_F(SavedAccess, OwnerAndGroupAreKept) {
    // Only the administrator can give a file away; anybody else's is his own.
    const uid_t owner = geteuid() == 0 ? SomeUser : geteuid();
    const std::optional<gid_t> group = AnotherGroup();
    ASSERT_TRUE(group) << "needs the administrator or a user of two groups";
    ASSERT_EQ(chown(Path("a").c_str(), owner, *group), 0);
    SetMode(0664);
    Save();
    EXPECT_EQ(Now().st_uid, owner);
    EXPECT_EQ(Now().st_gid, *group);
    EXPECT_EQ(ModeOf(Path("a")), 0664U);
}

// Two people of one group save each other's files.
TEST_F(SavedAccess, GroupIsKeptWhereTheOwnerCannotBe) {
    const std::optional<gid_t> group = AnotherGroup();
    ASSERT_TRUE(group) << "needs the administrator or a user of two groups";
    ASSERT_EQ(chown(Path("a").c_str(), static_cast<uid_t>(-1), *group), 0);
    SetMode(0664);
    if (geteuid() == 0) {
        for (const auto& folder : {root_, root_ / "projects"})
            ASSERT_EQ(chmod(folder.c_str(), 0777), 0);
        const pid_t colleague = fork();
        if (colleague == 0) {
            const bool changed =
                setgroups(1, &*group) == 0 && setgid(SomeUser) == 0 && setuid(SomeUser) == 0;
            _exit(changed && SaveFileBytes(Path("a"), "new") == FileFailure::None ? 0 : 1);
        }
        EXPECT_EQ(Finish(colleague), 0);
        EXPECT_EQ(Now().st_uid, SomeUser);
    } else {
        Save();
    }
    EXPECT_EQ(Read(Path("a")), "new");
    EXPECT_EQ(Now().st_gid, *group);
    EXPECT_EQ(ModeOf(Path("a")), 0664U);
}

TEST_F(SavedAccess, WhereTheGroupCannotBeKeptNobodyIsGrantedMore) {
    const std::optional<gid_t> group = AnotherGroup();
    ASSERT_TRUE(group) << "needs the administrator or a user of two groups";
    for (const auto& [before, after] :
         {std::pair(0660U, 0600U), std::pair(0664U, 0644U), std::pair(0606U, 0600U),
          std::pair(0666U, 0666U), std::pair(0646U, 0644U), std::pair(0751U, 0711U)}) {
        ReplaceWithNew();
        ASSERT_EQ(chown(Path("a").c_str(), static_cast<uid_t>(-1), *group), 0);
        SetMode(before);
        SaveWithout("fchown");
        EXPECT_NE(Now().st_gid, *group);
        EXPECT_EQ(ModeOf(Path("a")), after) << std::oct << before;
    }
}

TEST_F(SavedAccess, RunningAsOwnerOrGroupIsNotCopied) {
    for (const mode_t mode : {06755U, 04755U, 02755U, 01755U}) {
        ReplaceWithNew();
        SetMode(mode);
        Save();
        EXPECT_EQ(ModeOf(Path("a")), 0755U) << std::oct << mode;
    }
}

TEST_F(SavedAccess, AccessListIsKeptOrNarrowed) {
    ASSERT_TRUE(SetAttribute(Path("a"), AccessListName, OneUsersList()));
    ASSERT_EQ(ModeOf(Path("a")), 0660U);
    Save();
#ifdef QUARNEL_HAS_LIBACL
    EXPECT_EQ(Attribute(Path("a"), AccessListName), OneUsersList());
    EXPECT_EQ(ModeOf(Path("a")), 0660U);
#else
    EXPECT_EQ(Attribute(Path("a"), AccessListName), "");
    EXPECT_EQ(ModeOf(Path("a")), 0600U);
#endif
}

TEST_F(SavedAccess, AccessListThatCannotBeKeptLeavesTheOwnerAlone) {
    for (const char* call : {"fsetxattr", "getxattr"}) {
        ReplaceWithNew();
        ASSERT_TRUE(SetAttribute(Path("a"), AccessListName, OneUsersList()));
        SaveWithout(call);
        EXPECT_EQ(Attribute(Path("a"), AccessListName), "") << call;
        EXPECT_EQ(ModeOf(Path("a")), 0600U) << call;
    }
}

// The list names the owning group's rights, which would be another group's.
TEST_F(SavedAccess, AccessListOfAnotherGroupIsNotKept) {
    const std::optional<gid_t> group = AnotherGroup();
    ASSERT_TRUE(group) << "needs the administrator or a user of two groups";
    ASSERT_EQ(chown(Path("a").c_str(), static_cast<uid_t>(-1), *group), 0);
    ASSERT_TRUE(SetAttribute(Path("a"), AccessListName, OneUsersList()));
    SaveWithout("fchown");
    EXPECT_EQ(Attribute(Path("a"), AccessListName), "");
    EXPECT_EQ(ModeOf(Path("a")), 0600U);
}

// A folder's list for new files is for new files.
TEST_F(SavedAccess, ListOfTheFolderIsNotGivenToAReplacedFile) {
    SetMode(0660);
    ASSERT_TRUE(SetAttribute(Path(""), FolderListName, OneUsersList()));
    Save();
    EXPECT_EQ(Attribute(Path("a"), AccessListName), "");
    EXPECT_EQ(ModeOf(Path("a")), 0660U);
    EXPECT_EQ(SaveFileBytes(Path("b"), "new"), FileFailure::None);
    EXPECT_NE(Attribute(Path("b"), AccessListName), "");
}

TEST_F(SavedAccess, ListOfTheFolderThatStaysGrantsNobodyAnything) {
    SetMode(0660);
    ASSERT_TRUE(SetAttribute(Path(""), FolderListName, OneUsersList()));
#ifdef QUARNEL_HAS_LIBACL
    SaveWithout("fsetxattr");
#else
    SaveWithout("fremovexattr");
#endif
    EXPECT_EQ(ModeOf(Path("a")), 0600U);
}

TEST_F(SavedAccess, AttributesOfTheUserAreKept) {
    ASSERT_TRUE(SetAttribute(Path("a"), "user.comment", "well 4") || errno == ENOTSUP);
    SetAttribute(Path("a"), "user.empty", "");
    SetAttribute(Path("a"), "user.bytes", std::string("\0\xFF", 2));
    const auto attributes = [this] {
        return std::vector<std::string>{Attribute(Path("a"), "user.comment"),
                                        Attribute(Path("a"), "user.bytes")};
    };
    const std::vector<std::string> before = attributes();
    Save();
    EXPECT_EQ(Read(Path("a")), "new");
    EXPECT_EQ(attributes(), before);
}

TEST_F(SavedAccess, KeptCopyHasTheAccessOfTheFile) {
    ASSERT_TRUE(SetAttribute(Path("a"), AccessListName, OneUsersList()));
    std::string keptAs;
    EXPECT_EQ(KeepFileBeside(Path("a"), keptAs), FileFailure::None);
    EXPECT_EQ(Attribute(keptAs, AccessListName).empty() ? 0600U : 0660U, ModeOf(keptAs));
#ifdef QUARNEL_HAS_LIBACL
    EXPECT_EQ(Attribute(keptAs, AccessListName), OneUsersList());
#endif
}

} // namespace quarnel::test
