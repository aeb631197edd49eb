// A user in no particular order: keys, pastes, dictation, the wheel, tabs, lists, commands, New,
// Open, undo and requests to close, thousands of them, beside a plain model. Whatever comes,
// nothing that is typed goes anywhere but where it was typed.
//
//     test_random_typing [STEPS [SEED]]

#include "project/Files.h"
#include "project/TextEncoding.h"
#include "system/ReplaceFile.h"
#include "tests/gui/WindowTestSupport.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QScrollBar>
#include <QTableView>
#include <QWindow>
#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>
#include <set>

namespace quarnel::windowtest {

namespace {

int steps = 2000;
unsigned seed = 1;

const QString Example = SourceFile("examples/pratt-county-1998.qn2");

/// Closes every message box that comes up: by Escape, or by its consent where that was asked for.
class Clerk : public QObject {
public:
    Clerk() {
        connect(&timer_, &QTimer::timeout, this, &Clerk::Look);
        timer_.start(0);
    }
    void ConsentNext(bool consent) { consent_ = consent; }
    /// What to do when a box has just been answered, while its question is not yet ended.
    void ThenAtOnce(std::function<void()> act) { atOnce_ = std::move(act); }

private:
    void Look() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible())
            return;
        QAbstractButton* yes = box->button(QMessageBox::Yes);
        if (yes == nullptr)
            yes = box->button(QMessageBox::Ok);
        if (consent_ && yes != nullptr)
            yes->click();
        else
            QTest::keyClick(box, Qt::Key_Escape);
        if (atOnce_)
            std::exchange(atOnce_, nullptr)();
    }

    QTimer timer_;
    bool consent_ = false;
    std::function<void()> atOnce_;
};

/// A text box of the window and the text it stands for.
struct Box {
    QString name;
    std::string& (*text)(ProjectState&, std::size_t);
    std::size_t index;
};

std::vector<Box> AllBoxes() {
    std::vector<Box> boxes;
    const auto add = [&boxes](const char* name, std::size_t count, auto text) {
        for (std::size_t i = 0; i < count; ++i)
            boxes.push_back({QLatin1String(name) + u'_' + QString::number(i), text, i});
    };
    using State = ProjectState;
    add("SiteIDText", 20, [](State& s, std::size_t i) -> std::string& { return s.SiteIDText[i]; });
    add("WellTestIDTxt", 6,
        [](State& s, std::size_t i) -> std::string& { return s.WellTestIDTxt[i]; });
    add("WellGeoText", 6, [](State& s, std::size_t i) -> std::string& { return s.WellGeoText[i]; });
    boxes.push_back({u"VolumeOfSlugText"_s,
                     [](State& s, std::size_t) -> std::string& { return s.VolumeOfSlugText; }, 0});
    boxes.push_back({u"RecDatPreSlugHeadText"_s,
                     [](State& s, std::size_t) -> std::string& { return s.RecDatPreSlugHeadText; },
                     0});
    return boxes;
}

struct UnitList {
    const char* name;
    int ProjectState::*position;
};
constexpr std::array<UnitList, 8> Lists = {
    {{"WellGeoVertUnitsDDL", &ProjectState::WellGeoVertUnitsDDL},
     {"WellGeoRadUnitsDDL", &ProjectState::WellGeoRadUnitsDDL},
     {"RecDatTimeUnitsDDL", &ProjectState::RecDatTimeUnitsDDL},
     {"RecDatWaterLevelUnitsDDL", &ProjectState::RecDatWaterLevelUnitsDDL},
     {"RecDatDataTypeDDL", &ProjectState::RecDatDataTypeDDL},
     {"RecDatSlugTestTypeDDL", &ProjectState::RecDatSlugTestTypeDDL},
     {"CmboKTimeUnits", &ProjectState::CmboKTimeUnits},
     {"CmboKLengthUnits", &ProjectState::CmboKLengthUnits}}};

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string TextOf(const std::vector<RecoveryRow>& rows) {
    std::string all;
    for (const RecoveryRow& row : rows)
        all += row.time.ToString() + '\t' + row.level.ToString() + '\n';
    return all;
}

/// The same without the blanks that a check may have taken from any cell since.
std::string TrimmedTextOf(const std::vector<RecoveryRow>& rows) {
    std::string all;
    for (const RecoveryRow& row : rows)
        all += Trimmed(row.time.ToString()) + '\t' + Trimmed(row.level.ToString()) + '\n';
    return all;
}

/// The first row in which two grids differ, as they are.
QString FirstDifference(const std::string& is, const std::string& must) {
    const QStringList isRows = ToQString(is).split(u'\n');
    const QStringList mustRows = ToQString(must).split(u'\n');
    qsizetype row = 0;
    while (row < isRows.size() && row < mustRows.size() && isRows[row] == mustRows[row])
        ++row;
    return u"row %1 of the recovery grid holds \"%2\" instead of \"%3\""_s.arg(row + 1).arg(
        isRows.value(row), mustRows.value(row));
}

/// The user and what the user believes: the project as it must stand, and where keys must go.
class User {
public:
    User()
        : random_(seed) {
        program_.Window().activateWindow();
        expected_ = program_.State();
        NewHistory();
        LookWhereTheKeysGo();
    }

    void Act();
    /// "" while project, boxes and focus are as the user believes, else what is wrong.
    QString Compare();
    QString LastActs() const { return acts_.join(u", "_s); }

private:
    using Move = void (User::*)();

    int Roll(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
    ProjectState& State() { return program_.State(); }
    QTableView& Grid() { return program_.Find<QTableView>(u"RecDatGrid"_s); }
    const Box* FocusedBox() {
        for (const Box& box : boxes_)
            if (box.name == focus_)
                return &box;
        return nullptr;
    }
    bool OnGrid() const { return focus_ == u"RecDatGrid"_s; }
    CellText& Cell() {
        RecoveryRow& row = expected_.RecDatGrid[static_cast<std::size_t>(row_)];
        return column_ == 1 ? row.time : row.level;
    }
    QString RandomText();
    void SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(program_.Window().windowHandle(), key, modifiers);
    }
    void Activate() {
        program_.Window().activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&program_.Window()));
    }
    void LookWhereTheKeysGo();
    void AdoptTrimmed();
    void NewHistory() {
        typing_ = false;
        grids_ = {TrimmedTextOf(expected_.RecDatGrid)};
        texts_.clear();
    }
    QWidget* VisibleOf(const QList<QWidget*>& widgets) {
        QList<QWidget*> visible;
        for (QWidget* widget : widgets)
            if (widget->isVisible())
                visible.append(widget);
        return visible.isEmpty() ? nullptr : visible[Roll(static_cast<int>(visible.size()))];
    }

    void ClickATab();
    void TurnThePage();
    void ClickABox();
    void ClickACell();
    void Type();
    void PressBackspace();
    void PressDelete();
    void PressTab();
    void Paste();
    void Undo();
    void Dictate();
    void TurnTheWheel();
    void ChooseAnEntry();
    void AskToClose();
    void New();
    void Open();
    void PressACommand();

    Clerk clerk_;
    Program program_;
    std::mt19937 random_;
    std::vector<Box> boxes_ = AllBoxes();
    ProjectState expected_;
    QStringList acts_; ///< the last of them
    QString focus_;    ///< what has the keyboard
    int row_ = 0;      ///< the current cell of the recovery grid, rows from 0
    int column_ = 1;
    bool typing_ = false;
    std::string buffer_;          ///< typed into the current cell
    std::set<std::string> grids_; ///< that undo may bring back
    std::map<QString, std::set<std::string>> texts_;
    QTemporaryDir folder_;
};

QString User::RandomText() {
    static const QString Characters = u"0123456789.-abcXYZ \"\u00e4\u00df\u20ac,"_s;
    QString text;
    for (int i = Roll(5); i >= 0; --i)
        text += Characters[Roll(static_cast<int>(Characters.size()))];
    return text;
}

/// After a step whose end the model does not foretell, such as the place of an error.
void User::LookWhereTheKeysGo() {
    Activate();
    const QWidget* focus = program_.Window().focusWidget();
    focus_ = focus == nullptr ? QString() : focus->objectName();
    const QModelIndex current = Grid().currentIndex();
    row_ = std::max(current.row(), 0);
    column_ = std::max(current.column(), 1);
    typing_ = false;
}

/// A check trims texts up to its first fault and changes nothing else.
void User::AdoptTrimmed() {
    const auto adopt = [](auto& mine, const auto& real, const std::string& mineText,
                          const std::string& realText) {
        if (realText == Trimmed(mineText))
            mine = real;
    };
    for (std::size_t i = 0; i < 6; ++i)
        adopt(expected_.WellGeoText[i], State().WellGeoText[i], expected_.WellGeoText[i],
              State().WellGeoText[i]);
    adopt(expected_.RecDatPreSlugHeadText, State().RecDatPreSlugHeadText,
          expected_.RecDatPreSlugHeadText, State().RecDatPreSlugHeadText);
    const std::size_t rows = std::min(expected_.RecDatGrid.size(), State().RecDatGrid.size());
    for (std::size_t i = 0; i < rows; ++i) {
        RecoveryRow& mine = expected_.RecDatGrid[i];
        const RecoveryRow& real = State().RecDatGrid[i];
        adopt(mine.time, real.time, mine.time.ToString(), real.time.ToString());
        adopt(mine.level, real.level, mine.level.ToString(), real.level.ToString());
    }
}

void User::ClickATab() {
    const int tab = 1 + Roll(5);
    if (tab == program_.SelectedTab())
        return; // the page that is seen: nothing happens
    program_.ClickTab(tab);
    AdoptTrimmed();
    LookWhereTheKeysGo();
}

void User::TurnThePage() {
    SendKey(Roll(2) == 0 ? Qt::Key_PageDown : Qt::Key_PageUp, Qt::ControlModifier);
    AdoptTrimmed();
    LookWhereTheKeysGo();
}

void User::ClickABox() {
    QList<QWidget*> all;
    for (const Box& box : boxes_)
        all.append(&program_.Find(box.name));
    QWidget* box = VisibleOf(all);
    if (box == nullptr)
        return;
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(5, box->height() / 2));
    focus_ = box->objectName();
    // A click alone gives the keyboard where a desktop runs the window.
    box->setFocus(Qt::MouseFocusReason);
    typing_ = false;
}

void User::ClickACell() {
    if (!Grid().isVisible())
        return;
    row_ = Roll(15);
    column_ = 1 + Roll(2);
    const QModelIndex index = Grid().model()->index(row_, column_);
    // Another cell first: what is typed next replaces the text of the cell.
    Grid().setCurrentIndex(Grid().model()->index(row_ == 0 ? 1 : 0, column_));
    Grid().scrollTo(index);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualRect(index).center());
    Grid().setFocus(Qt::MouseFocusReason);
    focus_ = u"RecDatGrid"_s;
    typing_ = false;
}

void User::Type() {
    const Box* box = FocusedBox();
    const QString text = box != nullptr || OnGrid() ? RandomText() : u"x5"_s;
    if (box != nullptr)
        SendKey(Qt::Key_End);
    QWidget* target = program_.Window().focusWidget();
    if (box == nullptr && !OnGrid() && focus_ != u"RecDatWeightGrid"_s)
        return; // a letter on a list chooses an entry
    // A key for each character, whatever keyboard it is on.
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(c), Qt::NoModifier);
    if (box != nullptr) {
        box->text(expected_, box->index) += ToUtf8(text);
    } else if (OnGrid()) {
        buffer_ = (typing_ ? buffer_ : std::string()) + ToUtf8(text);
        typing_ = true;
        Cell() = CellText(buffer_);
    }
}

void User::PressBackspace() {
    if (const Box* box = FocusedBox()) {
        SendKey(Qt::Key_End);
        SendKey(Qt::Key_Backspace);
        QString text = ToQString(box->text(expected_, box->index));
        text.chop(1);
        box->text(expected_, box->index) = ToUtf8(text);
    } else if (OnGrid()) {
        SendKey(Qt::Key_Backspace);
        QString text = ToQString(buffer_);
        if (!typing_ || text.isEmpty())
            return;
        text.chop(1);
        buffer_ = ToUtf8(text);
        Cell() = CellText(buffer_);
    }
}

void User::PressDelete() {
    if (FocusedBox() != nullptr)
        SendKey(Qt::Key_End);
    SendKey(Qt::Key_Delete);
    if (OnGrid()) {
        Cell() = CellText();
        typing_ = false;
    }
}

void User::PressTab() {
    SendKey(Qt::Key_Tab);
    if (!OnGrid()) {
        LookWhereTheKeysGo();
        return;
    }
    typing_ = false;
    row_ += column_ == 2 ? 1 : 0;
    column_ = 3 - column_;
    if (static_cast<std::size_t>(row_) == expected_.RecDatGrid.size())
        expected_.RecDatGrid.emplace_back();
}

void User::Paste() {
    const QString line = RandomText();
    const QString other = RandomText();
    if (const Box* box = FocusedBox()) {
        QGuiApplication::clipboard()->setText(line + u"\r\n\n"_s + other + u'\n');
        SendKey(Qt::Key_End);
        SendKey(Qt::Key_V, Qt::ControlModifier);
        box->text(expected_, box->index) += ToUtf8(line + u' ' + other);
    } else if (OnGrid()) {
        // Blanks around the whole of a paste are stripped; letters at its ends keep the model
        // plain.
        QGuiApplication::clipboard()->setText(u'p' + line + u'\t' + other + u"q\n"_s);
        SendKey(Qt::Key_V, Qt::ControlModifier);
        if (column_ == 1) {
            RecoveryRow& row = expected_.RecDatGrid[static_cast<std::size_t>(row_)];
            row.time = CellText(ToUtf8(u'p' + line));
            row.level = CellText(ToUtf8(other + u'q'));
        }
        Activate();
        typing_ = false;
    }
}

void User::Undo() {
    if (const Box* box = FocusedBox()) {
        SendKey(Qt::Key_End);
        SendKey(Qt::Key_Z, Qt::ControlModifier);
        // Any text that this box had in this project, and no other.
        const std::string& now = box->text(State(), box->index);
        if (texts_[box->name].contains(now))
            box->text(expected_, box->index) = now;
    } else if (OnGrid()) {
        SendKey(Qt::Key_Z, Qt::ControlModifier);
        if (grids_.contains(TrimmedTextOf(State().RecDatGrid)))
            expected_.RecDatGrid = State().RecDatGrid;
        LookWhereTheKeysGo();
    }
}

void User::Dictate() {
    const Box& box = boxes_[static_cast<std::size_t>(Roll(static_cast<int>(boxes_.size())))];
    auto& widget = program_.Find<QLineEdit>(box.name);
    if (!widget.isVisible())
        return;
    const QString text = RandomText();
    QAccessible::queryAccessibleInterface(&widget)->setText(QAccessible::Value, text);
    box.text(expected_, box.index) = ToUtf8(text);
}

void User::TurnTheWheel() {
    QList<QWidget*> all = {&program_.Find(u"TabStrip2"_s), Grid().viewport(),
                           program_.Find<QTableView>(u"RecDatWeightGrid"_s).viewport()};
    for (const UnitList& list : Lists)
        all.append(&program_.Find(QString::fromLatin1(list.name)));
    QWidget* over = VisibleOf(all);
    if (over == nullptr || over->hasFocus())
        return;
    const QPoint at = over->rect().center();
    QWheelEvent event(at, over->mapToGlobal(at), {}, QPoint(0, Roll(2) == 0 ? 120 : -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(over, &event);
}

void User::ChooseAnEntry() {
    const UnitList& list = Lists[static_cast<std::size_t>(Roll(static_cast<int>(Lists.size())))];
    auto& widget = program_.Find<QComboBox>(QString::fromLatin1(list.name));
    if (!widget.isVisible())
        return;
    widget.setFocus(Qt::MouseFocusReason);
    const bool down = Roll(2) == 0;
    SendKey(down ? Qt::Key_Down : Qt::Key_Up);
    int& position = expected_.*list.position;
    position = std::clamp(position + (down ? 1 : -1), 0, widget.count() - 1);
    focus_ = widget.objectName();
    typing_ = false;
}

void User::AskToClose() {
    const auto close = [this] {
        QCloseEvent event;
        QCoreApplication::sendEvent(program_.Window().windowHandle(), &event);
    };
    if (Roll(2) == 0)
        clerk_.ThenAtOnce(close);
    close();
    Activate();
    typing_ = false;
}

void User::New() {
    const bool really = Roll(3) == 0;
    clerk_.ConsentNext(really);
    SendKey(Qt::Key_N, Qt::ControlModifier);
    clerk_.ConsentNext(false);
    if (really) {
        ResetProjectState(expected_);
        NewHistory();
        row_ = 0;
        column_ = 1;
        focus_ = u"SiteIDText_0"_s;
    }
    Activate();
    typing_ = false;
}

void User::Open() {
    QString path = Example;
    if (Roll(2) == 0) {
        path = folder_.filePath(u"kept.qn2"_s);
        static_cast<void>(
            SaveFileBytes(ToUtf8(path), EncodeFileText(ProjectFileText(State()).text)));
        expected_ = State();
    }
    program_.Window().OpenPath(path);
    static_cast<void>(OpenProjectFile(ToUtf8(path), expected_));
    NewHistory();
    row_ = 0;
    column_ = 1;
    focus_ = u"SiteIDText_0"_s;
    Activate();
}

void User::PressACommand() {
    if (!Grid().isVisible())
        return;
    const QStringList commands = {u"CmdRecDatCut"_s, u"CmdRecDataCopy"_s, u"CmdRecDatDeleteRows"_s,
                                  u"CmdRecDatCheckData"_s};
    const QString command = commands[Roll(static_cast<int>(commands.size()))];
    const bool goesOn = OnGrid() && typing_ && command == commands[1];
    const QModelIndex current = Grid().currentIndex();
    row_ = current.row();
    column_ = current.column();
    clerk_.ConsentNext(true);
    QTest::mouseClick(&program_.Find(command), Qt::LeftButton);
    clerk_.ConsentNext(false);
    if (command == commands[0]) {
        Cell() = CellText();
    } else if (command == commands[2]) {
        expected_.RecDatGrid.erase(expected_.RecDatGrid.begin() + row_);
        if (expected_.RecDatGrid.size() < MinimumGridRows)
            expected_.RecDatGrid.emplace_back();
    } else if (command == commands[3]) {
        AdoptTrimmed();
    }
    LookWhereTheKeysGo();
    typing_ = goesOn;
    if (command != commands[3])
        focus_ = u"RecDatGrid"_s;
    else if (OnGrid())
        ClickACell(); // whether a box came between is not the model's to know
}

void User::Act() {
    struct Habit {
        const char* name;
        Move move;
        int often;
    };
    static constexpr std::array<Habit, 17> Habits = {{{"click a tab", &User::ClickATab, 8},
                                                      {"turn the page", &User::TurnThePage, 6},
                                                      {"click a box", &User::ClickABox, 12},
                                                      {"click a cell", &User::ClickACell, 12},
                                                      {"type", &User::Type, 30},
                                                      {"Backspace", &User::PressBackspace, 8},
                                                      {"Delete", &User::PressDelete, 5},
                                                      {"Tab", &User::PressTab, 12},
                                                      {"paste", &User::Paste, 10},
                                                      {"undo", &User::Undo, 8},
                                                      {"dictate", &User::Dictate, 6},
                                                      {"wheel", &User::TurnTheWheel, 10},
                                                      {"choose", &User::ChooseAnEntry, 6},
                                                      {"close", &User::AskToClose, 3},
                                                      {"New", &User::New, 2},
                                                      {"Open", &User::Open, 2},
                                                      {"command", &User::PressACommand, 8}}};
    int all = 0;
    for (const Habit& habit : Habits)
        all += habit.often;
    int roll = Roll(all);
    const Habit* chosen = Habits.data();
    while (roll >= chosen->often)
        roll -= (chosen++)->often;
    acts_.append(QLatin1String(chosen->name) + u" on "_s + focus_);
    if (acts_.size() > 12)
        acts_.removeFirst();
    (this->*chosen->move)();
}

QString User::Compare() {
    const auto differs = [](const QString& where, const std::string& is, const std::string& must) {
        return u"%1 holds \"%2\" instead of \"%3\""_s.arg(where, ToQString(is), ToQString(must));
    };
    if (!program_.Window().isVisible())
        return u"the window is closed"_s;
    for (const Box& box : boxes_) {
        const std::string& must = box.text(expected_, box.index);
        const std::string& is = box.text(State(), box.index);
        const std::string shown = ToUtf8(program_.Find<QLineEdit>(box.name).text());
        if (is != must)
            return differs(box.name, is, must);
        if (shown != is)
            return differs(box.name + u" on screen"_s, shown, is);
        texts_[box.name].insert(is);
    }
    for (const UnitList& list : Lists) {
        const int shown = program_.Find<QComboBox>(QString::fromLatin1(list.name)).currentIndex();
        if (State().*list.position != expected_.*list.position || shown != State().*list.position)
            return QString::fromLatin1(list.name) + u" is at another entry"_s;
    }
    const std::string rows = TextOf(State().RecDatGrid);
    if (rows != TextOf(expected_.RecDatGrid))
        return FirstDifference(rows, TextOf(expected_.RecDatGrid));
    grids_.insert(TrimmedTextOf(State().RecDatGrid));
    const QWidget* focus = program_.Window().focusWidget();
    if (focus != nullptr && !focus->isVisible())
        return focus->objectName() + u" has the keyboard unseen"_s;
    if (const QString name = focus == nullptr ? QString() : focus->objectName(); name != focus_)
        return u"\"%1\" has the keyboard instead of \"%2\""_s.arg(name, focus_);
    return QString();
}

} // namespace

class TestRandomTyping : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingTypedGoesAstray() {
        User user;
        for (int step = 0; step < steps; ++step) {
            user.Act();
            const QString wrong = user.Compare();
            if (!wrong.isEmpty())
                QFAIL(qPrintable(u"step %1 of seed %2, %3: %4"_s.arg(step).arg(seed).arg(
                    user.LastActs(), wrong)));
        }
    }
};

} // namespace quarnel::windowtest

int main(int argc, char** argv) {
    using namespace quarnel::windowtest;
    if (argc > 1)
        steps = std::atoi(argv[1]);
    if (argc > 2)
        seed = static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10));
    // As long as it takes.
    qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000");
    return Run<TestRandomTyping>(1, argv);
}

#include "test_random_typing.moc"
