#include "system/DiskSpace.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace quarnel {
namespace {

TEST(FreeDiskSpace, IsWhatTheSystemSays) {
    const std::string folder = std::filesystem::temp_directory_path().string();
    const auto space = FreeDiskSpace(folder);
    ASSERT_TRUE(space.has_value());
    // Others write meanwhile.
    constexpr double Drift = 1e9;
    EXPECT_NEAR(static_cast<double>(*space),
                static_cast<double>(std::filesystem::space(folder).available), Drift);
}

TEST(FreeDiskSpace, IsUnknownWhereThereIsNoFolder) {
    EXPECT_FALSE(FreeDiskSpace("/no/such/folder").has_value());
}

} // namespace
} // namespace quarnel
