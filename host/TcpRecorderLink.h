// Carries requests to a recorder over TCP in mdvr-sim's framing: a 4-byte little-endian length, then
// the text; the reply comes back the same way. One connection is kept open between exchanges.
#pragma once

#include <winsock2.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "RecorderLink.h"

namespace varcfg::host {

class TcpRecorderLink : public RecorderLink {
public:
    // Every exchange, connecting included, must be over within timeout.
    TcpRecorderLink(std::string host, uint16_t port, std::chrono::milliseconds timeout);
    ~TcpRecorderLink() override;
    TcpRecorderLink(const TcpRecorderLink&) = delete;
    TcpRecorderLink& operator=(const TcpRecorderLink&) = delete;

    // Nothing when the connection is refused, the time runs out or the reply frame is broken (the
    // connection ended in the middle, or its length is above 64 KiB); the connection is then closed, so
    // that a late reply is never taken for the answer to the next request. A kept connection that the
    // recorder has closed meanwhile (it drops clients that stay quiet) is replaced before sending.
    std::optional<std::string> Exchange(const std::string& request) override;
    std::string Where() const override;
    std::string Problem() const override { return problem_; }

    // Frames longer than this end the connection, as mdvr-sim does.
    static constexpr uint32_t kMaxFrame = 64 * 1024;

private:
    using Deadline = std::chrono::steady_clock::time_point;

    bool Connect(Deadline deadline);
    void Disconnect();
    // True when the kept connection has something to read before a request was sent: the recorder
    // closed it, or it carries bytes that answer nothing asked.
    bool ClosedMeanwhile();
    // Sets the problem and closes the connection; returns false.
    bool Fail(const std::string& problem);
    bool SendAll(const std::string& bytes, Deadline deadline);
    bool ReceiveAll(char* buffer, std::size_t size, Deadline deadline);
    // Waits until the socket can be read (or written); false when the deadline passes first.
    bool WaitFor(bool write, Deadline deadline);

    std::string host_;
    uint16_t port_;
    std::chrono::milliseconds timeout_;
    bool winsockStarted_ = false;
    SOCKET socket_ = INVALID_SOCKET;
    std::string problem_;
};

}  // namespace varcfg::host
