// Whatever is typed, marked, looked at, computed, opened and thrown away, in whatever order: after
// each step all that shows a result tells of one computation, the one that was made last, or of
// none.
//
// QUARNEL_TRUTH_STEPS and QUARNEL_TRUTH_SEED make it longer and other than in every run of the
// tests.

#include "tests/CoreTestSupport.h"
#include "tests/gui/TruthProgram.h"

#include "project/Files.h"
#include "project/Texts.h"

#include <QDir>
#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace quarnel::windowtest {

namespace {

using test::Random;

const QString Changed = u"The data have changed. Press Compute K/ Plot."_s;
/// What a step types: numbers that suit a box, and now and then one that no check accepts.
const QStringList Lengths = {u"10"_s,  u"8"_s,  u"5"_s,   u"2.5"_s,
                             u" 8 "_s, u"12"_s, u"8.0"_s, u"x"_s};
const QStringList Diameters = {u"8"_s, u"2"_s, u"4"_s, u"8.25"_s, u"0"_s};
const QStringList Porosities = {u"0"_s, u"30"_s, u""_s, u"25.5"_s, u"101"_s};
const QStringList Times = {u"0"_s, u"10"_s, u"20"_s, u"25"_s, u"40"_s, u"1e2"_s, u""_s, u"ten"_s};
const QStringList Levels = {u"1.0"_s, u"0.8"_s, u"0.5"_s, u" 0.31"_s,
                            u"0.1"_s, u"0"_s,   u"-1"_s,  u""_s};
const std::array<const char*, 8> Lists = {"WellGeoVertUnitsDDL", "WellGeoRadUnitsDDL",
                                          "RecDatTimeUnitsDDL",  "RecDatWaterLevelUnitsDDL",
                                          "RecDatDataTypeDDL",   "RecDatSlugTestTypeDDL",
                                          "CmboKLengthUnits",    "CmboKTimeUnits"};
constexpr int EditedRows = 8; ///< a step edits one of the first readings

ProjectState SmallWell() {
    ProjectState state;
    state.WellGeoText = {"10", "8", "5", "8", "2", "0"};
    state.RecDatDataTypeDDL = ChangeInHead;
    const std::array<RecoveryRow, 6> rows = {
        {{"0", "1.0"}, {"10", "0.8"}, {"20", "0.6"}, {"30", "0.5"}, {"40", "0.4"}, {"1", "00.4"}}};
    std::copy(rows.begin(), rows.end(), state.RecDatGrid.begin());
    return state;
}

/// All of a project that goes into a computation, one text.
std::string DataOf(const ProjectState& state) {
    std::string data;
    const auto add = [&data](std::string_view text) {
        data += std::string(TrimBlanks(text)) + '\n';
    };
    for (std::size_t i = 0; i < state.WellGeoText.size(); ++i)
        add(i == GeoDpor && TrimBlanks(state.WellGeoText[i]).empty() ? "0" : state.WellGeoText[i]);
    for (const int position :
         {state.WellGeoVertUnitsDDL, state.WellGeoRadUnitsDDL, state.RecDatTimeUnitsDDL,
          state.RecDatWaterLevelUnitsDDL, state.RecDatDataTypeDDL})
        add(std::to_string(position));
    if (state.RecDatDataTypeDDL != ChangeInHead) {
        add(std::to_string(state.RecDatSlugTestTypeDDL));
        add(state.RecDatPreSlugHeadText);
    }
    for (const RecoveryRow& row : state.RecDatGrid) {
        const std::string time(TrimBlanks(row.time));
        const std::string level(TrimBlanks(row.level));
        if (!time.empty() || !level.empty())
            add(time + '\t' + level);
    }
    return data;
}

/// What the last successful "Compute K/ Plot" was pressed on, as the test saw it then.
struct Pressed {
    std::string data;
    QStringList marks;
    QString report; ///< from the geometry on, without what may change afterwards
};

class RandomUser {
public:
    RandomUser(TruthProgram& program, unsigned seed, QStringList files)
        : program_(program)
        , random_(seed)
        , files_(std::move(files)) {}

    /// Does one thing and says what.
    QString Step() {
        switch (random_.Below(16)) {
        case 0:
            return TypeGeometry();
        case 1:
        case 2:
            return TypeReading();
        case 3:
        case 4:
            return ChooseEntry();
        case 5:
        case 6:
        case 7:
            return Mark();
        case 8:
            return Visit(random_.Between(1, 5));
        case 9:
            return Check();
        case 10:
            return Names();
        case 11:
            return Dialogs();
        case 12:
            return random_.OneIn(4) ? NewOrOpen() : Undo();
        case 13:
            return random_.OneIn(3) ? FailToCompute() : Visit(5);
        default:
            return Compute();
        }
    }

    /// What does not hold after a step; empty when all does.
    QString Complaint() {
        if (const QString why = program_.Disagreement(); !why.isEmpty())
            return why;
        if (pressed_.has_value() != !program_.K().isEmpty())
            return pressed_ ? u"The computation is gone"_s : u"There is a K that nobody computed"_s;
        if (!pressed_)
            return {};
        if (LastingReport() != pressed_->report)
            return u"The report tells of another computation: "_s + LastingReport();
        return StaleComplaint();
    }

private:
    QString TypeGeometry() {
        const int box = random_.Between(0, 5);
        const QStringList& texts = box < 3 ? Lengths : box < 5 ? Diameters : Porosities;
        const QString text = texts[random_.Between(0, static_cast<int>(texts.size()) - 1)];
        program_.TypeGeometry(box, text);
        return u"type geometry %1 '%2'"_s.arg(box).arg(text);
    }
    QString TypeReading() {
        const int row = random_.Between(1, EditedRows);
        const bool time = random_.OneIn(2);
        const QStringList& texts = time ? Times : Levels;
        const QString text = texts[random_.Between(0, static_cast<int>(texts.size()) - 1)];
        program_.TypeReading(row, time ? TruthProgram::TimeColumn : TruthProgram::LevelColumn,
                             text);
        return u"type %1 of row %2 '%3'"_s.arg(time ? u"time"_s : u"level"_s).arg(row).arg(text);
    }
    QString ChooseEntry() {
        const QString list = QString::fromLatin1(random_.Pick(Lists));
        auto& box = program_.Find<QComboBox>(list);
        const int entry = random_.Between(0, box.count() - 1);
        if (list.startsWith(u"Cmbo"_s) && !OpenCompute())
            return u"no compute tab"_s;
        program_.ChooseEntry(list, entry);
        return u"choose %1 of %2"_s.arg(entry).arg(list);
    }
    QString Mark() {
        if (!OpenCompute())
            return u"no compute tab"_s;
        const int rows = program_.Marks().model()->rowCount();
        const int first = random_.Between(1, rows);
        const int last = random_.OneIn(4) ? random_.Between(first, rows) : first;
        const char key = "UI "[random_.Below(3)];
        program_.Mark(first, last, key);
        return u"mark %1 to %2 '%3'"_s.arg(first).arg(last).arg(QLatin1Char(key));
    }
    QString Visit(int tab) {
        program_.Visit(tab);
        return u"visit %1"_s.arg(tab);
    }
    QString Check() {
        if (random_.OneIn(2)) {
            program_.GoTo(3);
            program_.Press("SSCmdWellGeoCheckData");
            return u"check geometry"_s;
        }
        program_.GoTo(4);
        program_.Press("CmdRecDatCheckData");
        return u"check readings"_s;
    }
    QString Names() {
        const QString name = u"Well %1"_s.arg(random_.Between(1, 99));
        program_.GoTo(2);
        TypeInto(program_.Find<QLineEdit>(u"WellTestIDTxt"_s, 0), name);
        return u"name "_s + name;
    }
    QString Dialogs() {
        if (random_.OneIn(2)) {
            for (const char* dialog : {"ComputedYFrm", "PrtPlotFrm", "PrtResults"})
                program_.Find<QDialog>(QString::fromLatin1(dialog)).close();
            return u"close the dialogs"_s;
        }
        if (!OpenCompute())
            return u"no compute tab"_s;
        for (const char* command : {"CmdDetails", "CmdPrintPlot", "CmdPrtSummary"})
            program_.Press(command);
        return u"open the dialogs"_s;
    }
    QString Undo() {
        program_.PressGridKey(Qt::Key_Z, Qt::ControlModifier);
        return u"undo"_s;
    }
    QString NewOrOpen() {
        pressed_.reset();
        if (random_.OneIn(5)) {
            program_.NewThroughMenu();
            return u"new"_s;
        }
        const QString file = files_[random_.Between(0, static_cast<int>(files_.size()) - 1)];
        program_.OpenThroughMenu(file);
        return u"open "_s + file;
    }
    QString FailToCompute() {
        if (!OpenCompute())
            return u"no compute tab"_s;
        program_.Mark(1, program_.Marks().model()->rowCount(), 'I');
        Press();
        return u"ignore all and compute"_s;
    }
    QString Compute() {
        if (!OpenCompute())
            return u"no compute tab"_s;
        Press();
        return pressed_ ? u"compute"_s : u"compute and fail"_s;
    }

    /// Whether the compute tab can be opened.
    bool OpenCompute() {
        program_.GoTo(5);
        if (program_.SelectedTab() == 5)
            return true;
        // A project that no check accepts any more would end the story.
        if (random_.OneIn(2))
            static_cast<void>(NewOrOpen());
        return false;
    }
    void Press() {
        const ProjectState before = program_.State();
        program_.Compute();
        pressed_.reset();
        if (!program_.K().isEmpty())
            pressed_ = {DataOf(before), Marks(), LastingReport()};
    }
    QStringList Marks() {
        QStringList marks;
        for (int row = 1; row <= program_.Marks().model()->rowCount(); ++row)
            marks.append(program_.MarkAt(row));
        return marks;
    }
    /// K in cm/sec and names aside, the whole report.
    QString LastingReport() {
        const QString report = program_.Report();
        return report.mid(report.indexOf(u"WELL GEOMETRY"_s));
    }

    /// On the compute tab the marks are there to be compared, and so is what it says.
    QString StaleComplaint() {
        if (!program_.ComputePanelIsOpen())
            return {};
        const QStringList marks = Marks();
        bool same =
            DataOf(program_.State()) == pressed_->data && marks.size() == pressed_->marks.size();
        const Account account = ReadReport(program_.Report());
        for (qsizetype k = 0; same && k < marks.size(); ++k)
            // A point that no fit can use is ignored, whatever its mark says.
            same = marks[k] == pressed_->marks[k] || account.rows[k][2].toDouble() <= 0;
        const QString wanted = same ? QString() : Changed;
        if (program_.KIsGreyed() == same || program_.Says(u"StaleText"_s) != wanted)
            return same ? u"A current computation is called old"_s
                        : u"Nothing says that the data have changed"_s;
        const std::array<std::pair<QString, QString>, 3> dialogs = {
            {{u"ComputedYFrm"_s, u"DetailsStaleText"_s},
             {u"PrtPlotFrm"_s, u"PrtPlotStaleText"_s},
             {u"PrtResults"_s, u"PrtResultsStaleText"_s}}};
        for (const auto& [dialog, label] : dialogs)
            if (program_.Find(dialog).isVisible() && program_.Says(label) != wanted)
                return dialog + u" says otherwise"_s;
        return {};
    }

    TruthProgram& program_;
    Random random_;
    QStringList files_;
    std::optional<Pressed> pressed_;
};

unsigned FromEnvironment(const char* name, unsigned usual) {
    bool given = false;
    const unsigned value = qEnvironmentVariable(name).toUInt(&given);
    return given ? value : usual;
}

} // namespace

class TestTruthRandom : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QVERIFY(folder_.isValid());
        ProjectState state = SmallWell();
        const auto save = [this, &state](const QString& name) {
            const QString path = folder_.filePath(name);
            FileOnDisk file;
            if (!WriteProjectFile(ToUtf8(path), state, file).isSaved)
                qFatal("The project was not written");
            files_.append(path);
        };
        save(u"heads.qn2"_s);
        state.RecDatDataTypeDDL = DepthToGroundwater;
        state.RecDatPreSlugHeadText = "-0.2";
        state.RecDatWaterLevelUnitsDDL = Metre;
        state.IgnoreKeyList = {"100.8"};
        save(u"depths.qn2"_s);
    }

    void AllTellOfOneComputationOrOfNone_data() {
        QTest::addColumn<unsigned>("seed");
        const unsigned first = FromEnvironment("QUARNEL_TRUTH_SEED", 1);
        for (unsigned seed = first; seed < first + 3; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void AllTellOfOneComputationOrOfNone() {
        QFETCH(const unsigned, seed);
        const unsigned steps = FromEnvironment("QUARNEL_TRUTH_STEPS", 120);
        TruthProgram program;
        program.OpenThroughMenu(files_[0]);
        RandomUser user(program, seed, files_);
        QStringList story;
        unsigned computed = 0;
        for (unsigned step = 0; step < steps; ++step) {
            story.append(user.Step());
            const QString complaint = user.Complaint();
            QVERIFY2(
                complaint.isEmpty(),
                qPrintable(u"step %1: "_s.arg(step) + complaint + u"\nafter "_s +
                           story.mid(std::max<qsizetype>(0, story.size() - 12)).join(u"; "_s)));
            computed += program.K().isEmpty() ? 0 : 1;
        }
        // A story without results would prove nothing.
        QVERIFY2(steps < 100 || computed > steps / 4, qPrintable(QString::number(computed)));
    }

private:
    QTemporaryDir folder_;
    QStringList files_;
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestTruthRandom)

#include "test_truth_random.moc"
