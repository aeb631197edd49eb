#pragma once

#include "loggerfiles/LoggerRecord.h"

#include <string_view>

namespace quarnel {

/// A kind of channel as people read it: "depth to water".
std::string_view ChannelKindText(ChannelKind kind);

/// The same as other programs read it: "depth_to_water".
std::string_view ChannelKindKey(ChannelKind kind);

} // namespace quarnel
