// The host's TCP link against recorders on a loopback port that follow a script: answering, answering
// late, breaking frames, or not listening at all. Whatever goes wrong must end in a zero result within
// the time-out, and never in a reply that belongs to another request.
#include <winsock2.h>
#include <ws2tcpip.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "Framing.h"
#include "Probe.h"
#include "RecorderLink.h"
#include "TcpRecorderLink.h"

using varcfg::host::TcpRecorderLink;
using varcfg::sim::Frame;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;


// Reads one request frame; empty when the client went away.
std::string ReceiveFrame(SOCKET socket) {
    auto receive = [socket](char* buffer, int size) {
        for (int got = 0, count = 0; got < size; got += count) {
            if ((count = recv(socket, buffer + got, size - got, 0)) <= 0) return false;
        }
        return true;
    };
    char header[varcfg::sim::kFrameHeaderSize] = {};
    if (!receive(header, sizeof header)) return {};
    std::string text(varcfg::sim::AnnouncedLength(header), '\0');
    return receive(text.data(), static_cast<int>(text.size())) ? text : std::string();
}

// A socket bound to a free loopback port.
SOCKET BindLoopback(uint16_t& port) {
    const SOCKET bound = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    bind(bound, reinterpret_cast<sockaddr*>(&address), sizeof address);
    getsockname(bound, reinterpret_cast<sockaddr*>(&address), &size);
    port = ntohs(address.sin_port);
    return bound;
}

const std::string kLate = "late";

// A recorder on a loopback port that serves the connections it accepts one after the other, each by
// the next list of replies of its script, then closes it. For each reply it reads a request, then
// sends the reply; kLate answers only once the client gives up (closes) or sends its next request.
class ScriptedRecorder {
public:
    explicit ScriptedRecorder(std::vector<std::vector<std::string>> script) : listener_(BindLoopback(port_)) {
        listen(listener_, 4);
        thread_ = std::thread([this, script] {
            for (const std::vector<std::string>& replies : script) {
                fd_set ready;
                FD_ZERO(&ready);
                FD_SET(listener_, &ready);
                timeval wait{5, 0};  // a client that never comes ends the script
                if (select(0, &ready, nullptr, nullptr, &wait) != 1) return;
                const SOCKET connection = accept(listener_, nullptr, nullptr);
                const DWORD receiveLimitMs = 5000;
                setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&receiveLimitMs),
                           sizeof receiveLimitMs);
                for (const std::string& reply : replies) {
                    requests.push_back(ReceiveFrame(connection));
                    char next = 0;
                    if (reply == kLate) recv(connection, &next, 1, 0);
                    const std::string bytes = reply == kLate ? Frame("<late />") : reply;
                    send(connection, bytes.data(), static_cast<int>(bytes.size()), 0);
                }
                closesocket(connection);
                ++served_;
            }
        });
    }
    ~ScriptedRecorder() {
        Served();
        closesocket(listener_);
    }

    uint16_t Port() const { return port_; }
    // Waits for the script's end, then tells how many connections were served.
    int Served() {
        if (thread_.joinable()) thread_.join();
        return served_;
    }
    std::vector<std::string> requests;  // read them once Served has returned

private:
    uint16_t port_ = 0;
    SOCKET listener_;
    std::thread thread_;
    int served_ = 0;
};

class TcpLink : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(WSAStartup(MAKEWORD(2, 2), &winsock_), 0); }
    void TearDown() override { WSACleanup(); }
    WSADATA winsock_{};
};

}  // namespace

TEST_F(TcpLink, CarriesFramedExchangesOverOneConnectionAndCutsLongRepliesForTheRecord) {
    ScriptedRecorder recorder({{Frame("<pong />"), Frame(std::string(3000, 'x'))}});
    TcpRecorderLink link("127.0.0.1", recorder.Port(), 2000ms);
    EXPECT_EQ(link.Exchange("<ping />"), std::optional<std::string>("<pong />"));

    // Through the plug-in's callback the reply record gets 2047 bytes and its terminator.
    MDVR_MsgRecord records[2] = {};
    std::string("<ping again />").copy(records[0].data, 14);
    records[1].data[2047] = 'z';
    EXPECT_EQ(varcfg::host::CarryPluginRequest(MDVR_REQUEST_EXCHANGE, &records[0], &records[1], &link), 1);
    EXPECT_EQ(records[1].length, 2047);
    EXPECT_EQ(std::string(records[1].data), std::string(2047, 'x'));

    EXPECT_EQ(recorder.Served(), 1) << "both exchanges used the first connection";
    EXPECT_EQ(recorder.requests, (std::vector<std::string>{"<ping />", "<ping again />"}));
}

// A late reply, a length above 64 KiB, a frame that ends early, a refused connection and an unknown host:
// each ends in nothing within the time-out, with its own reason, and the next exchange connects afresh
// and never takes an earlier reply. (Wine reports a reset connection as a closed one, so a reset is not
// told apart here.)
TEST_F(TcpLink, FailuresAnswerNothingInTimeSayWhyAndTheNextExchangeConnectsAfresh) {
    ScriptedRecorder recorder({{kLate},
                               {Frame(std::string(TcpRecorderLink::kMaxFrame + 1, 'x')).substr(0, 4)},
                               {Frame("<cut short />").substr(0, 8)},  // then the connection ends
                               {Frame("<fresh />")}});
    TcpRecorderLink link("127.0.0.1", recorder.Port(), 200ms);
    MDVR_MsgRecord records[2] = {};
    std::string("<first />").copy(records[0].data, 9);
    std::string("untouched").copy(records[1].data, 9);
    Clock::time_point start = Clock::now();
    EXPECT_EQ(varcfg::host::CarryPluginRequest(MDVR_REQUEST_EXCHANGE, &records[0], &records[1], &link), 0);
    EXPECT_LT(Clock::now() - start, 1000ms);
    EXPECT_EQ(std::string(records[1].data), "untouched");
    EXPECT_EQ(link.Problem(), "no reply within 200 ms");
    const struct {
        const char* request;
        const char* problem;
    } failures[] = {
        {"<a />", "the reply frame announces 65537 bytes, more than 65536"},
        {"<b />", "the recorder closed the connection before the whole reply arrived"},
    };
    for (const auto& failure : failures) {
        EXPECT_EQ(link.Exchange(failure.request), std::nullopt) << failure.problem;
        EXPECT_EQ(link.Problem(), failure.problem);
    }
    EXPECT_EQ(link.Exchange("<second />"), std::optional<std::string>("<fresh />"));
    EXPECT_EQ(recorder.Served(), 4);

    // A port that was free a moment ago refuses without the time-out being waited out.
    uint16_t freePort = 0;
    closesocket(BindLoopback(freePort));
    TcpRecorderLink refused("127.0.0.1", freePort, 10s);
    start = Clock::now();
    EXPECT_EQ(refused.Exchange("<anyone />"), std::nullopt);
    // Windows itself retries a refused connection for about two seconds; Wine refuses at once.
    EXPECT_LT(Clock::now() - start, 5s);
    EXPECT_EQ(refused.Problem().rfind("cannot connect to 127.0.0.1:" + std::to_string(freePort) + ": ", 0), 0u)
        << refused.Problem();
    EXPECT_NE(refused.Problem().find("(Windows error 10061)"), std::string::npos) << refused.Problem();

    TcpRecorderLink unknown("no-such-host.invalid", 6000, 2s);
    EXPECT_EQ(unknown.Exchange("<anyone />"), std::nullopt);
    EXPECT_EQ(unknown.Problem().rfind("cannot find the host no-such-host.invalid: ", 0), 0u) << unknown.Problem();
}

// mdvr-sim drops a client that stays quiet; the host's next exchange then connects afresh instead of
// failing on the closed connection.
TEST_F(TcpLink, ReplacesAConnectionTheRecorderClosedMeanwhile) {
    ScriptedRecorder recorder({{Frame("<one />")}, {Frame("<two />")}});
    TcpRecorderLink link("127.0.0.1", recorder.Port(), 2000ms);
    EXPECT_EQ(link.Exchange("<a />"), std::optional<std::string>("<one />"));
    std::this_thread::sleep_for(100ms);  // the recorder has closed the first connection
    EXPECT_EQ(link.Exchange("<b />"), std::optional<std::string>("<two />")) << link.Problem();
}

// The probe passes only a reply the panel would accept, tells a refused reply from no answer, and
// never prints a reply's control characters as they are.
TEST_F(TcpLink, ProbeChecksTheReplyAsThePanelDoesAndPrintsItSafely) {
    const std::string versionReply =
        "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion Model=\"\x1b[2J\\MR8\" /></VariCfgSec>";
    const struct {
        const char* what;
        std::string reply;
        int status;
        std::string line;
    } cases[] = {
        {"a version reply", Frame(versionReply), varcfg::host::kProbeAnswered,
         "reply <VariCfgSec Action=\"DEVICE_QUERY\"><stVersion Model=\"\\x1b[2J\\\\MR8\" /></VariCfgSec>\n"},
        {"a garbled reply", Frame("\x15\x15 garbled"), varcfg::host::kProbeRefusedAnswer,
         "problem the panel refuses this reply: CDlgCfgBase::GetParaValue"},
        {"no reply", Frame("<cut").substr(0, 6), varcfg::host::kProbeNoAnswer,
         "problem the recorder closed the connection before the whole reply arrived\n"},
    };
    for (const auto& c : cases) {
        ScriptedRecorder recorder({{c.reply}});
        TcpRecorderLink link("127.0.0.1", recorder.Port(), 2000ms);
        const varcfg::host::ProbeReport report = varcfg::host::Probe(link);
        EXPECT_EQ(report.status, c.status) << c.what << ":\n" << report.text;
        EXPECT_NE(report.text.find(c.line), std::string::npos) << c.what << ":\n" << report.text;
        EXPECT_EQ(report.text.find_first_of("\x15\x1b"), std::string::npos) << c.what;
    }
}
