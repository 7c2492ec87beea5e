#include "RecorderServer.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>

#include "Framing.h"

namespace varcfg::sim {
namespace {

constexpr long kLongestWaitMs = 200;

std::string PeerOf(Socket socket) {
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    char text[INET_ADDRSTRLEN] = "?";
    if (getpeername(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) return "a client";
    inet_ntop(AF_INET, &address.sin_addr, text, sizeof text);
    return std::string(text) + ':' + std::to_string(ntohs(address.sin_port));
}

long long Milliseconds(std::chrono::milliseconds span) { return static_cast<long long>(span.count()); }

}  // namespace

struct RecorderServer::Connection {
    enum class Phase { Idle, Reading, Waiting, Sending };

    Socket socket = kNoSocket;
    std::string peer;
    Phase phase = Phase::Idle;
    Clock::time_point deadline;  // of the current phase
    std::string input;           // the current frame so far, header included
    std::string output;          // the framed reply
    std::size_t sent = 0;
};

RecorderServer::RecorderServer(SimulatedRecorder& recorder, Socket listener, const ServerLimits& limits)
    : recorder_(recorder), listener_(listener), limits_(limits) {
    SetNonBlocking(listener_);
}

RecorderServer::~RecorderServer() {
    for (const auto& connection : connections_) CloseSocket(connection->socket);
    CloseSocket(listener_);
}

bool RecorderServer::Run(const std::atomic<bool>& stop) {
    std::vector<PollEntry> entries;
    while (!stop) {
        const Clock::time_point now = Clock::now();
        Clock::time_point wake = now + std::chrono::milliseconds(kLongestWaitMs);
        entries.assign(1, PollEntry{});
        entries[0].fd = listener_;
        entries[0].events = acceptPaused_ ? 0 : POLLIN;
        for (const auto& connection : connections_) {
            PollEntry entry = {};
            entry.fd = connection->socket;
            if (connection->phase == Connection::Phase::Sending) {
                entry.events = POLLOUT;
            } else if (connection->phase != Connection::Phase::Waiting) {
                entry.events = POLLIN;
            }
            entries.push_back(entry);
            wake = std::min(wake, connection->deadline);
        }
        const auto waitMs = std::chrono::duration_cast<std::chrono::milliseconds>(wake - now).count();
        if (PollSockets(entries.data(), entries.size(), static_cast<int>(std::max<long long>(waitMs, 0))) < 0) {
            if (Interrupted(LastSocketError())) continue;
            std::fprintf(stderr, "mdvr-sim: waiting for clients failed: %s\n",
                         SocketErrorText(LastSocketError()).c_str());
            return false;
        }

        // Connections accepted below are polled from the next round on.
        const std::size_t polled = connections_.size();
        std::vector<bool> keep(polled, true);
        for (std::size_t i = 0; i < polled; ++i) {
            Connection& connection = *connections_[i];
            const short events = entries[i + 1].revents;
            if (events & POLLNVAL) {
                keep[i] = false;
            } else if (connection.phase == Connection::Phase::Sending && (events & (POLLOUT | POLLERR | POLLHUP))) {
                keep[i] = Send(connection);
            } else if (connection.phase != Connection::Phase::Waiting && (events & (POLLIN | POLLERR | POLLHUP))) {
                keep[i] = Receive(connection);
            }
            if (keep[i]) keep[i] = Expire(connection, Clock::now());
        }
        if (entries[0].revents & POLLIN) AcceptAll();

        std::size_t kept = 0;
        for (std::size_t i = 0; i < connections_.size(); ++i) {
            if (i < polled && !keep[i]) {
                CloseSocket(connections_[i]->socket);
                acceptPaused_ = false;
                continue;
            }
            connections_[kept++] = std::move(connections_[i]);
        }
        connections_.resize(kept);
    }
    return true;
}

void RecorderServer::AcceptAll() {
    for (;;) {
        const Socket socket = accept(listener_, nullptr, nullptr);
        if (socket == kNoSocket) {
            const int error = LastSocketError();
            if (OutOfDescriptors(error)) {
                std::fprintf(stderr, "mdvr-sim: not accepting clients until one leaves: %s\n",
                             SocketErrorText(error).c_str());
                acceptPaused_ = true;
            }
            return;  // none left to accept, or the next round tries again
        }
        SetNonBlocking(socket);
        const int noDelay = 1;  // one small frame per reply: send it at once
        setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&noDelay), sizeof noDelay);
        // A fixed send buffer, larger than any reply, bounds what a client that never reads holds in the
        // kernel (the system would grow it to megabytes).
        const int sendBuffer = 256 * 1024;
        setsockopt(socket, SOL_SOCKET, SO_SNDBUF, reinterpret_cast<const char*>(&sendBuffer), sizeof sendBuffer);
        auto connection = std::make_unique<Connection>();
        connection->socket = socket;
        connection->peer = PeerOf(socket);
        connection->deadline = Clock::now() + limits_.idle;
        connections_.push_back(std::move(connection));
    }
}

// Reads no further than the current frame, so that a client's next request waits for this reply.
bool RecorderServer::Receive(Connection& connection) {
    std::size_t wanted = kFrameHeaderSize;
    if (connection.input.size() >= kFrameHeaderSize) wanted += AnnouncedLength(connection.input.data());
    char buffer[16 * 1024];
    const std::size_t room = std::min(sizeof buffer, wanted - connection.input.size());
    const int count = recv(connection.socket, buffer, static_cast<int>(room), 0);
    if (count < 0) {
        const int error = LastSocketError();
        if (WouldBlock(error) || Interrupted(error)) return true;
        return Drop(connection, "connection broken: " + SocketErrorText(error));
    }
    if (count == 0) {
        if (connection.phase == Connection::Phase::Idle) return false;  // left between requests, as it may
        return Drop(connection, "left in the middle of a request");
    }
    if (connection.phase == Connection::Phase::Idle) {
        connection.phase = Connection::Phase::Reading;
        connection.deadline = Clock::now() + limits_.frame;
    }
    const std::size_t before = connection.input.size();
    connection.input.append(buffer, static_cast<std::size_t>(count));
    if (before < kFrameHeaderSize && connection.input.size() >= kFrameHeaderSize) {
        const uint32_t length = AnnouncedLength(connection.input.data());
        if (length > kMaxFrame) {
            return Drop(connection, "announced a request of " + std::to_string(length) + " bytes, more than " +
                                        std::to_string(kMaxFrame));
        }
        wanted = kFrameHeaderSize + length;
    }
    if (connection.input.size() < kFrameHeaderSize || connection.input.size() < wanted) return true;
    if (limits_.latency.count() > 0) {
        connection.phase = Connection::Phase::Waiting;
        connection.deadline = Clock::now() + limits_.latency;
        return true;
    }
    return Answer(connection);
}

bool RecorderServer::Answer(Connection& connection) {
    const std::optional<std::string> reply = recorder_.Handle(std::string_view(connection.input).substr(kFrameHeaderSize));
    connection.input.clear();
    if (!reply) return false;  // a lost request: the client sees the connection end
    connection.output = Frame(*reply);
    connection.sent = 0;
    connection.phase = Connection::Phase::Sending;
    connection.deadline = Clock::now() + limits_.send;
    return Send(connection);
}

bool RecorderServer::Send(Connection& connection) {
    while (connection.sent < connection.output.size()) {
        const int count = send(connection.socket, connection.output.data() + connection.sent,
                               static_cast<int>(connection.output.size() - connection.sent), 0);
        if (count < 0) {
            const int error = LastSocketError();
            if (WouldBlock(error)) return true;
            if (Interrupted(error)) continue;
            return Drop(connection, "connection broken while sending a reply: " + SocketErrorText(error));
        }
        connection.sent += static_cast<std::size_t>(count);
    }
    connection.output.clear();
    connection.phase = Connection::Phase::Idle;
    connection.deadline = Clock::now() + limits_.idle;
    return true;
}

bool RecorderServer::Expire(Connection& connection, Clock::time_point now) {
    if (now < connection.deadline) return true;
    switch (connection.phase) {
        case Connection::Phase::Idle:
            return Drop(connection, "no request for " + std::to_string(Milliseconds(limits_.idle)) + " ms");
        case Connection::Phase::Reading:
            return Drop(connection,
                        "a request not complete within " + std::to_string(Milliseconds(limits_.frame)) + " ms");
        case Connection::Phase::Waiting:
            return Answer(connection);
        case Connection::Phase::Sending:
            break;
    }
    return Drop(connection, "a reply not taken within " + std::to_string(Milliseconds(limits_.send)) + " ms");
}

bool RecorderServer::Drop(const Connection& connection, const std::string& reason) {
    std::fprintf(stderr, "mdvr-sim: dropped %s: %s\n", connection.peer.c_str(), reason.c_str());
    return false;
}

}  // namespace varcfg::sim
