/// @file FindCommand.cpp
/// vdicom find: asks a peer what it has.

#include "Commands.h"
#include "JsonOut.h"
#include "Message.h"
#include "Output.h"
#include "Progress.h"
#include "TextDump.h"
#include "VisibleText.h"
#include "Vr.h"
#include "scu/Interrupt.h"
#include "scu/QueryClient.h"

#include <fmt/format.h>

#include <optional>

namespace program {

namespace {

constexpr const char* kDescription =
    "Asks a peer which patients, studies, series or images it has (C-FIND), or what is on its modality worklist.\n"
    "Shown are the usual attributes of the level and those named with -k.";

constexpr const char* kFooter =
    "KEY is a keyword, a tag, or a path of them. VALUE is UTF-8 and may have the wildcards * and ?, a range of dates\n"
    "or times (20240101-20240131, 20240101-), or UIDs divided by backslashes; how they match is the peer's.\n"
    "Below study level, most peers want the UIDs of the levels above.\n\n"
    "Examples:\n"
    "  vdicom find archive.example 104 --called ARCHIVE -k PatientName='Doe*' -k StudyDate=20240101-\n"
    "  vdicom find localhost 11112 --level series -k StudyInstanceUID=1.2.3 --json\n"
    "  vdicom find localhost 11112 --level worklist -k ScheduledProcedureStepSequence.Modality=CT\n";

constexpr const char* kExitStatus = "  0  the peer answered; there may be no match\n"
                                    "  1  it did not, or not with success; matches that came were shown\n";

struct FindSettings {
    Peer peer;
    Query query;
    bool json = false;
    std::uint64_t limit = 0;
};

class FindClient final : public QueryClient {
public:
    explicit FindClient(const FindSettings& settings, Output& out)
        : QueryClient(settings.peer, settings.query, Service::find), m_limit(settings.limit), m_out(out),
          m_progress("matches", 0) {
        if (settings.json) {
            m_progress.Off();
            JsonOptions options;
            options.pretty = VDicomConsole::IsTerminal(DICOM_STDOUT) != 0;
            m_json.emplace(m_match, out, options, true);
        }
        m_text.columns = VDicomConsole::GetColumns(DICOM_STDOUT);
    }

    std::uint64_t Matches() const { return m_matches; }
    /// The peer has more than were asked for.
    bool IsCut() const { return m_isCut; }
    /// The user did not want all of them.
    bool IsInterrupted() const { return IsCancelled() && !m_isCut; }

    void End() {
        if (m_json)
            m_json->End();
    }

    void OnReceiveCFindResponse(unsigned char, unsigned short messageID, const char*, unsigned short status,
                                VDicomDS* data) override {
        if (!Expect(messageID, Message()) || TakeStatus(status))
            return;
        if (m_limit > 0 && m_matches == m_limit) {
            m_isCut = true;
            CancelRequest();
            return;
        }
        if (!data || IsCancelled())
            return;
        // Walkers stay with one data set, and the connection promises none.
        m_match.ResetDS();
        if (const unsigned int code = m_match.CopyDS(nullptr, data, nullptr); code != DICOM_OK) {
            Fail(GetErrorText(code));
            return;
        }
        // The connection's notes on the data set, and no part of what the peer sent.
        while (DICOMELEMENT* e = m_match.GetFirstElement(nullptr, 1, 1)) {
            if (!IsMeta(e->nTag))
                break;
            m_match.DeleteElement(e);
        }
        ++m_matches;
        Show();
    }

protected:
    unsigned int Ask(unsigned char context, const char* classUid, VDicomDS& identifier) override {
        return SendCFindRequest(context, Message(), classUid, 0, &identifier);
    }

private:
    void Show() {
        if (m_json) {
            m_json->Write({}, {});
        } else {
            m_out.Put(fmt::format("{}match {}:\n", m_matches > 1 ? "\n" : "", m_matches));
            TextDump(m_match, m_out, m_text).Write({});
        }
        m_out.FlushFull();
        if (VDicomConsole::IsTerminal(DICOM_STDOUT) == 0)
            m_progress.Done(m_matches);
        else
            m_out.Flush();
        if (m_out.Failed())
            Fail("the matches cannot be written");
    }

    std::uint64_t m_limit;
    std::uint64_t m_matches = 0;
    bool m_isCut = false;
    Output& m_out;
    VDicomDS m_match;
    std::optional<JsonOut> m_json;
    TextDumpOptions m_text;
    Progress m_progress;
};

/// Why the answer is not all that was asked for; empty: it is.
std::string Trouble(const FindClient& client, bool good) {
    if (!good) // a peer that ignores the cancel takes nothing away from the matches that were asked for
        return client.IsCut() && client.WasIgnored() ? std::string() : client.Failure();
    const StatusKind kind = KindOfStatus(client.FinalStatus());
    if (kind == StatusKind::cancelled && client.IsCut())
        return {};
    // What came behind the interrupt was not shown, even if the peer had no time to stop.
    if (client.IsInterrupted() && (kind == StatusKind::success || kind == StatusKind::cancelled))
        return "interrupted";
    return client.FinalText();
}

int Find(const FindSettings& settings) {
    const Network network;
    if (!network.Failure().empty()) {
        Say(network.Failure());
        return kInputFailed;
    }
    const InterruptWatch watch;
    Output out(DICOM_STDOUT);
    FindClient client(settings, out);
    const std::string trouble = Trouble(client, client.Run());
    client.End();
    if (!out.Flush())
        return ReportOutputFailure(out);
    if (!trouble.empty())
        Say(settings.peer.Name(), trouble);
    if (client.IsCut())
        Say(fmt::format("there are more matches than --limit {}", settings.limit));
    else if (trouble.empty() && client.Matches() == 0)
        Say(settings.peer.Name(), "no match");
    return trouble.empty() ? kDone : kInputFailed;
}

} // namespace

int RunFind(int count, const char* const* arguments) {
    FindSettings settings;
    Options options("find", "[OPTIONS] HOST PORT", kDescription, kFooter, kExitStatus);
    const PeerOptions peerOptions(options);
    const QueryOptions queryOptions(options, Service::find);
    options.Number("--limit", settings.limit, "N", "end the query behind N matches");
    options.Flag("-j,--json", settings.json, "an array with a DICOM JSON object for each match");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (const std::string wrong = peerOptions.Read(settings.peer); !wrong.empty())
        return options.Wrong(wrong);
    if (const std::string wrong = queryOptions.Read(options, settings.query); !wrong.empty())
        return options.Wrong(wrong);
    if (options.Given("--limit") && settings.limit == 0)
        return options.Wrong("--limit: 1 or more is needed");
    return Find(settings);
}

} // namespace program
