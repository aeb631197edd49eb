#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace quarnel::windowtest {

/// A printing system of the tests' own on this machine's loopback: one printer "Office" with A4 in
/// it, speaking as much of the Internet Printing Protocol (RFC 8010, 8011) as CUPS's library asks
/// for. What it does with a document is told beforehand; what came is kept.
class IppServer {
public:
    enum class Manner {
        NoPrinter, ///< there is none
        Accepts,   ///< takes every document
        Refuses,   ///< takes no job
        IsStopped, ///< takes documents and stands still
        Vanishes,  ///< hangs up in the middle of a document, and on everything after it
        HasNoRoom, ///< runs out of disk in the middle of a document
    };

    IppServer();
    ~IppServer();
    IppServer(const IppServer&) = delete;
    IppServer& operator=(const IppServer&) = delete;

    /// "127.0.0.1:PORT", for CUPS_SERVER.
    std::string Address() const;
    /// Forgets what came and behaves so from now on.
    void Behave(Manner manner);

    struct Job {
        std::string title;
        std::string document;
        bool whole = false;
        bool cancelled = false;
    };
    std::vector<Job> Jobs() const;
    int Requests() const { return requests_; }

private:
    class Connection;
    void Serve();

    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> ends_ = false;
    std::atomic<Manner> manner_ = Manner::Accepts;
    std::atomic<bool> gone_ = false;
    std::atomic<int> requests_ = 0;
    mutable std::mutex mutex_;
    std::vector<Job> jobs_;
    std::thread thread_;
};

} // namespace quarnel::windowtest
