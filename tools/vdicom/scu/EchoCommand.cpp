/// @file EchoCommand.cpp
/// vdicom echo: whether a peer answers, and how fast.

#include "Commands.h"
#include "Message.h"
#include "Output.h"
#include "VisibleText.h"
#include "scu/Client.h"
#include "scu/Interrupt.h"

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>

namespace program {

namespace {

constexpr const char* kVerification = "1.2.840.10008.1.1";

constexpr const char* kDescription =
    "Asks a peer for an echo (C-ECHO): whether it can be reached, takes associations of this AE title, and answers.\n"
    "With --repeat one echo follows the other on one association, and the rate is told.";

constexpr const char* kFooter = "Examples:\n"
                                "  vdicom echo archive.example 104 --called ARCHIVE --calling MODALITY\n"
                                "  vdicom echo localhost 11112 --repeat 5000\n"
                                "  vdicom echo localhost 11112 --json\n";

constexpr const char* kExitStatus = "  0  the peer answered\n"
                                    "  1  it did not, and the message says why\n";

class EchoClient final : public Client {
public:
    EchoClient(const Peer& peer, std::uint64_t wanted) : Client(peer), m_wanted(wanted) {}

    std::uint64_t Answered() const { return m_answered; }
    double Seconds() const { return std::chrono::duration<double>(m_end - m_start).count(); }
    /// What the peer says of its implementation.
    const std::string& Implementation() const { return m_implementation; }

    void OnReceiveCEchoResponse(unsigned char, unsigned short messageID, const char*, unsigned short status) override {
        if (!Expect(messageID, m_messageID))
            return;
        m_end = Clock::now();
        if (KindOfStatus(status) != StatusKind::success) {
            Fail(fmt::format("the peer answered, but not with success: {}", Text(Service::echo, status)));
            return;
        }
        if (++m_answered == m_wanted)
            Release();
        else
            Ask();
    }

protected:
    bool Propose(VDicomAssociate& request) override {
        return AddContext(request, 1, kVerification, {"1.2.840.10008.1.2", "1.2.840.10008.1.2.1"});
    }

    void Start() override {
        if (GetAssociate()->IsImplementVersion() != 0)
            m_implementation = GetAssociate()->GetImplementVersion();
        m_context = ContextFor(kVerification);
        m_start = m_end = Clock::now();
        if (m_context != 0)
            Ask();
    }

private:
    using Clock = std::chrono::steady_clock;

    void Ask() {
        ++m_messageID;
        Sent(SendCEchoRequest(m_context, m_messageID, kVerification));
    }

    std::uint64_t m_wanted;
    std::uint64_t m_answered = 0;
    unsigned short m_messageID = 0;
    unsigned char m_context = 0;
    std::string m_implementation;
    Clock::time_point m_start, m_end;
};

std::string Rate(const EchoClient& client) {
    return fmt::format("{:.0f}", static_cast<double>(client.Answered()) / std::max(client.Seconds(), 1e-9));
}

void WriteText(const EchoClient& client, bool repeated, Output& out) {
    const std::string milliseconds = fmt::format("{:.1f} ms", client.Seconds() * 1000);
    std::string line = client.ThePeer().Name();
    if (repeated)
        line += fmt::format(": {} echoes in {}, {} per second", client.Answered(), milliseconds, Rate(client));
    else
        line += fmt::format(" answered in {}", milliseconds);
    if (!client.Implementation().empty())
        line += fmt::format(" ({})", client.Implementation());
    out.Put(VisibleCopy(line));
    out.Put('\n');
}

void WriteJson(const EchoClient& client, bool good, Output& out) {
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    writer.SetIndent(' ', 2);
    const auto text = [&writer](const char* name, const std::string& value) {
        writer.Key(name);
        writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    };
    writer.StartObject();
    text("host", client.ThePeer().host);
    writer.Key("port");
    writer.Uint(client.ThePeer().port);
    text("called", client.ThePeer().called);
    text("implementation", VisibleCopy(client.Implementation()));
    writer.Key("echoes");
    writer.Uint64(client.Answered());
    writer.Key("seconds");
    writer.Double(client.Seconds());
    writer.Key("perSecond");
    const std::string rate = Rate(client);
    writer.RawValue(rate.data(), rate.size(), rapidjson::kNumberType);
    if (!good)
        text("error", VisibleCopy(client.Failure()));
    writer.EndObject();
    out.Put({buffer.GetString(), buffer.GetSize()});
    out.Put('\n');
}

} // namespace

int RunEcho(int count, const char* const* arguments) {
    std::uint64_t repeat = 1;
    bool json = false;
    Options options("echo", "[OPTIONS] HOST PORT", kDescription, kFooter, kExitStatus);
    const PeerOptions peerOptions(options);
    options.Number("-n,--repeat", repeat, "N", "N echoes, one after the other");
    options.Flag("-j,--json", json, "a JSON object with the number of echoes, seconds and rate");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    Peer peer;
    if (const std::string wrong = peerOptions.Read(peer); !wrong.empty())
        return options.Wrong(wrong);
    if (repeat == 0)
        return options.Wrong("--repeat: 1 or more is needed");

    const Network network;
    if (!network.Failure().empty()) {
        Say(network.Failure());
        return kInputFailed;
    }
    const InterruptWatch watch;
    EchoClient client(peer, repeat);
    const bool good = client.Run();
    Output out(DICOM_STDOUT);
    if (json)
        WriteJson(client, good, out);
    else if (client.Answered() > 0)
        WriteText(client, repeat > 1, out);
    if (!good)
        Say(peer.Name(), client.Failure());
    if (!out.Flush())
        return ReportOutputFailure(out);
    return good ? kDone : kInputFailed;
}

} // namespace program
