#pragma once

#include "compare/CompareRow.h"

#include <QObject>
#include <cstddef>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace quarnel {

/// Reads projects on all cores while the window goes on. Rows are kept here until they are taken;
/// the signals come in the window's own thread. Its end cancels, within the files in hand.
class CompareReading : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~CompareReading() override;

    /// Begins to read the files; nothing else may be under way.
    void Start(std::vector<std::string> files);
    /// Ends the run within the files in hand; `Ended` still comes.
    void Cancel() { worker_.request_stop(); }
    bool IsRunning() const { return isRunning_; }

    /// The rows that have come since they were last taken, each with its place among the files.
    std::vector<std::pair<std::size_t, CompareRow>> TakeRows();

Q_SIGNALS:
    /// There are rows to take.
    void RowsCame();
    /// All rows have come, or the run was cancelled.
    void Ended();

private:
    void Run(const std::vector<std::string>& files, const std::stop_token& stop);
    void Keep(std::size_t index, CompareRow row);
    void TellRows();
    void TellEnd(std::exception_ptr fault);

    std::mutex mutex_; ///< of the two below it
    std::vector<std::pair<std::size_t, CompareRow>> rows_;
    bool areRowsTold_ = false;
    bool isRunning_ = false;
    std::jthread worker_;
};

} // namespace quarnel
