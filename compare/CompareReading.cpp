#include "compare/CompareReading.h"

#include "compare/CompareRun.h"
#include "system/InOrder.h"
#include "system/Locale.h"

#include <QMetaObject>
#include <stop_token>

namespace quarnel {

CompareReading::~CompareReading() {
    Cancel();
    // Joined before anything that it uses goes.
    worker_ = {};
}

void CompareReading::Start(std::vector<std::string> files) {
    isRunning_ = true;
    worker_ = std::jthread([this, files = std::move(files)](const std::stop_token& stop) {
        std::exception_ptr fault;
        try {
            Run(files, stop);
        } catch (...) {
            fault = std::current_exception();
        }
        QMetaObject::invokeMethod(
            this, [this, fault] { TellEnd(fault); }, Qt::QueuedConnection);
    });
}

void CompareReading::Run(const std::vector<std::string>& files, const std::stop_token& stop) {
    const std::string separator = SystemDecimalSeparator();
    CompareKeep keep;
    keep.points = true;
    keep.remarkTexts = true;
    PathResolver paths;
    ReadCompareRows(
        files, DefaultJobs(),
        [&separator, keep, &paths](const std::string& file) {
            return ReadCompareRow(file, separator, keep, paths);
        },
        [this](std::size_t index, CompareRow row) { Keep(index, std::move(row)); }, stop);
}

/// Tells the window once of all rows that come before it looks.
void CompareReading::Keep(std::size_t index, CompareRow row) {
    const std::lock_guard lock(mutex_);
    rows_.emplace_back(index, std::move(row));
    if (!std::exchange(areRowsTold_, true))
        QMetaObject::invokeMethod(this, &CompareReading::TellRows, Qt::QueuedConnection);
}

std::vector<std::pair<std::size_t, CompareRow>> CompareReading::TakeRows() {
    const std::lock_guard lock(mutex_);
    areRowsTold_ = false;
    return std::exchange(rows_, {});
}

void CompareReading::TellRows() {
    Q_EMIT RowsCame();
}

void CompareReading::TellEnd(std::exception_ptr fault) {
    worker_ = {};
    isRunning_ = false;
    Q_EMIT Ended();
    // Shown by the one place that shows what nobody foresaw.
    if (fault)
        std::rethrow_exception(fault);
}

} // namespace quarnel
