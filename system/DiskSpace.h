#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quarnel {

/// Bytes that this user may still write in `folder` (the name's own bytes); nothing where the
/// system does not say.
std::optional<std::uint64_t> FreeDiskSpace(const std::string& folder);

} // namespace quarnel
