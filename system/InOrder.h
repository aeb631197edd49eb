#pragma once

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <stop_token>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace quarnel {

/// How many workers there are where nobody says: one for each core.
inline std::size_t DefaultJobs() {
    return std::max(1U, std::thread::hardware_concurrency());
}

/// A result of each of many things, made on several threads and taken one at a time in the order of
/// the things, whoever made it.
template <typename Result> class InOrder {
public:
    /// Makes the result of one thing; called on several threads at a time.
    using Make = std::function<Result(std::size_t index)>;
    /// Gets each result in turn, on the worker that completed the order.
    using Take = std::function<void(std::size_t index, Result result)>;

    /// `ahead`: how many results at most may wait for their turn, at least 1. That bounds the
    /// memory when one thing takes much longer than those behind it.
    InOrder(Make make, Take take, std::size_t ahead, std::stop_token stop = {})
        : make_(std::move(make))
        , take_(std::move(take))
        , ahead_(std::max<std::size_t>(1, ahead))
        , stop_(std::move(stop)) {}

    /// Goes through `count` things on `jobs` workers, each of which takes the next one. Comes back
    /// when all are done; a request to stop ends it within what each worker has in hand, and no
    /// later result is handed over. An exception of `make` or `take` ends it and comes out of it.
    /// True when every result was handed over. To be called once.
    bool Run(std::size_t count, std::size_t jobs) {
        count_ = count;
        {
            std::vector<std::jthread> others;
            try {
                for (std::size_t i = 1; i < std::min(jobs, count); ++i)
                    others.emplace_back([this] { Work(); });
            } catch (const std::system_error&) {
                // The system gives no more threads: those there are do the work.
            }
            Work(); // this thread is a worker too
        }
        if (fault_)
            std::rethrow_exception(fault_);
        return next_ == count_;
    }

private:
    bool IsEnding() const { return stop_.stop_requested() || hasFailed_; }

    void Work() {
        try {
            while (!IsEnding()) {
                const std::size_t index = nextToMake_++;
                if (index >= count_ || !WaitForRoom(index))
                    return;
                HandOver(index, make_(index));
            }
        } catch (...) {
            const std::lock_guard lock(order_);
            if (!fault_)
                fault_ = std::current_exception();
            hasFailed_ = true;
            hasMoved_.notify_all();
        }
    }

    /// Until the result would not lie too far ahead; false when the run ends first.
    bool WaitForRoom(std::size_t index) {
        std::unique_lock lock(order_);
        hasMoved_.wait(lock, stop_, [this, index] { return hasFailed_ || index < next_ + ahead_; });
        return !IsEnding();
    }

    /// Takes what has its turn now, unless another worker is at it, who will find this one too.
    void HandOver(std::size_t index, Result result) {
        std::unique_lock lock(order_);
        waiting_.emplace(index, std::move(result));
        if (isTaking_)
            return;
        isTaking_ = true;
        while (!IsEnding() && !waiting_.empty() && waiting_.begin()->first == next_) {
            auto turn = waiting_.extract(waiting_.begin());
            lock.unlock();
            take_(turn.key(), std::move(turn.mapped()));
            lock.lock();
            ++next_;
            hasMoved_.notify_all();
        }
        isTaking_ = false;
    }

    const Make make_;
    const Take take_;
    const std::size_t ahead_;
    const std::stop_token stop_;
    std::size_t count_ = 0;
    std::atomic<std::size_t> nextToMake_ = 0;
    std::atomic<bool> hasFailed_ = false;
    std::mutex order_; ///< guards all below
    std::condition_variable_any hasMoved_;
    std::size_t next_ = 0; ///< the next to be taken
    bool isTaking_ = false;
    std::map<std::size_t, Result> waiting_; ///< those whose turn has not come
    std::exception_ptr fault_;
};

} // namespace quarnel
