// Serves a simulated recorder to many TCP clients at once, in one thread: a poll loop over the
// listening socket and every connection, none of which ever blocks the others.
//
// Framing: each request is a 4-byte little-endian length followed by that many bytes of request text;
// each reply comes back the same way. A client is dropped, with a line on standard error, when it
// announces a frame above kMaxFrame, stays quiet longer than the idle limit between frames, takes longer
// than the frame limit for a whole frame, or leaves a reply unread longer than the send limit.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "SimulatedRecorder.h"
#include "Sockets.h"

namespace varcfg::sim {

struct ServerLimits {
    std::chrono::milliseconds idle{600000};  // from a reply (or the connection) to the next frame's first byte
    std::chrono::milliseconds frame{10000};  // from a frame's first byte to its last
    std::chrono::milliseconds send{10000};   // for the client to take a whole reply
    std::chrono::milliseconds latency{0};    // waited before every reply, without holding up other clients
};

class RecorderServer {
public:
    static constexpr uint32_t kMaxFrame = 64 * 1024;

    // listener is bound and listening; the server closes it, and every connection, when Run ends.
    RecorderServer(SimulatedRecorder& recorder, Socket listener, const ServerLimits& limits);
    ~RecorderServer();
    RecorderServer(const RecorderServer&) = delete;
    RecorderServer& operator=(const RecorderServer&) = delete;

    // Serves until stop is set (checked at least every 200 ms, and at once when a signal interrupts the
    // wait). False when waiting on the sockets failed.
    bool Run(const std::atomic<bool>& stop);

private:
    struct Connection;
    using Clock = std::chrono::steady_clock;

    void AcceptAll();
    // Each returns false when the connection is to be closed.
    bool Receive(Connection& connection);
    bool Answer(Connection& connection);
    bool Send(Connection& connection);
    bool Expire(Connection& connection, Clock::time_point now);
    bool Drop(const Connection& connection, const std::string& reason);

    SimulatedRecorder& recorder_;
    Socket listener_;
    ServerLimits limits_;
    bool acceptPaused_ = false;  // out of descriptors: accept again once a connection has closed
    std::vector<std::unique_ptr<Connection>> connections_;
};

}  // namespace varcfg::sim
