// The Use/Ignore marks: keys, what a key press does, and how marks come back.

#include "kcompute/UseIgnore.h"

#include "recovery/RecoveryDa.h"
#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using Keys = std::vector<std::string>;

struct Marked {
    ProjectState state;
    RecoveryData data;
    std::vector<Mark> marks;

    std::string Marks() const {
        std::string letters;
        for (const Mark mark : marks)
            letters += MarkText(mark).front();
        return letters;
    }
    /// What a look at another tab and back does.
    void LookAwayAndBack() {
        EXPECT_FALSE(CheckRecoveryData(state, data).IsError());
        marks = RestoredMarks(state.IgnoreKeyList, *data.RecoveryPoints);
    }
    void Press(std::size_t first, std::size_t last, MarkKey key) {
        std::vector<Mark> pressed(marks.begin() + static_cast<std::ptrdiff_t>(first),
                                  marks.begin() + static_cast<std::ptrdiff_t>(last) + 1);
        for (Mark& mark : pressed)
            mark = MarkAfter(key, mark);
        SetMarks(state.IgnoreKeyList, *data.RecoveryPoints, marks, first, pressed);
    }
};

Marked Restore(std::vector<RecoveryRow> rows, Keys keys) {
    Marked marked;
    marked.state.RecDatDataTypeDDL = ChangeInHead;
    marked.state.RecDatGrid = std::move(rows);
    marked.state.IgnoreKeyList = std::move(keys);
    marked.LookAwayAndBack();
    return marked;
}

TEST(MarkText, IsUseOrIgnore) {
    EXPECT_EQ(MarkText(Mark::Use), "Use");
    EXPECT_EQ(MarkText(Mark::Ignore), "Ignore");
}

TEST(IgnoreKey, JoinsTimeAndReadingDirectly) {
    RecoveryPoint point;
    point.timeText = "15";
    point.levelText = "9.41";
    EXPECT_EQ(IgnoreKey(point), "159.41");
    point.timeText = "1";
    point.levelText = "59.41";
    EXPECT_EQ(IgnoreKey(point), "159.41");
    point.timeText = " a";
    point.levelText = "b ";
    EXPECT_EQ(IgnoreKey(point), "ab");
    point.timeText = "a ";
    point.levelText = " b";
    EXPECT_EQ(IgnoreKey(point), "a  b");
}

TEST(RestoredMarks, EveryPointIsUsedButThoseOfTheKeys) {
    EXPECT_EQ(Restore({{"1", "5"}, {"2", "6"}, {"3", "7"}}, {}).Marks(), "UUU");
    EXPECT_EQ(Restore({{"1", "5"}, {"2", "6"}, {"3", "7"}}, {"37", "15"}).Marks(), "IUI");
    EXPECT_EQ(Restore({{"1", "5"}, {"2", "6"}}, {"  26 "}).Marks(), "UI");
    EXPECT_EQ(Restore({}, {"15"}).Marks(), "");
}

TEST(RestoredMarks, PointsThatShareAKeyComeBackOnTheFirstOnly) {
    EXPECT_EQ(Restore({{"1", "5"}, {"1", "5"}}, {"15"}).Marks(), "IU");
    EXPECT_EQ(Restore({{"1", "5"}, {"1", "5"}}, {"15", "15"}).Marks(), "IU");
    EXPECT_EQ(Restore({{"1", "59.41"}, {"15", "9.41"}}, {"159.41"}).Marks(), "IU");
    EXPECT_EQ(Restore({{"15", "9.41"}, {"1", "59.41"}}, {"159.41"}).Marks(), "IU");
}

TEST(RestoredMarks, AKeyWithoutItsPointStaysInTheList) {
    const Marked marked = Restore({{"1", "5"}}, {"99", "15"});
    EXPECT_EQ(marked.Marks(), "I");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"99", "15"}));
}

TEST(RestoredMarks, KeysAreTheTextsAsTyped) {
    // An edited point comes back as "Use", even where the value stayed.
    EXPECT_EQ(Restore({{"15", "9.410"}}, {"159.41"}).Marks(), "U");
    EXPECT_EQ(Restore({{" 15 ", " 9.41 "}}, {"159.41"}).Marks(), "I");
}

TEST(RestoredMarks, MarksSurviveAChangeOfDataTypeAndPreSlugCondition) {
    Marked marked = Restore({{"1", "5"}, {"2", "6"}}, {"26"});
    marked.state.RecDatDataTypeDDL = DepthToGroundwater;
    marked.state.RecDatSlugTestTypeDDL = FallingHead;
    marked.state.RecDatPreSlugHeadText = "3";
    marked.LookAwayAndBack();
    EXPECT_EQ(marked.Marks(), "UI");
}

const std::vector<RecoveryRow> FourRows = {{"1", "5"}, {"2", "6"}, {"3", "7"}, {"4", "8"}};

TEST(SetMarks, SpaceTurnsEachRowOver) {
    Marked marked = Restore(FourRows, {"26"});
    marked.Press(0, 2, MarkKey::TurnOver);
    EXPECT_EQ(marked.Marks(), "IUIU");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "37"}));
    marked.Press(0, 3, MarkKey::TurnOver);
    EXPECT_EQ(marked.Marks(), "UIUI");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"26", "48"}));
}

TEST(SetMarks, LettersSetTheMark) {
    Marked marked = Restore(FourRows, {});
    marked.Press(1, 2, MarkKey::Ignore);
    EXPECT_EQ(marked.Marks(), "UIIU");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"26", "37"}));
    // Once more changes nothing and adds no second key.
    marked.Press(1, 3, MarkKey::Ignore);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"26", "37", "48"}));
    marked.Press(0, 1, MarkKey::Use);
    EXPECT_EQ(marked.Marks(), "UUII");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"37", "48"}));
}

TEST(SetMarks, UseRemovesOneKeyOfPointsThatShareIt) {
    Marked marked = Restore({{"1", "5"}, {"1", "5"}, {"2", "6"}}, {});
    marked.Press(0, 2, MarkKey::Ignore);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "15", "26"}));
    marked.Press(1, 1, MarkKey::Use);
    EXPECT_EQ(marked.Marks(), "IUI");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "26"}));
}

TEST(SetMarks, UseOfTheFirstOfTwoWithOneKeyStaysUse) {
    // Both were ignored when they were gathered; only the first comes back as ignored.
    Marked marked = Restore({{"1", "5"}, {"1", "5"}, {"2", "6"}}, {"15", "15"});
    EXPECT_EQ(marked.Marks(), "IUU");
    marked.Press(0, 0, MarkKey::Use);
    EXPECT_TRUE(marked.state.IgnoreKeyList.empty());
    marked.LookAwayAndBack();
    EXPECT_EQ(marked.Marks(), "UUU");
}

TEST(SetMarks, UseKeepsAKeyForEachPointThatStillSaysIgnore) {
    Marked marked = Restore({{"1", "5"}, {"1", "5"}, {"1", "5"}}, {});
    marked.Press(0, 2, MarkKey::Ignore);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "15", "15"}));
    marked.Press(0, 0, MarkKey::Use);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "15"}));
    marked.Press(1, 2, MarkKey::Use);
    EXPECT_TRUE(marked.state.IgnoreKeyList.empty());
}

TEST(SetMarks, TurningOverPointsThatShareAKeyKeepsOneForTheIgnored) {
    Marked marked = Restore({{"1", "5"}, {"1", "5"}}, {"15"});
    marked.Press(0, 1, MarkKey::TurnOver);
    EXPECT_EQ(marked.Marks(), "UI");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15"}));
}

TEST(SetMarks, UseFindsAKeyWithBlanksAroundIt) {
    Marked marked = Restore({{"1", "5"}, {"2", "6"}}, {" 15 "});
    marked.Press(0, 0, MarkKey::Use);
    EXPECT_TRUE(marked.state.IgnoreKeyList.empty());
}

TEST(SetMarks, OtherKeysOfTheListStay) {
    Marked marked = Restore(FourRows, {"99", "15", "88"});
    marked.Press(0, 0, MarkKey::Use);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"99", "88"}));
}

TEST(SetMarks, MarksChangedByKeysComeBackAfterARefill) {
    Marked marked = Restore(FourRows, {});
    marked.Press(2, 3, MarkKey::Ignore);
    marked.LookAwayAndBack();
    EXPECT_EQ(marked.Marks(), "UUII");
}

} // namespace
} // namespace quarnel
