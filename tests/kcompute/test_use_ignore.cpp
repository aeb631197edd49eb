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
    ComputedValues computed;

    std::string Marks() const {
        std::string marks;
        for (const CellText& criterion : computed.Criteria)
            marks += criterion.View() == "Use" ? 'U' : criterion.View() == "Ignore" ? 'I' : '?';
        return marks;
    }
};

Marked Restore(std::vector<RecoveryRow> rows, Keys keys) {
    Marked marked;
    marked.state.RecDatDataTypeDDL = ChangeInHead;
    marked.state.RecDatGrid = std::move(rows);
    marked.state.IgnoreKeyList = std::move(keys);
    EXPECT_FALSE(CheckRecoveryData(marked.state, marked.computed).IsError());
    RestoreMarks(marked.state, marked.computed);
    return marked;
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

TEST(Criteria, AreComparedWithoutCaseAndBlanks) {
    for (const char* use : {"Use", " use ", "USE", "uSe  "}) {
        EXPECT_TRUE(IsUse(use)) << use;
        EXPECT_FALSE(IsIgnore(use)) << use;
    }
    for (const char* ignore : {"Ignore", " ignore ", "IGNORE"}) {
        EXPECT_TRUE(IsIgnore(ignore)) << ignore;
        EXPECT_FALSE(IsUse(ignore)) << ignore;
    }
    for (const char* neither : {"", "U", "Used", "Us", "I", "x", "\tUse", "Ignor"}) {
        EXPECT_FALSE(IsUse(neither)) << neither;
        EXPECT_FALSE(IsIgnore(neither)) << neither;
    }
}

TEST(RestoreMarks, EveryPointIsUsedButThoseOfTheKeys) {
    EXPECT_EQ(Restore({{"1", "5"}, {"2", "6"}, {"3", "7"}}, {}).Marks(), "UUU");
    EXPECT_EQ(Restore({{"1", "5"}, {"2", "6"}, {"3", "7"}}, {"37", "15"}).Marks(), "IUI");
    EXPECT_EQ(Restore({{"1", "5"}, {"2", "6"}}, {"  26 "}).Marks(), "UI");
    EXPECT_EQ(Restore({}, {"15"}).Marks(), "");
}

TEST(RestoreMarks, PointsThatShareAKeyComeBackOnTheFirstOnly) {
    EXPECT_EQ(Restore({{"1", "5"}, {"1", "5"}}, {"15"}).Marks(), "IU");
    EXPECT_EQ(Restore({{"1", "5"}, {"1", "5"}}, {"15", "15"}).Marks(), "IU");
    EXPECT_EQ(Restore({{"1", "59.41"}, {"15", "9.41"}}, {"159.41"}).Marks(), "IU");
    EXPECT_EQ(Restore({{"15", "9.41"}, {"1", "59.41"}}, {"159.41"}).Marks(), "IU");
}

TEST(RestoreMarks, AKeyWithoutItsPointStaysInTheList) {
    const Marked marked = Restore({{"1", "5"}}, {"99", "15"});
    EXPECT_EQ(marked.Marks(), "I");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"99", "15"}));
}

TEST(RestoreMarks, KeysAreTheTextsAsTyped) {
    // An edited point comes back as "Use", even where the value stayed.
    EXPECT_EQ(Restore({{"15", "9.410"}}, {"159.41"}).Marks(), "U");
    EXPECT_EQ(Restore({{" 15 ", " 9.41 "}}, {"159.41"}).Marks(), "I");
}

TEST(RestoreMarks, MarksSurviveAChangeOfDataTypeAndPreSlugCondition) {
    Marked marked = Restore({{"1", "5"}, {"2", "6"}}, {"26"});
    marked.state.RecDatDataTypeDDL = DepthToGroundwater;
    marked.state.RecDatSlugTestTypeDDL = FallingHead;
    marked.state.RecDatPreSlugHeadText = "3";
    EXPECT_FALSE(CheckRecoveryData(marked.state, marked.computed).IsError());
    ComputeRecoveryY(marked.computed);
    RestoreMarks(marked.state, marked.computed);
    EXPECT_EQ(marked.Marks(), "UI");
}

const std::vector<RecoveryRow> FourRows = {{"1", "5"}, {"2", "6"}, {"3", "7"}, {"4", "8"}};

TEST(ChangeMarks, SpaceTurnsEachRowOver) {
    Marked marked = Restore(FourRows, {"26"});
    ChangeMarks(marked.state, marked.computed, 0, 2, MarkKey::TurnOver);
    EXPECT_EQ(marked.Marks(), "IUIU");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "37"}));
    ChangeMarks(marked.state, marked.computed, 0, 3, MarkKey::TurnOver);
    EXPECT_EQ(marked.Marks(), "UIUI");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"26", "48"}));
}

TEST(ChangeMarks, SpaceTurnsAnythingButUseIntoUse) {
    Marked marked = Restore(FourRows, {});
    marked.computed.Criteria[0] = "other";
    marked.computed.Criteria[1] = " use ";
    marked.computed.Criteria[2] = " IGNORE";
    ChangeMarks(marked.state, marked.computed, 0, 2, MarkKey::TurnOver);
    EXPECT_EQ(marked.Marks(), "UIUU");
}

TEST(ChangeMarks, LettersSetTheMark) {
    Marked marked = Restore(FourRows, {});
    ChangeMarks(marked.state, marked.computed, 1, 2, MarkKey::Ignore);
    EXPECT_EQ(marked.Marks(), "UIIU");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"26", "37"}));
    // Once more changes nothing and adds no second key.
    ChangeMarks(marked.state, marked.computed, 1, 3, MarkKey::Ignore);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"26", "37", "48"}));
    ChangeMarks(marked.state, marked.computed, 0, 1, MarkKey::Use);
    EXPECT_EQ(marked.Marks(), "UUII");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"37", "48"}));
}

TEST(ChangeMarks, UseRemovesOneKeyOfPointsThatShareIt) {
    Marked marked = Restore({{"1", "5"}, {"1", "5"}, {"2", "6"}}, {});
    ChangeMarks(marked.state, marked.computed, 0, 2, MarkKey::Ignore);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "15", "26"}));
    ChangeMarks(marked.state, marked.computed, 1, 1, MarkKey::Use);
    EXPECT_EQ(marked.Marks(), "IUI");
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"15", "26"}));
}

TEST(ChangeMarks, UseFindsAKeyWithBlanksAroundIt) {
    Marked marked = Restore({{"1", "5"}, {"2", "6"}}, {" 15 "});
    ChangeMarks(marked.state, marked.computed, 0, 0, MarkKey::Use);
    EXPECT_TRUE(marked.state.IgnoreKeyList.empty());
}

TEST(ChangeMarks, OtherKeysOfTheListStay) {
    Marked marked = Restore(FourRows, {"99", "15", "88"});
    ChangeMarks(marked.state, marked.computed, 0, 0, MarkKey::Use);
    EXPECT_EQ(marked.state.IgnoreKeyList, (Keys{"99", "88"}));
}

TEST(ChangeMarks, IsCutToThePointsThereAre) {
    Marked marked = Restore(FourRows, {});
    ChangeMarks(marked.state, marked.computed, 3, 100, MarkKey::Ignore);
    EXPECT_EQ(marked.Marks(), "UUUI");
    ChangeMarks(marked.state, marked.computed, 4, 4, MarkKey::Ignore);
    EXPECT_EQ(marked.Marks(), "UUUI");
    Marked empty = Restore({}, {"15"});
    ChangeMarks(empty.state, empty.computed, 0, 0, MarkKey::Ignore);
    EXPECT_EQ(empty.state.IgnoreKeyList, (Keys{"15"}));
}

TEST(ChangeMarks, MarksChangedByKeysComeBackAfterARefill) {
    Marked marked = Restore(FourRows, {});
    ChangeMarks(marked.state, marked.computed, 2, 3, MarkKey::Ignore);
    EXPECT_FALSE(CheckRecoveryData(marked.state, marked.computed).IsError());
    RestoreMarks(marked.state, marked.computed);
    EXPECT_EQ(marked.Marks(), "UUII");
}

} // namespace
} // namespace quarnel
