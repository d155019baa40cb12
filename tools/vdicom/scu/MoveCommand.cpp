/// @file MoveCommand.cpp
/// vdicom move: has a peer send objects to another application entity, or here.

#include "Commands.h"
#include "Message.h"
#include "scu/Interrupt.h"
#include "scu/RetrieveClient.h"
#include "scu/StoreReceiver.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <memory>

namespace program {

namespace {

constexpr const char* kDescription =
    "Has a peer send objects to another application entity, or with --to to this program (C-MOVE): everything of the\n"
    "patients, studies, series or images whose UIDs are given. The peer must know host and port of the destination by\n"
    "its AE title.";

constexpr const char* kFooter =
    "Examples:\n"
    "  vdicom move archive.example 104 --called ARCHIVE --destination VIEWER -k StudyInstanceUID=1.2.3\n"
    "  vdicom move localhost 11112 --calling ME --to folder --listen 11113 -k SeriesInstanceUID=1.2.3.4\n";

constexpr const char* kExitStatus = "  0  all objects that matched were sent; there may be none\n"
                                    "  1  some were not; the others were\n";

struct MoveSettings {
    Peer peer;
    Query query;
    std::string destination;
    std::string to;
    unsigned int port = 0;
    bool overwrite = false;
    bool json = false;
};

class MoveClient final : public RetrieveClient {
public:
    /// @param receiver where the objects arrive; null: they go elsewhere
    MoveClient(const MoveSettings& settings, RetrieveReport& report, StoreReceiver* receiver)
        : RetrieveClient(settings.peer, settings.query, Service::move, report), m_destination(settings.destination),
          m_receiver(receiver), m_report(report) {
        // What arrives at the receiver keeps this association alive: see Look.
        if (receiver)
            SetTimeout(DICOM_TIMEOUT_IDLE, 0);
    }

    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override {
        m_lastActivity = Clock::now();
        RetrieveClient::OnReceive(nError, nType, buffer, length);
    }

    void OnReceiveCMoveResponse(unsigned char, unsigned short messageID, const char*, unsigned short status,
                                unsigned short remaining, unsigned short completed, unsigned short failed,
                                unsigned short warning, VDicomDS* data) override {
        if (Expect(messageID, Message()))
            TakeResponse(status, {remaining, completed, failed, warning}, data);
    }

protected:
    unsigned int Ask(unsigned char context, const char* classUid, VDicomDS& identifier) override {
        return SendCMoveRequest(context, Message(), classUid, 0, m_destination.c_str(), &identifier);
    }

    void Look() override {
        if (m_receiver)
            m_report.Arrived(m_receiver->TakeBytes());
        if (!m_receiver || !IsWorking() || ThePeer().timeout == 0)
            return;
        const auto last = std::max(m_lastActivity, m_receiver->LastActivity());
        if (Clock::now() - last > std::chrono::milliseconds(ThePeer().timeout))
            Fail(TimeoutText(DICOM_TIMEOUT_IDLE), Loss::connection);
    }

private:
    using Clock = std::chrono::steady_clock;

    const std::string& m_destination;
    StoreReceiver* m_receiver;
    RetrieveReport& m_report;
    Clock::time_point m_lastActivity = Clock::now();
};

int Move(const MoveSettings& settings) {
    const Network network;
    if (!network.Failure().empty()) {
        Say(network.Failure());
        return kInputFailed;
    }
    ObjectFolder folder(settings.to, settings.overwrite);
    std::unique_ptr<StoreReceiver> receiver;
    if (!settings.to.empty()) {
        std::string wrong = folder.Prepare();
        receiver = std::make_unique<StoreReceiver>(settings.peer, settings.destination, folder);
        if (wrong.empty())
            wrong = receiver->Start(settings.port);
        if (!wrong.empty()) {
            Say(wrong);
            return kInputFailed;
        }
    }
    const InterruptWatch watch;
    RetrieveReport report(settings.peer, receiver ? &folder : nullptr, settings.json);
    MoveClient client(settings, report, receiver.get());
    const bool good = client.Run();
    if (receiver)
        receiver->Finish();
    report.EndAssociation(good, client);
    return report.Tell(
        fmt::format("does the peer know host and port of {}, and does something listen there?", settings.destination),
        fmt::format("does its entry for {} name this host and port?", settings.destination));
}

/// Checks what belongs together. @return what is wrong; empty: nothing
std::string ReadDestination(const Options& options, const std::string& port, MoveSettings& settings) {
    if (settings.to.empty() == settings.destination.empty() && settings.to.empty())
        return "--destination AE or --to FOLDER is needed";
    if (!settings.to.empty() && !options.Given("--listen"))
        return "--to needs --listen PORT, the port that the peer knows for the destination";
    if (settings.to.empty() && (options.Given("--listen") || settings.overwrite))
        return "--listen and --overwrite go with --to";
    if (options.Given("--listen") && !ParsePort(port, settings.port))
        return fmt::format("--listen: '{}' is no port; 1 to 65535 are", port);
    if (settings.destination.empty())
        settings.destination = settings.peer.calling;
    const std::string wrong = WrongTitle(settings.destination);
    return wrong.empty() ? wrong : "--destination: " + wrong;
}

} // namespace

int RunMove(int count, const char* const* arguments) {
    MoveSettings settings;
    std::string port;
    Options options("move", "[OPTIONS] --destination AE|--to FOLDER -k KEY=VALUE... HOST PORT", kDescription, kFooter,
                    kExitStatus);
    const PeerOptions peerOptions(options);
    const QueryOptions queryOptions(options, Service::move);
    options.Text("-d,--destination", settings.destination, "AE",
                 "where the objects go; with --to the own title unless given");
    options.Text("-o,--to", settings.to, "FOLDER", "receive them here, as files; needs --listen");
    options.Text("--listen", port, "PORT", "with --to: the port to receive at");
    options.Flag("--overwrite", settings.overwrite, "with --to: replace files that are there");
    options.Flag("-j,--json", settings.json, "a JSON object with the numbers, what was refused and why, and the error");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (const std::string wrong = peerOptions.Read(settings.peer); !wrong.empty())
        return options.Wrong(wrong);
    if (const std::string wrong = ReadDestination(options, port, settings); !wrong.empty())
        return options.Wrong(wrong);
    if (const std::string wrong = queryOptions.Read(options, settings.query); !wrong.empty())
        return options.Wrong(wrong);
    return Move(settings);
}

} // namespace program
