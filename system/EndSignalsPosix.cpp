#include "system/EndSignals.h"

#include <QCoreApplication>
#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace quarnel {

namespace {

constexpr std::array<int, 3> Signals = {SIGTERM, SIGHUP, SIGINT};

/// A signal's handler may do next to nothing: it writes a byte here and the event loop does the
/// rest.
std::array<int, 2> sockets = {-1, -1};

void Tell(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = write(sockets[0], &byte, 1);
}

} // namespace

EndSignals::EndSignals(std::function<void()> beforeEnd)
    : beforeEnd_(std::move(beforeEnd)) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets.data()) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(sockets[1], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        notifier_->setEnabled(false);
        beforeEnd_();
        QCoreApplication::exit(0);
    });
    for (const int signal : Signals)
        std::signal(signal, Tell);
}

EndSignals::~EndSignals() {
    for (const int signal : Signals)
        std::signal(signal, SIG_DFL);
    notifier_.reset();
    for (int& socket : sockets)
        if (socket >= 0)
            close(std::exchange(socket, -1));
}

} // namespace quarnel
