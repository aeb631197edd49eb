#include "loggerfiles/KindNames.h"

#include <array>

namespace quarnel {

namespace {

struct KindName {
    std::string_view text;
    std::string_view key;
};

/// By ChannelKind.
constexpr std::array<KindName, 6> Names = {{{"level", "level"},
                                            {"depth to water", "depth_to_water"},
                                            {"change in head", "change_in_head"},
                                            {"pressure", "pressure"},
                                            {"temperature", "temperature"},
                                            {"other", "other"}}};

const KindName& NameOf(ChannelKind kind) {
    return Names[static_cast<std::size_t>(kind)];
}

} // namespace

std::string_view ChannelKindText(ChannelKind kind) {
    return NameOf(kind).text;
}

std::string_view ChannelKindKey(ChannelKind kind) {
    return NameOf(kind).key;
}

} // namespace quarnel
