#include "cli/Output.h"

#include "project/PlainText.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace quarnel {

namespace {

/// Waits until a descriptor that another program made non-blocking takes bytes again.
void WaitForRoom(int descriptor) {
    pollfd room{descriptor, POLLOUT, 0};
    poll(&room, 1, -1);
}

/// Writes all of `bytes`; the system's error number where it cannot, else 0.
int WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0) // asked again, it would say the same for ever
            return EIO;
        else if (errno == EAGAIN)
            WaitForRoom(descriptor);
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

} // namespace

bool Output::Flush() {
    if (!HasFailed())
        systemError_ = WriteAll(descriptor_, pending_);
    pending_.clear();
    return !HasFailed();
}

std::string Output::FailureText() const {
    return std::generic_category().message(systemError_);
}

void PrintMessage(std::string_view prefix, std::string_view text) {
    std::string line = PlainText(prefix);
    line += ": ";
    line += PlainText(text);
    line += '\n';
    WriteAll(STDERR_FILENO, line); // nobody is left to tell of a failure here
}

void PrintMessages(std::string_view prefix, std::span<const std::string> texts) {
    for (const std::string& text : texts)
        PrintMessage(prefix, text);
}

void SecureStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(descriptor, F_GETFD) == -1)
            static_cast<void>(open("/dev/null", O_RDONLY)); // takes the lowest free number
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace quarnel
