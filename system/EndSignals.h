#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace quarnel {

/// While it lives, a request of the system to end (SIGTERM, SIGHUP, SIGINT) first runs `beforeEnd`
/// in the event loop, where it may write files, and then ends the program without a question.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> beforeEnd);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::function<void()> beforeEnd_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace quarnel
