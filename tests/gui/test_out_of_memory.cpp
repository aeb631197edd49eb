// Memory that runs out in the window: views hear the end of every change they were told of, and the
// trap for faults is open again after a box that could not be shown.

#include "tests/gui/WindowTestSupport.h"

#include "app/RecoveryCopy.h"
#include "recovery/RecoveryGridModel.h"
#include "tests/FailingMemory.h"

#include <stdexcept>

namespace quarnel::windowtest {

namespace {

/// Throws when it is sent an event, and leaves no memory for what comes after.
class Thrower : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        test::failingMemory.failsNow = leavesNoMemory;
        throw std::runtime_error("a fault nobody foresaw");
    }
    bool leavesNoMemory = false;
};

} // namespace

class TestOutOfMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ViewsHearTheEndOfEveryChange() {
        bool done = false;
        int failures = 0;
        for (std::size_t failAt = 1; !done; ++failAt) {
            ProjectState state;
            state.RecDatGrid.shrink_to_fit();
            RecoveryGridModel model(state);
            model.ShowState();
            int open = 0;
            int rows = model.rowCount();
            connect(&model, &QAbstractItemModel::rowsAboutToBeInserted, &model,
                    [&open] { ++open; });
            connect(&model, &QAbstractItemModel::rowsInserted, &model,
                    [&](const QModelIndex&, int first, int last) {
                        --open;
                        rows += last - first + 1;
                    });
            test::LetMemoryFailAt(failAt);
            try {
                model.Editor().InsertRows(100, InsertPlace::AfterCurrentRow);
                done = test::failingMemory.count < failAt;
            } catch (const std::bad_alloc&) {
                ++failures;
            }
            test::LetMemoryFailAt(0);
            QCOMPARE(open, 0);
            QCOMPARE(model.rowCount(), rows);
        }
        QVERIFY(failures > 1);
    }

    /// A copy of the project is no reason to come between two keys with a box.
    void ARecoveryCopyThatFindsNoMemoryIsToldInTheStatusBar() {
        Program program;
        program.State().WellTestIDTxt[WellLabel] = "a label too long to be held in place";
        auto& copy = program.Find<RecoveryCopy>(QString()); // the only one
        auto& status = program.Find<QLabel>(u"StatusText"_s);
        int failures = 0;
        bool done = false;
        for (std::size_t failAt = 1; !done; ++failAt) {
            copy.NoteEdit();
            status.clear();
            Answers noBox;
            test::LetMemoryFailAt(failAt);
            const bool isKept = copy.WriteNow();
            done = test::failingMemory.count < failAt;
            test::LetMemoryFailAt(0);
            if (status.text().startsWith(u"No recovery copy could be written: "_s))
                ++failures;
            QVERIFY(isKept || failures > 0);
            QVERIFY2(noBox.AllGiven(), noBox.Complaints());
        }
        QCOMPARE(failures, 1); // told once
        QVERIFY(copy.WriteNow());
        copy.Remove();
    }

    void TheTrapOpensAgainAfterABoxThatCouldNotBeShown() {
        Program program;
        Thrower thrower;
        thrower.leavesNoMemory = true;
        QEvent first(QEvent::User);
        QApplication::sendEvent(&thrower, &first);
        test::LetMemoryFailAt(0);

        thrower.leavesNoMemory = false;
        Answers answers;
        answers.Box(u"Quarnel"_s, u"a fault nobody foresaw"_s);
        QEvent second(QEvent::User);
        QApplication::sendEvent(&thrower, &second);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestOutOfMemory)
#include "test_out_of_memory.moc"
