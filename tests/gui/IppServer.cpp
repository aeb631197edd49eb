#include "tests/gui/IppServer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cups/cups.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quarnel::windowtest {

namespace {

/// No client of ours asks as often; one that asks without end is cut off.
constexpr int MostRequests = 500;
constexpr int PollMilliseconds = 20;
/// A4 and margins of 18 points, in hundredths of a millimetre.
constexpr int SheetWidth = 21000;
constexpr int SheetHeight = 29700;
constexpr int Margin = 635;

/// Bytes that CUPS's reader and writer of messages work on.
struct Bytes {
    std::string data;
    std::size_t at = 0;
};

ssize_t ReadBytes(void* source, ipp_uchar_t* buffer, std::size_t size) {
    auto& bytes = *static_cast<Bytes*>(source);
    const std::size_t count = std::min(size, bytes.data.size() - bytes.at);
    std::memcpy(buffer, bytes.data.data() + bytes.at, count);
    bytes.at += count;
    return static_cast<ssize_t>(count);
}

ssize_t WriteBytes(void* target, ipp_uchar_t* buffer, std::size_t size) {
    static_cast<Bytes*>(target)->data.append(reinterpret_cast<const char*>(buffer), size);
    return static_cast<ssize_t>(size);
}

void AddSheet(ipp_t* answer) {
    ipp_t* size = ippNew();
    ippAddInteger(size, IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension", SheetWidth);
    ippAddInteger(size, IPP_TAG_ZERO, IPP_TAG_INTEGER, "y-dimension", SheetHeight);
    ipp_t* media = ippNew();
    ippAddCollection(media, IPP_TAG_ZERO, "media-size", size);
    for (const char* side :
         {"media-left-margin", "media-top-margin", "media-right-margin", "media-bottom-margin"})
        ippAddInteger(media, IPP_TAG_ZERO, IPP_TAG_INTEGER, side, Margin);
    ippAddCollection(answer, IPP_TAG_PRINTER, "media-col-default", media);
    ippDelete(size);
    ippDelete(media);
}

void AddPrinter(ipp_t* answer, bool stopped) {
    ippAddString(answer, IPP_TAG_PRINTER, IPP_TAG_NAME, "printer-name", nullptr, "Office");
    ippAddString(answer, IPP_TAG_PRINTER, IPP_TAG_URI, "printer-uri-supported", nullptr,
                 "ipp://localhost/printers/Office");
    ippAddInteger(answer, IPP_TAG_PRINTER, IPP_TAG_ENUM, "printer-state",
                  stopped ? IPP_PSTATE_STOPPED : IPP_PSTATE_IDLE);
    ippAddBoolean(answer, IPP_TAG_PRINTER, "printer-is-accepting-jobs", 1);
    ippAddInteger(answer, IPP_TAG_PRINTER, IPP_TAG_ENUM, "printer-type", 0);
    AddSheet(answer);
}

void AddJob(ipp_t* answer, std::size_t number) {
    ippAddInteger(answer, IPP_TAG_JOB, IPP_TAG_INTEGER, "job-id", static_cast<int>(number));
    ippAddInteger(answer, IPP_TAG_JOB, IPP_TAG_ENUM, "job-state", IPP_JSTATE_PENDING);
}

} // namespace

/// One client's connection: request after request until it hangs up or the server does.
class IppServer::Connection {
public:
    Connection(IppServer& server, int socket)
        : server_(server)
        , socket_(socket) {}
    ~Connection() { close(socket_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Serve() {
        while (!server_.gone_ && ServeOne()) {
        }
    }

private:
    /// More bytes from the client; false at the end of the connection or of the server.
    bool Receive() {
        while (!server_.ends_) {
            pollfd wait{socket_, POLLIN, 0};
            if (poll(&wait, 1, PollMilliseconds) == 0)
                continue;
            std::array<char, 65536> buffer{};
            const ssize_t count = recv(socket_, buffer.data(), buffer.size(), 0);
            if (count <= 0)
                return false;
            unread_.append(buffer.data(), static_cast<std::size_t>(count));
            return true;
        }
        return false;
    }

    /// The bytes up to and with `end`; empty when the connection ends before.
    std::string ReadUntil(const std::string& end) {
        std::size_t found = unread_.find(end);
        while (found == std::string::npos) {
            if (!Receive())
                return {};
            found = unread_.find(end);
        }
        std::string text = unread_.substr(0, found + end.size());
        unread_.erase(0, text.size());
        return text;
    }

    bool ReadCount(std::size_t count, std::string& text) {
        while (unread_.size() < count)
            if (!Receive())
                return false;
        text.append(unread_, 0, count);
        unread_.erase(0, count);
        return true;
    }

    /// The body of a request. False when it is not to be read to its end.
    bool ReadBody(const std::string& head, Bytes& body) {
        if (const std::size_t at = head.find("content-length: "); at != std::string::npos)
            return ReadCount(std::strtoull(head.c_str() + at + 16, nullptr, 10), body.data);
        const Manner manner = server_.manner_;
        const bool fails = manner == Manner::Vanishes || manner == Manner::HasNoRoom;
        std::size_t chunk = 1;
        while (chunk > 0) {
            const std::string size = ReadUntil("\r\n");
            if (size.empty())
                return false;
            chunk = std::strtoull(size.c_str(), nullptr, 16);
            if (!ReadCount(chunk, body.data) || ReadUntil("\r\n").empty())
                return false;
            if (fails && body.data.find("%PDF") != std::string::npos)
                return false;
        }
        return true;
    }

    void Send(const std::string& text) {
        std::size_t sent = 0;
        while (sent < text.size()) {
            const ssize_t count =
                send(socket_, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
            if (count <= 0)
                return;
            sent += static_cast<std::size_t>(count);
        }
    }

    bool ServeOne() {
        std::string head = ReadUntil("\r\n\r\n");
        if (head.empty() || ++server_.requests_ > MostRequests)
            return false;
        std::transform(head.begin(), head.end(), head.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (head.find("expect: 100-continue") != std::string::npos)
            Send("HTTP/1.1 100 Continue\r\n\r\n");
        Bytes body;
        const bool whole = ReadBody(head, body);
        ipp_t* request = ippNew();
        const bool isMessage = ippReadIO(&body, ReadBytes, 1, nullptr, request) == IPP_STATE_DATA;
        if (isMessage && !whole)
            Break(body);
        else if (isMessage)
            Answer(request, body);
        ippDelete(request);
        return isMessage && whole;
    }

    /// Ends in the middle of a document.
    void Break(const Bytes& body) {
        {
            const std::lock_guard lock(server_.mutex_);
            if (!server_.jobs_.empty())
                server_.jobs_.back().document = body.data.substr(body.at);
        }
        if (server_.manner_ == Manner::HasNoRoom)
            Send("HTTP/1.1 413 Request Entity Too Large\r\nConnection: close\r\n"
                 "Content-Length: 0\r\n\r\n");
        else
            server_.gone_ = true;
    }

    void Answer(ipp_t* request, const Bytes& body) {
        ipp_t* answer = ippNewResponse(request);
        Fill(request, answer, body);
        Bytes bytes;
        ippWriteIO(&bytes, WriteBytes, 1, nullptr, answer);
        ippDelete(answer);
        Send("HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\nContent-Length: " +
             std::to_string(bytes.data.size()) + "\r\n\r\n" + bytes.data);
    }

    static void Fail(ipp_t* answer, ipp_status_t status, const char* words) {
        ippSetStatusCode(answer, status);
        ippAddString(answer, IPP_TAG_OPERATION, IPP_TAG_TEXT, "status-message", nullptr, words);
    }

    void Fill(ipp_t* request, ipp_t* answer, const Bytes& body) {
        const std::lock_guard lock(server_.mutex_);
        std::vector<Job>& jobs = server_.jobs_;
        switch (ippGetOperation(request)) {
        case IPP_OP_CREATE_JOB:
            if (server_.manner_ == Manner::Refuses)
                return Fail(answer, IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS,
                            "Destination \"Office\" is not accepting jobs.");
            jobs.push_back({TextOf(request, "job-name"), {}, false, false});
            return AddJob(answer, jobs.size());
        case IPP_OP_SEND_DOCUMENT:
            if (jobs.empty())
                return Fail(answer, IPP_STATUS_ERROR_NOT_FOUND, "No such job.");
            jobs.back().document = body.data.substr(body.at);
            jobs.back().whole = true;
            return AddJob(answer, jobs.size());
        case IPP_OP_CANCEL_JOB:
            if (!jobs.empty())
                jobs.back().cancelled = true;
            return;
        default:
            if (server_.manner_ == Manner::NoPrinter)
                return Fail(answer, IPP_STATUS_ERROR_NOT_FOUND, "No default printer.");
            AddPrinter(answer, server_.manner_ == Manner::IsStopped);
        }
    }

    static std::string TextOf(ipp_t* request, const char* name) {
        ipp_attribute_t* attribute = ippFindAttribute(request, name, IPP_TAG_NAME);
        return attribute != nullptr ? ippGetString(attribute, 0, nullptr) : std::string();
    }

    IppServer& server_;
    int socket_;
    std::string unread_;
};

IppServer::IppServer() {
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (listener_ < 0 || bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        listen(listener_, 8) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        std::perror("IppServer");
        std::abort();
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
}

IppServer::~IppServer() {
    ends_ = true;
    thread_.join();
    close(listener_);
}

std::string IppServer::Address() const {
    return "127.0.0.1:" + std::to_string(port_);
}

void IppServer::Behave(Manner manner) {
    const std::lock_guard lock(mutex_);
    jobs_.clear();
    requests_ = 0;
    gone_ = false;
    manner_ = manner;
}

std::vector<IppServer::Job> IppServer::Jobs() const {
    const std::lock_guard lock(mutex_);
    return jobs_;
}

void IppServer::Serve() {
    while (!ends_) {
        pollfd wait{listener_, POLLIN, 0};
        if (poll(&wait, 1, PollMilliseconds) <= 0)
            continue;
        const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0)
            Connection(*this, client).Serve();
    }
}

} // namespace quarnel::windowtest
