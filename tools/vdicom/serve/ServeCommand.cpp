/// @file ServeCommand.cpp
/// vdicom serve: an archive that stores, finds and gives back.

#include "Commands.h"
#include "Message.h"
#include "Options.h"
#include "Output.h"
#include "Progress.h"

#include "scu/Client.h"
#include "scu/Interrupt.h"
#include "serve/Server.h"

#include "VDicomMessageLoop.h"

#include <fmt/format.h>

#include <chrono>
#include <csignal>

namespace program {

namespace {

struct ServeOptions {
    ServeSettings settings;
    std::uint64_t port = 11112;
    std::uint64_t maxPdu = 131072;
    std::uint64_t timeout = 30;
    std::uint64_t idle = 600;
    std::uint64_t associations = 1200;
    std::string log;
    bool json = false;
    bool reindex = false;
};

constexpr const char* kDescription =
    "An archive in a folder: takes every storage class and transfer syntax, answers queries of patient and study "
    "root,\n"
    "sends objects back (C-GET) or on to known peers (C-MOVE), commits to storage and answers worklist queries.\n\n"
    "Objects are filed as they arrive, below PATIENT/STUDY/SERIES, and acknowledged when they are in the archive's\n"
    "journal or index. One line of log tells of each association, object, query and retrieval, on standard error or "
    "in\n"
    "a file.";

constexpr const char* kFooter =
    "The peers file has lines of 'AE HOST PORT', and remarks after '#'; it is read again on SIGHUP. SIGTERM and "
    "SIGINT\n"
    "end the server: associations that are busy have ten seconds to come to an end.\n\n"
    "Examples:\n"
    "  vdicom serve --port 11112 --folder archive\n"
    "  vdicom serve --port 104 --folder /data/archive --ae ARCHIVE --peers peers.txt --known-callers --log serve.log\n"
    "  vdicom serve --folder archive --reindex\n";

constexpr const char* kExitStatus = "  0  ended by a signal, or the index was made\n"
                                    "  1  the archive, the log, the peers file or the network cannot be used, the port "
                                    "cannot be\n"
                                    "     listened at, a file could not be indexed, or --reindex was interrupted\n";

constexpr std::chrono::seconds kStopPatience{10};
constexpr VDicomULong kLongestWait = 200; // milliseconds; signals and what is tried again later are looked at then

volatile std::sig_atomic_t readPeersAgain = 0;

void OnHangUp(int) { readPeersAgain = 1; }

int Reindex(const std::string& folder) {
    Progress progress("files", 0);
    bool isInterrupted = false;
    const auto onProgress = [&](const archive::ReindexCounts& counts) {
        progress.Done(counts.seen);
        isInterrupted = InterruptWatch::Count() > 0;
        return !isInterrupted;
    };
    const auto onComplaint = [](const std::string& path, const std::string& reason) { Say(path, reason); };
    const archive::ReindexCounts counts = archive::Reindex(folder, onProgress, onComplaint);
    progress.Hide();
    if (isInterrupted) {
        Say("interrupted; the old index stays");
        return kInputFailed;
    }
    Output out(DICOM_STDOUT);
    out.Put(fmt::format("{} objects of {} files, {} duplicates, {} files failed\n", counts.indexed, counts.seen,
                        counts.duplicates, counts.failed));
    if (!out.Flush())
        return ReportOutputFailure(out);
    return counts.failed == 0 ? kDone : kInputFailed;
}

void ReadPeers(Server& server) {
    readPeersAgain = 0;
    if (server.Settings().peersFile.empty())
        return;
    const std::string wrong = server.Peers().Load(server.Settings().peersFile);
    if (wrong.empty())
        server.TheLog().Info("peers").Add("known", server.Peers().Count());
    else
        server.TheLog().Error("peers").Add("comment", wrong);
}

void RunLoop(Server& server) {
    bool more = false;
    bool stopping = false;
    std::chrono::steady_clock::time_point end;
    while (!stopping || (!server.IsIdle() && std::chrono::steady_clock::now() < end)) {
        VDicomMessageLoop::RunOnce(more ? 0 : kLongestWait);
        more = server.Turn();
        if (readPeersAgain != 0)
            ReadPeers(server);
        if (InterruptWatch::Count() == 0)
            continue;
        if (!stopping)
            end = std::chrono::steady_clock::now() + kStopPatience;
        stopping = true;
        server.Stop();
    }
}

int Serve(const ServeOptions& options) {
    const ServeSettings& settings = options.settings;
    PeersFile peers;
    if (!settings.peersFile.empty()) {
        if (const std::string wrong = peers.Load(settings.peersFile); !wrong.empty()) {
            Say(settings.peersFile, wrong);
            return kInputFailed;
        }
    }
    Log log(options.log, options.json);
    archive::Archive archive(
        {settings.folder, settings.title, settings.sync, [&log](const std::string& path, const std::string& reason) {
             log.Error("not indexed").Add("file", path).Add("comment", reason);
         }});
    const Network network;
    if (!network.Failure().empty()) {
        Say(network.Failure());
        return kInputFailed;
    }
    const VDicomULong descriptors = VDicomNet::RaiseDescriptorLimit();
    Server server(settings, archive, peers, log);
    if (const unsigned int code = server.Start(); code != DICOM_OK) {
        Say(fmt::format("port {}", settings.port), GetErrorText(code));
        return kInputFailed;
    }
    std::signal(SIGHUP, OnHangUp);
    const archive::Archive::Count count = archive.Counts();
    log.Info("start")
        .Add("ae", settings.title)
        .Add("port", server.Port())
        .Add("folder", settings.folder)
        .Add("studies", count.studies)
        .Add("instances", count.instances)
        .Add("peers", peers.Count())
        .Add("descriptors", descriptors);
    RunLoop(server);
    server.End();
    log.Info("stop");
    return kDone;
}

/// @return what is wrong with them; empty: nothing
std::string Check(ServeOptions& options) {
    ServeSettings& settings = options.settings;
    if (settings.folder.empty())
        return "--folder is missing";
    if (options.port > 65535)
        return "--port goes up to 65535";
    if (options.maxPdu < 1024 || options.maxPdu > (std::uint64_t{16} << 20) || options.maxPdu % 2 != 0)
        return "--max-pdu: an even number from 1024 to 16777216 is needed";
    if (options.timeout > 1'000'000)
        return "--timeout goes up to 1000000";
    if (options.idle > 1'000'000)
        return "--idle goes up to 1000000";
    if (options.associations == 0 || options.associations > 100'000)
        return "--associations goes from 1 to 100000";
    settings.port = static_cast<unsigned int>(options.port);
    settings.maxPdu = static_cast<VDicomULong>(options.maxPdu);
    settings.timeout = static_cast<VDicomULong>(options.timeout * 1000);
    settings.idle = static_cast<VDicomULong>(options.idle * 1000);
    settings.mostSessions = static_cast<unsigned int>(options.associations);
    return settings.knownCallers && settings.peersFile.empty() ? "--known-callers needs --peers"
                                                               : WrongTitle(settings.title);
}

} // namespace

int RunServe(int count, const char* const* arguments) {
    ServeOptions given;
    Options options("serve", "--folder DIR [--port P] [--ae AE] [OPTIONS]", kDescription, kFooter, kExitStatus);
    options.Text("--folder", given.settings.folder, "DIR", "folder of the archive; made when it is not there");
    options.Number("--port", given.port, "P", "port to listen at; 11112 unless given, 0: the system chooses");
    options.Text("--address", given.settings.address, "ADDRESS", "own address to listen at; all unless given");
    options.Text("--ae", given.settings.title, "AE", "own AE title; VDICOM unless given");
    options.Text("--peers", given.settings.peersFile, "FILE", "the peers that are known: lines of 'AE HOST PORT'");
    options.Flag("--known-callers", given.settings.knownCallers,
                 "refuse callers that the peers file does not name (--peers)");
    options.Flag("--check-called", given.settings.checkCalled, "refuse requests to another AE title than ours");
    options.Text("--worklist", given.settings.worklist, "DIR", "folder of worklist files, for modality worklist");
    options.Flag("--sync", given.settings.sync, "acknowledge when objects would outlast a power failure; slower");
    options.Number("--max-pdu", given.maxPdu, "BYTES", "largest PDU that peers may send; 131072 unless given");
    options.Number("--timeout", given.timeout, "SECONDS",
                   "for the connection to a peer of ours, and for its association; 30 unless given, 0: for ever");
    options.Number("--idle", given.idle, "SECONDS",
                   "end associations that say nothing so long; 600 unless given, 0: never");
    options.Number("--associations", given.associations, "N", "associations at a time; 1200 unless given");
    options.Text("--log", given.log, "FILE", "log into a file, rotated at 64 MiB, instead of standard error");
    options.Flag("--json", given.json, "log lines are JSON objects");
    options.Flag("--reindex", given.reindex, "make the index anew from the files of the folder, and end");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (const std::string wrong = Check(given); !wrong.empty())
        return options.Wrong(wrong);
    const InterruptWatch interrupts;
    try {
        return given.reindex ? Reindex(given.settings.folder) : Serve(given);
    } catch (const std::exception& error) {
        Say(error.what());
        return kInputFailed;
    }
}

} // namespace program
