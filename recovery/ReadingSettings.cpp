#include "recovery/ReadingSettings.h"

#include <utility>

namespace quarnel {

ReadingSettings SettingsOf(const ProjectState& state) {
    return {state.RecDatDataTypeDDL,        state.RecDatSlugTestTypeDDL, state.RecDatTimeUnitsDDL,
            state.RecDatWaterLevelUnitsDDL, state.RecDatPreSlugHeadText, state.IgnoreKeyList};
}

void ExchangeSettings(ProjectState& state, ReadingSettings& settings) noexcept {
    std::swap(state.RecDatDataTypeDDL, settings.dataType);
    std::swap(state.RecDatSlugTestTypeDDL, settings.slugTestType);
    std::swap(state.RecDatTimeUnitsDDL, settings.timeUnit);
    std::swap(state.RecDatWaterLevelUnitsDDL, settings.levelUnit);
    std::swap(state.RecDatPreSlugHeadText, settings.preSlugText);
    std::swap(state.IgnoreKeyList, settings.ignoreKeys);
}

} // namespace quarnel
