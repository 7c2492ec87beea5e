#include "TcpRecorderLink.h"

#include <ws2tcpip.h>

#include <algorithm>

#include "Framing.h"
#include "Sockets.h"

namespace varcfg::host {
namespace {

long RemainingMs(std::chrono::steady_clock::time_point deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
    return left > 0 ? static_cast<long>(left) : 0;
}

}  // namespace

TcpRecorderLink::TcpRecorderLink(std::string host, uint16_t port, std::chrono::milliseconds timeout)
    : host_(std::move(host)), port_(port), timeout_(timeout) {
    WSADATA winsock;
    winsockStarted_ = WSAStartup(MAKEWORD(2, 2), &winsock) == 0;
}

TcpRecorderLink::~TcpRecorderLink() {
    Disconnect();
    if (winsockStarted_) WSACleanup();
}

std::string TcpRecorderLink::Where() const { return "recorder at " + host_ + ":" + std::to_string(port_); }

std::optional<std::string> TcpRecorderLink::Exchange(const std::string& request) {
    if (!winsockStarted_) {
        problem_ = "Winsock did not start";
        return std::nullopt;
    }
    if (request.size() > kMaxFrame) {
        problem_ = "the request is longer than " + std::to_string(kMaxFrame) + " bytes";
        return std::nullopt;
    }
    const Deadline deadline = std::chrono::steady_clock::now() + timeout_;
    if (socket_ != INVALID_SOCKET && ClosedMeanwhile()) Disconnect();
    if (socket_ == INVALID_SOCKET && !Connect(deadline)) return std::nullopt;

    char header[sim::kFrameHeaderSize] = {};
    if (!SendAll(sim::Frame(request), deadline) || !ReceiveAll(header, sizeof header, deadline)) return std::nullopt;
    const uint32_t length = sim::AnnouncedLength(header);
    if (length > kMaxFrame) {
        Fail("the reply frame announces " + std::to_string(length) + " bytes, more than " + std::to_string(kMaxFrame));
        return std::nullopt;
    }
    std::string reply(length, '\0');
    if (!ReceiveAll(reply.data(), reply.size(), deadline)) return std::nullopt;
    return reply;
}

bool TcpRecorderLink::Connect(Deadline deadline) {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_protocol = IPPROTO_TCP;
    addrinfo* found = nullptr;
    const int lookup = getaddrinfo(host_.c_str(), std::to_string(port_).c_str(), &hints, &found);
    if (lookup != 0 || found == nullptr) return Fail("cannot find the host " + host_ + ": " + sim::SocketErrorText(lookup));
    socket_ = socket(found->ai_family, found->ai_socktype, found->ai_protocol);
    int error = socket_ == INVALID_SOCKET ? WSAGetLastError() : 0;
    bool connected = false;
    if (socket_ != INVALID_SOCKET) {
        // Non-blocking, so that every wait below is bounded by the deadline.
        u_long nonBlocking = 1;
        ioctlsocket(socket_, FIONBIO, &nonBlocking);
        const BOOL noDelay = TRUE;  // one small frame per exchange: send it at once
        setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&noDelay), sizeof noDelay);
        if (connect(socket_, found->ai_addr, static_cast<int>(found->ai_addrlen)) == 0) {
            connected = true;
        } else if ((error = WSAGetLastError()) == WSAEWOULDBLOCK) {
            error = WSAETIMEDOUT;
            // Connected, or failed before the deadline: the socket says which, and why.
            if (WaitFor(true, deadline) || RemainingMs(deadline) > 0) {
                int size = sizeof error;
                getsockopt(socket_, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
            }
            connected = error == 0;
        }
    }
    freeaddrinfo(found);
    if (connected) return true;
    if (error == WSAETIMEDOUT) {
        return Fail("no connection to " + host_ + ":" + std::to_string(port_) + " within " +
                    std::to_string(timeout_.count()) + " ms");
    }
    return Fail("cannot connect to " + host_ + ":" + std::to_string(port_) + ": " + sim::SocketErrorText(error));
}

bool TcpRecorderLink::Fail(const std::string& problem) {
    problem_ = problem;
    Disconnect();
    return false;
}

bool TcpRecorderLink::ClosedMeanwhile() {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(socket_, &readable);
    timeval now = {0, 0};
    return select(0, &readable, nullptr, nullptr, &now) != 0;
}

void TcpRecorderLink::Disconnect() {
    if (socket_ != INVALID_SOCKET) closesocket(socket_);
    socket_ = INVALID_SOCKET;
}

bool TcpRecorderLink::WaitFor(bool write, Deadline deadline) {
    fd_set ready;
    fd_set failed;
    FD_ZERO(&ready);
    FD_ZERO(&failed);
    FD_SET(socket_, &ready);
    FD_SET(socket_, &failed);  // a refused connection shows here
    const long remaining = RemainingMs(deadline);
    if (remaining == 0) return false;
    timeval wait = {remaining / 1000, (remaining % 1000) * 1000};
    const int count = select(0, write ? nullptr : &ready, write ? &ready : nullptr, &failed, &wait);
    return count > 0 && FD_ISSET(socket_, &ready) && !FD_ISSET(socket_, &failed);
}

bool TcpRecorderLink::SendAll(const std::string& bytes, Deadline deadline) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        if (!WaitFor(true, deadline)) {
            return Fail("could not send the request within " + std::to_string(timeout_.count()) + " ms");
        }
        const int count = send(socket_, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
        if (count == SOCKET_ERROR && WSAGetLastError() == WSAEWOULDBLOCK) continue;
        if (count <= 0) return Fail("the connection broke while sending: " + sim::SocketErrorText(WSAGetLastError()));
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

bool TcpRecorderLink::ReceiveAll(char* buffer, std::size_t size, Deadline deadline) {
    std::size_t received = 0;
    while (received < size) {
        if (!WaitFor(false, deadline)) {
            if (RemainingMs(deadline) == 0) return Fail("no reply within " + std::to_string(timeout_.count()) + " ms");
            int error = 0;
            int length = sizeof error;
            getsockopt(socket_, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length);
            return Fail("the connection broke: " + sim::SocketErrorText(error));
        }
        const int count = recv(socket_, buffer + received, static_cast<int>(size - received), 0);
        if (count == SOCKET_ERROR && WSAGetLastError() == WSAEWOULDBLOCK) continue;
        if (count == 0) return Fail("the recorder closed the connection before the whole reply arrived");
        if (count < 0) return Fail("the connection broke: " + sim::SocketErrorText(WSAGetLastError()));
        received += static_cast<std::size_t>(count);
    }
    return true;
}

}  // namespace varcfg::host
