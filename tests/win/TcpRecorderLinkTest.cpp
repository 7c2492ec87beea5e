// The host's TCP link against recorders on a loopback port that follow a script: answering, answering
// late, breaking frames, or not listening at all. Whatever goes wrong must end in a zero result within
// the time-out, and never in a reply that belongs to another request.
#include <winsock2.h>
#include <ws2tcpip.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "RecorderLink.h"
#include "TcpRecorderLink.h"

using varcfg::host::TcpRecorderLink;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

std::string Frame(const std::string& text) {
    const auto length = static_cast<uint32_t>(text.size());
    std::string frame;
    for (int shift = 0; shift < 32; shift += 8) frame += static_cast<char>((length >> shift) & 0xFFu);
    return frame + text;
}

void Send(SOCKET socket, const std::string& bytes) { send(socket, bytes.data(), static_cast<int>(bytes.size()), 0); }

// Reads one request frame; empty when the client went away.
std::string ReceiveFrame(SOCKET socket) {
    auto receive = [socket](char* buffer, int size) {
        for (int got = 0; got < size;) {
            const int count = recv(socket, buffer + got, size - got, 0);
            if (count <= 0) return false;
            got += count;
        }
        return true;
    };
    unsigned char header[4] = {};
    if (!receive(reinterpret_cast<char*>(header), 4)) return {};
    const uint32_t length = header[0] | (header[1] << 8) | (header[2] << 16) | (uint32_t{header[3]} << 24);
    std::string text(length, '\0');
    return receive(text.data(), static_cast<int>(text.size())) ? text : std::string();
}

// A recorder on a loopback port that serves the connections it accepts one after the other, each by
// the next function of its script, then closes it.
class ScriptedRecorder {
public:
    using Connection = std::function<void(SOCKET)>;

    explicit ScriptedRecorder(std::vector<Connection> script) {
        listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int size = sizeof address;
        bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address);
        listen(listener_, 4);
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this, script] {
            for (const Connection& serve : script) {
                fd_set ready;
                FD_ZERO(&ready);
                FD_SET(listener_, &ready);
                timeval wait{5, 0};  // a client that never comes ends the script
                if (select(0, &ready, nullptr, nullptr, &wait) != 1) return;
                const SOCKET connection = accept(listener_, nullptr, nullptr);
                const DWORD receiveLimitMs = 5000;
                setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&receiveLimitMs),
                           sizeof receiveLimitMs);
                serve(connection);
                closesocket(connection);
                ++served_;
            }
        });
    }
    ~ScriptedRecorder() {
        if (thread_.joinable()) thread_.join();
        closesocket(listener_);
    }

    uint16_t Port() const { return port_; }
    // Waits for the script's end, then tells how many connections were served.
    int Served() {
        if (thread_.joinable()) thread_.join();
        return served_;
    }

private:
    SOCKET listener_ = INVALID_SOCKET;
    uint16_t port_ = 0;
    std::thread thread_;
    int served_ = 0;
};

class TcpLink : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(WSAStartup(MAKEWORD(2, 2), &winsock_), 0); }
    void TearDown() override { WSACleanup(); }

private:
    WSADATA winsock_{};
};

}  // namespace

TEST_F(TcpLink, CarriesFramedExchangesOverOneConnectionAndCutsLongRepliesForTheRecord) {
    std::vector<std::string> requests;
    ScriptedRecorder recorder({[&requests](SOCKET connection) {
        requests.push_back(ReceiveFrame(connection));
        Send(connection, Frame("<pong />"));
        requests.push_back(ReceiveFrame(connection));
        Send(connection, Frame(std::string(3000, 'x')));
    }});
    TcpRecorderLink link("127.0.0.1", recorder.Port(), 2000ms);
    EXPECT_EQ(link.Exchange("<ping />"), std::optional<std::string>("<pong />"));

    // Through the plug-in's callback the reply record gets 2047 bytes and its terminator.
    MDVR_MsgRecord records[2] = {};
    std::string request = "<ping again />";
    request.copy(records[0].data, request.size());
    records[1].data[2047] = 'z';
    EXPECT_EQ(varcfg::host::CarryPluginRequest(MDVR_REQUEST_EXCHANGE, &records[0], &records[1], &link), 1);
    EXPECT_EQ(records[1].length, 2047);
    EXPECT_EQ(std::string(records[1].data), std::string(2047, 'x'));

    EXPECT_EQ(recorder.Served(), 1) << "both exchanges used the first connection";
    EXPECT_EQ(requests, (std::vector<std::string>{"<ping />", "<ping again />"}));
}

TEST_F(TcpLink, ALateReplyTimesOutAndIsNeverTakenForTheNextAnswer) {
    ScriptedRecorder recorder({
        [](SOCKET connection) {
            ReceiveFrame(connection);
            // Answers only once the client gives up (closes) or sends its next request.
            char next = 0;
            recv(connection, &next, 1, 0);
            Send(connection, Frame("<late />"));
        },
        [](SOCKET connection) {
            ReceiveFrame(connection);
            Send(connection, Frame("<fresh />"));
        },
    });
    TcpRecorderLink link("127.0.0.1", recorder.Port(), 200ms);
    MDVR_MsgRecord records[2] = {};
    std::string("<first />").copy(records[0].data, 9);
    std::string("untouched").copy(records[1].data, 9);
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(varcfg::host::CarryPluginRequest(MDVR_REQUEST_EXCHANGE, &records[0], &records[1], &link), 0);
    EXPECT_LT(Clock::now() - start, 1000ms);
    EXPECT_EQ(std::string(records[1].data), "untouched");

    EXPECT_EQ(link.Exchange("<second />"), std::optional<std::string>("<fresh />"));
    EXPECT_EQ(recorder.Served(), 2);
}

TEST_F(TcpLink, BrokenFramesAnswerNothingAndTheNextExchangeConnectsAfresh) {
    ScriptedRecorder recorder({
        [](SOCKET connection) {
            ReceiveFrame(connection);
            Send(connection, Frame(std::string(TcpRecorderLink::kMaxFrame + 1, 'x')).substr(0, 4));
        },
        [](SOCKET connection) {
            ReceiveFrame(connection);
            Send(connection, Frame("<cut short />").substr(0, 8));  // then the connection ends
        },
        [](SOCKET connection) {
            ReceiveFrame(connection);
            Send(connection, Frame("<whole />"));
        },
    });
    TcpRecorderLink link("127.0.0.1", recorder.Port(), 2000ms);
    EXPECT_EQ(link.Exchange("<a />"), std::nullopt) << "a length above 64 KiB";
    EXPECT_EQ(link.Exchange("<b />"), std::nullopt) << "a frame that ends early";
    EXPECT_EQ(link.Exchange("<c />"), std::optional<std::string>("<whole />"));
    EXPECT_EQ(recorder.Served(), 3);
}

TEST_F(TcpLink, ARefusedConnectionAnswersNothingWithoutWaitingOutTheTimeOut) {
    // A port that was free a moment ago.
    SOCKET probe = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    bind(probe, reinterpret_cast<sockaddr*>(&address), sizeof address);
    getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size);
    closesocket(probe);

    TcpRecorderLink link("127.0.0.1", ntohs(address.sin_port), 10s);
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(link.Exchange("<anyone />"), std::nullopt);
    // Windows itself retries a refused connection for about two seconds; Wine refuses at once.
    EXPECT_LT(Clock::now() - start, 5s);
}
