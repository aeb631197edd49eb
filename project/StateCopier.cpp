#include "project/StateCopier.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace quarnel {

namespace {

/// So many are copied within a millisecond, even where each has memory of its own.
constexpr std::size_t PieceSize = 1024;

template <class State> auto TextsOf(State& state) {
    return std::tie(state.SiteIDText, state.WellTestIDTxt, state.VolumeOfSlugText,
                    state.WellGeoText, state.WellGeoVertUnitsDDL, state.WellGeoRadUnitsDDL,
                    state.SSRibbon1Pressed, state.RecDatTimeUnitsDDL,
                    state.RecDatWaterLevelUnitsDDL, state.RecDatDataTypeDDL,
                    state.RecDatSlugTestTypeDDL, state.RecDatPreSlugHeadText, state.PlotText,
                    state.CmboKTimeUnits, state.CmboKLengthUnits);
}

/// Copies piece `count` of `all`, if there is one.
template <class Item>
bool CopyNext(const std::vector<Item>& all, std::vector<std::vector<Item>>& pieces,
              std::size_t& count) {
    const std::size_t first = count * PieceSize;
    if (first >= all.size())
        return false;
    if (count == pieces.size())
        pieces.emplace_back();
    const auto start = std::next(all.begin(), static_cast<std::ptrdiff_t>(first));
    pieces[count].assign(start, std::next(start, static_cast<std::ptrdiff_t>(
                                                     std::min(PieceSize, all.size() - first))));
    ++count;
    return true;
}

/// Moves the pieces into one, each of them freed before the next.
template <class Item> void JoinInto(std::vector<Item>& all, std::vector<std::vector<Item>> pieces) {
    all.clear();
    all.reserve(pieces.size() * PieceSize);
    for (std::vector<Item>& piece : pieces) {
        std::move(piece.begin(), piece.end(), std::back_inserter(all));
        piece = {};
    }
}

} // namespace

ProjectState WithoutReadings(const ProjectState& state) {
    ProjectState texts;
    TakeTexts(state, texts);
    return texts;
}

bool HaveSameTexts(const ProjectState& a, const ProjectState& b) {
    return TextsOf(a) == TextsOf(b);
}

void TakeTexts(const ProjectState& texts, ProjectState& state) {
    TextsOf(state) = TextsOf(texts);
}

ProjectState CopiedState::Join() {
    ProjectState state = std::move(texts);
    JoinInto(state.RecDatGrid, std::exchange(rows, {}));
    JoinInto(state.IgnoreKeyList, std::exchange(keys, {}));
    return state;
}

void StateCopier::Start(const ProjectState& state) {
    rowCount_ = state.RecDatGrid.size();
    keyCount_ = state.IgnoreKeyList.size();
    rowPieces_ = 0;
    keyPieces_ = 0;
    isCopying_ = true;
}

bool StateCopier::CopyPiece(const ProjectState& state) {
    if (state.RecDatGrid.size() != rowCount_ || state.IgnoreKeyList.size() != keyCount_)
        Start(state);
    if (CopyNext(state.RecDatGrid, copy_.rows, rowPieces_) ||
        CopyNext(state.IgnoreKeyList, copy_.keys, keyPieces_))
        return false;
    copy_.rows.resize(rowPieces_);
    copy_.keys.resize(keyPieces_);
    copy_.texts = WithoutReadings(state);
    return true;
}

CopiedState StateCopier::Take() {
    isCopying_ = false;
    return std::exchange(copy_, CopiedState());
}

} // namespace quarnel
