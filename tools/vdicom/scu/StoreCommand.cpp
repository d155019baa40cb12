/// @file StoreCommand.cpp
/// vdicom store: sends files to a peer.

#include "Commands.h"
#include "Message.h"
#include "scu/Client.h"
#include "scu/Interrupt.h"
#include "scu/StoreJob.h"

#include <chrono>

namespace program {

namespace {

constexpr const char* kDescription =
    "Sends DICOM files, and those in folders and below, to a peer (C-STORE). Proposed are the presentation contexts\n"
    "that the files need, in as many associations as their number demands. Files go as they are where the peer takes\n"
    "their transfer syntax; uncompressed and deflated ones are encoded anew where it takes another of these only.\n"
    "What is not stored is named with the reason.";

constexpr const char* kFooter = "Examples:\n"
                                "  vdicom store archive.example 104 --called ARCHIVE image.dcm\n"
                                "  vdicom store localhost 11112 study other.dcm\n"
                                "  vdicom store localhost 11112 --repeat 100 --json image.dcm\n";

constexpr const char* kExitStatus = "  0  all files were stored, some perhaps with a warning\n"
                                    "  1  some were not; the others were\n";

} // namespace

int RunStore(int count, const char* const* arguments) {
    using Clock = std::chrono::steady_clock;
    StoreSettings settings;
    std::vector<std::string> paths;
    bool json = false;
    Options options("store", "[OPTIONS] HOST PORT PATH...", kDescription, kFooter, kExitStatus);
    const PeerOptions peerOptions(options);
    options.Arguments("PATH", paths, 1, "files, and folders with files");
    options.Number("-n,--repeat", settings.rounds, "N", "send all of it N times");
    options.Number("--retry", settings.retries, "N",
                   "make a connection that fails or is lost again, N times without a file in between");
    options.Flag("-j,--json", json, "a JSON object with what was not stored and why, and the numbers");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (const std::string wrong = peerOptions.Read(settings.peer); !wrong.empty())
        return options.Wrong(wrong);
    if (settings.rounds == 0)
        return options.Wrong("--repeat: 1 or more is needed");

    const Network network;
    if (!network.Failure().empty()) {
        Say(network.Failure());
        return kInputFailed;
    }
    const InterruptWatch watch;
    StoreReport report(json);
    StoreList list;
    bool good = list.Scan(paths, report);
    const Clock::time_point start = Clock::now();
    std::size_t associations = 0;
    if (InterruptWatch::Count() > 0) {
        Say("interrupted; nothing was sent");
        good = false;
    } else {
        StoreJob job(settings, list, report);
        job.Run();
        associations = job.CountAssociations();
    }
    const std::chrono::duration<double> span = Clock::now() - start;
    good = report.End(span.count(), associations) && good;
    return good && report.AllWell() ? kDone : kInputFailed;
}

} // namespace program
