#include "tests/gui/WindowTestSupport.h"

#include "widgets/ReflowLayout.h"

#include <QHBoxLayout>

namespace quarnel::windowtest {

namespace {

constexpr int Gap = 10;

/// Something that asks for `usual` points, does with `least`, and wants height if it `grows`.
class Block : public QWidget {
public:
    Block(QSize least, QSize usual, bool grows = false)
        : least_(least)
        , usual_(usual) {
        setSizePolicy(QSizePolicy::Preferred,
                      grows ? QSizePolicy::Expanding : QSizePolicy::Preferred);
    }
    QSize sizeHint() const override { return usual_; }
    QSize minimumSizeHint() const override { return least_; }

private:
    QSize least_;
    QSize usual_;
};

/// A page whose layout holds blocks.
class Blocks {
public:
    Blocks() {
        layout_->setContentsMargins(0, 0, 0, 0);
        layout_->setSpacing(Gap);
    }
    Block& Add(QSize least, QSize usual, int stretch = 0, bool grows = false) {
        auto* block = new Block(least, usual, grows);
        layout_->Add(block, stretch);
        blocks_.append(block);
        return *block;
    }
    ReflowLayout& Layout() { return *layout_; }
    /// Where the blocks stand on a page of this size.
    QList<QRect> On(QSize size) {
        layout_->setGeometry(QRect(QPoint(), size));
        QList<QRect> places;
        for (const Block* block : blocks_)
            places << block->geometry();
        return places;
    }

private:
    QWidget page_;
    ReflowLayout* layout_ = new ReflowLayout(&page_);
    QList<Block*> blocks_;
};

} // namespace

class TestReflowLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ARowBreaksWhereItsWidthEnds() {
        Blocks blocks;
        for (int i = 0; i < 3; ++i)
            blocks.Add({50, 20}, {100, 20});
        QCOMPARE(blocks.On({320, 20}),
                 QList<QRect>({{0, 0, 100, 20}, {110, 0, 100, 20}, {220, 0, 100, 20}}));
        QCOMPARE(blocks.On({319, 50}),
                 QList<QRect>({{0, 0, 100, 20}, {110, 0, 100, 20}, {0, 30, 100, 20}}));
        QCOMPARE(blocks.On({100, 80}),
                 QList<QRect>({{0, 0, 100, 20}, {0, 30, 100, 20}, {0, 60, 100, 20}}));
        QCOMPARE(blocks.Layout().minimumHeightForWidth(320), 20);
        QCOMPARE(blocks.Layout().minimumHeightForWidth(319), 50);
        QCOMPARE(blocks.Layout().minimumHeightForWidth(100), 80);
        QCOMPARE(blocks.Layout().minimumSize().width(), 50);
        QCOMPARE(blocks.Layout().sizeHint().width(), 320);
    }

    void WhatStandsAloneInTooNarrowARowGivesWay() {
        Blocks blocks;
        blocks.Add({50, 20}, {100, 20});
        QCOMPARE(blocks.On({70, 20}), QList<QRect>({{0, 0, 70, 20}}));
        QCOMPARE(blocks.On({40, 20}), QList<QRect>({{0, 0, 50, 20}}));
    }

    void StretchGivesWayFirstAndSharesWhatIsSpare() {
        Blocks blocks;
        blocks.Add({50, 20}, {200, 20}, 3);
        blocks.Add({40, 20}, {40, 20});
        blocks.Add({50, 20}, {200, 20}, 1);
        QCOMPARE(blocks.On({160, 20}),
                 QList<QRect>({{0, 0, 50, 20}, {60, 0, 40, 20}, {110, 0, 50, 20}}));
        QCOMPARE(blocks.On({560, 20}),
                 QList<QRect>({{0, 0, 350, 20}, {360, 0, 40, 20}, {410, 0, 150, 20}}));
        QCOMPARE(blocks.On({159, 50})[2].topLeft(), QPoint(0, 30));
    }

    void NothingGrowsBeyondItsGreatestWidth() {
        Blocks blocks;
        blocks.Add({50, 20}, {50, 20}, 1).setMaximumWidth(80);
        blocks.Add({50, 20}, {50, 20}, 1);
        QCOMPARE(blocks.On({400, 20}), QList<QRect>({{0, 0, 80, 20}, {90, 0, 310, 20}}));
    }

    void SpareHeightGoesToTheRowsThatGrow() {
        Blocks blocks;
        blocks.Add({100, 20}, {100, 20});
        blocks.Add({100, 30}, {100, 60}, 0, true);
        QCOMPARE(blocks.Layout().minimumHeightForWidth(100), 60);
        QCOMPARE(blocks.Layout().heightForWidth(100), 90);
        QCOMPARE(blocks.On({100, 60}), QList<QRect>({{0, 0, 100, 20}, {0, 30, 100, 30}}));
        QCOMPARE(blocks.On({100, 75}), QList<QRect>({{0, 0, 100, 20}, {0, 30, 100, 45}}));
        QCOMPARE(blocks.On({100, 500}), QList<QRect>({{0, 0, 100, 20}, {0, 30, 100, 470}}));
    }

    void TheFirstArrangementThatFitsIsTaken() {
        Blocks blocks;
        for (int i = 0; i < 3; ++i)
            blocks.Add({100, 20}, {100, 20});
        blocks.Layout().Arrange({{{0, 1}, {2}}, {{0}, {2}, {1}}});
        QCOMPARE(blocks.On({210, 50}),
                 QList<QRect>({{0, 0, 100, 20}, {110, 0, 100, 20}, {0, 30, 100, 20}}));
        QCOMPARE(blocks.On({209, 80}),
                 QList<QRect>({{0, 0, 100, 20}, {0, 60, 100, 20}, {0, 30, 100, 20}}));
    }

    void WhatIsHiddenTakesNoRoom() {
        Blocks blocks;
        blocks.Add({100, 20}, {100, 20});
        blocks.Add({100, 20}, {100, 20}).hide();
        blocks.Add({100, 20}, {100, 20});
        QCOMPARE(blocks.On({210, 20})[2], QRect(110, 0, 100, 20));
        QCOMPARE(blocks.Layout().minimumHeightForWidth(100), 50);
    }

    void FromRightToLeftRowsBeginAtTheRight() {
        Blocks blocks;
        Block& first = blocks.Add({100, 20}, {100, 20});
        blocks.Add({100, 20}, {100, 20});
        first.parentWidget()->setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(blocks.On({300, 20}), QList<QRect>({{200, 0, 100, 20}, {90, 0, 100, 20}}));
    }

    void LayoutsWithinBreakTheirOwnRows() {
        QWidget page;
        auto* outer = new ReflowLayout(&page);
        outer->setContentsMargins(0, 0, 0, 0);
        outer->setSpacing(Gap);
        auto* inner = new ReflowLayout;
        inner->setSpacing(Gap);
        for (int i = 0; i < 2; ++i)
            inner->Add(new Block({100, 20}, {100, 20}));
        outer->Add(inner);
        outer->Add(new Block({100, 20}, {100, 20}));
        QCOMPARE(outer->minimumHeightForWidth(320), 20);
        QCOMPARE(outer->minimumHeightForWidth(319), 50);
        QCOMPARE(outer->minimumHeightForWidth(209), 80);
    }

    void AWidgetThatGoesLeavesItsPlace() {
        Blocks blocks;
        const std::unique_ptr<Block> first(&blocks.Add({100, 20}, {100, 20}));
        blocks.Add({100, 20}, {100, 20});
        first->setParent(nullptr);
        QCOMPARE(blocks.Layout().count(), 1);
        QCOMPARE(blocks.Layout().minimumHeightForWidth(100), 20);
        QVERIFY(blocks.Layout().itemAt(1) == nullptr && blocks.Layout().takeAt(1) == nullptr);
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestReflowLayout)

#include "test_reflow_layout.moc"
