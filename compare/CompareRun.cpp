#include "compare/CompareRun.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace quarnel {

namespace {

/// What the workers of one run share.
class Run {
public:
    Run(const std::vector<std::string>& files, const CompareReader& read, const CompareTaker& take,
        const std::stop_token& stop)
        : files_(files)
        , read_(read)
        , take_(take)
        , stop_(stop) {}

    /// Takes the next file until none is left or somebody wants the run to end.
    void Work();
    /// Whether all rows were handed over; throws what a worker could not.
    bool Finish();

private:
    bool IsEnding() const { return stop_.stop_requested() || hasFailed_; }
    void WorkOn();
    void HandOver(std::size_t index, CompareRow row);

    const std::vector<std::string>& files_;
    const CompareReader& read_;
    const CompareTaker& take_;
    const std::stop_token& stop_;
    std::atomic<std::size_t> nextFile_ = 0;
    std::atomic<bool> hasFailed_ = false;
    std::mutex order_; ///< guards all below
    std::size_t nextRow_ = 0;
    std::map<std::size_t, CompareRow> waiting_; ///< rows whose turn has not come
    std::exception_ptr fault_;
};

void Run::HandOver(std::size_t index, CompareRow row) {
    const std::lock_guard lock(order_);
    waiting_.emplace(index, std::move(row));
    while (!IsEnding() && !waiting_.empty() && waiting_.begin()->first == nextRow_) {
        take_(nextRow_, std::move(waiting_.begin()->second));
        waiting_.erase(waiting_.begin());
        ++nextRow_;
    }
}

void Run::WorkOn() {
    while (!IsEnding()) {
        const std::size_t index = nextFile_++;
        if (index >= files_.size())
            return;
        HandOver(index, read_(files_[index]));
    }
}

void Run::Work() {
    try {
        WorkOn();
    } catch (...) {
        const std::lock_guard lock(order_);
        if (!fault_)
            fault_ = std::current_exception();
        hasFailed_ = true;
    }
}

bool Run::Finish() {
    if (fault_)
        std::rethrow_exception(fault_);
    return nextRow_ == files_.size();
}

} // namespace

std::size_t DefaultCompareJobs() {
    return std::max(1U, std::thread::hardware_concurrency());
}

bool ReadCompareRows(const std::vector<std::string>& files, std::size_t jobs,
                     const CompareReader& read, const CompareTaker& take,
                     const std::stop_token& stop) {
    Run run(files, read, take, stop);
    {
        std::vector<std::jthread> others;
        const std::size_t workers = std::min(jobs, files.size());
        try {
            for (std::size_t i = 1; i < workers; ++i)
                others.emplace_back([&run] { run.Work(); });
        } catch (const std::system_error&) {
            // The system gives no more threads: those there are do the work.
        }
        run.Work(); // this thread is a worker too
    }
    return run.Finish();
}

} // namespace quarnel
