/// @file GetCommand.cpp
/// vdicom get: fetches objects over the connection that asks for them.

#include "Commands.h"
#include "Message.h"
#include "scu/Inquiry.h"
#include "scu/Interrupt.h"
#include "scu/RetrievalPlan.h"
#include "scu/RetrieveClient.h"

#include <fmt/format.h>

#include <optional>

namespace program {

namespace {

constexpr std::size_t kMostOffers = 127; // 128 contexts, one of them for the request

constexpr const char* kDescription =
    "Fetches objects of a peer into files (C-GET): everything of the patients, studies, series or images whose UIDs\n"
    "are given. Files are named by their SOP Instance UID, and appear whole or not at all.";

constexpr const char* kFooter =
    "The objects come over the association that asks for them, and the peer takes one transfer syntax for each "
    "context\n"
    "before it looks at them. So it is asked first which classes and syntaxes they have (C-FIND), and each is offered "
    "in\n"
    "a context of its own, in as many associations as their number demands: objects come as the archive has them. An\n"
    "archive that does not tell is offered the classes that are met most often, each with every syntax in one "
    "context.\n"
    "With --class it is not asked.\n\n"
    "Examples:\n"
    "  vdicom get archive.example 104 --called ARCHIVE --to folder -k StudyInstanceUID=1.2.3\n"
    "  vdicom get localhost 11112 --to folder -k SOPInstanceUID=1.2.3.4 --class CTImageStorage\n";

constexpr const char* kExitStatus = "  0  all objects that matched are there; there may be none\n"
                                    "  1  some are not; the others are\n";

struct GetSettings {
    Peer peer;
    Query query;
    std::vector<std::string> classes;
    std::string to;
    bool overwrite = false;
    bool json = false;
};

class GetClient final : public RetrieveClient {
public:
    GetClient(const GetSettings& settings, const Retrieval& retrieval, RetrieveReport& report, ObjectFolder& folder)
        : RetrieveClient(settings.peer, settings.query, Service::get, report), m_retrieval(retrieval), m_report(report),
          m_incoming(folder) {}

    VDicomFile* OnReceiveTarget(unsigned char id, VDicomDS* command) override {
        VDicomFile* file = nullptr;
        if (IsStoreRequest(*command))
            file = m_incoming.Begin(id, *command, GetAssociate()->GetTransfer(id, 0), ThePeer().called);
        else
            m_incoming.Drop();
        // What has no file goes through the library's own storage.
        SetLargestDataSet(file ? ~VDicomUInt64{0} : kLargestIdentifier);
        return file;
    }

    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS* data) override {
        const unsigned short status = m_incoming.Finish(data);
        if (IsWorking())
            Sent(SendCStoreResponse(id, messageID, classUID, instanceUID, status));
    }

    void OnReceiveCGetResponse(unsigned char, unsigned short messageID, const char*, unsigned short status,
                               unsigned short remaining, unsigned short completed, unsigned short failed,
                               unsigned short warning, VDicomDS* data) override {
        if (Expect(messageID, Message()))
            TakeResponse(status, {remaining, completed, failed, warning}, data);
    }

    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override {
        IncomingObject::Request request;
        const unsigned short status = nError != 0 && IsWorking() ? m_incoming.GiveUp(nError, request) : 0;
        if (status != 0) {
            Sent(SendCStoreResponse(request.context, request.messageID, request.classUid.c_str(),
                                    request.instanceUid.c_str(), status));
            return;
        }
        if (nError != 0)
            m_incoming.Drop();
        else if (m_incoming.IsArriving())
            m_report.Arrived(length);
        RetrieveClient::OnReceive(nError, nType, buffer, length);
    }

protected:
    bool Propose(VDicomAssociate& request) override {
        bool good = RetrieveClient::Propose(request);
        unsigned char id = kContext;
        for (const StorageOffer& offer : m_retrieval.offers) {
            id = static_cast<unsigned char>(id + 2);
            // The roles turn round, once for each class (PS3.7 D.3.3.4): here the requestor is the one that stores.
            const bool isFirst = request.FindAbstract(offer.classUid.c_str()) == 0;
            good = good && AddContext(request, id, offer.classUid.c_str(), offer.syntaxes) &&
                   (!isFirst || request.SetRoleSelect(id, 1, 0, 1) == DICOM_OK);
        }
        return good;
    }

    unsigned int Ask(unsigned char context, const char* classUid, VDicomDS& identifier) override {
        return SendCGetRequest(context, Message(), classUid, 0, &identifier);
    }

    const Query& FirstQuery() override { return m_retrieval.requests.front(); }
    const Query* NextQuery(unsigned short) override {
        return ++m_request < m_retrieval.requests.size() ? &m_retrieval.requests[m_request] : nullptr;
    }

private:
    const Retrieval& m_retrieval;
    RetrieveReport& m_report;
    std::size_t m_request = 0;
    IncomingObject m_incoming;
};

std::string ReadClasses(const std::vector<std::string>& given, GetSettings& settings) {
    for (const std::string& text : given) {
        settings.classes.push_back(FindStorageClass(text));
        if (settings.classes.back().empty())
            return fmt::format("--class {}: no storage class of this name; 'vdicom dict uid TEXT' finds them", text);
    }
    return given.size() > kMostOffers ? fmt::format("--class: {} at most", kMostOffers) : std::string();
}

/// Asks the archive what it has, unless the user said it. @param hint receives what to do when objects fail
/// @return none: there is no archive, which has been put into the report
std::vector<Retrieval> Plan(const GetSettings& settings, RetrieveReport& report, std::string& hint) {
    Retrieval one;
    one.requests.push_back(settings.query);
    if (!settings.classes.empty()) {
        hint = "objects that failed may be of another class than --class says";
        one.offers = OffersFor(settings.classes, kMostOffers, one.left);
        return {one};
    }
    Inquiry inquiry(settings.peer, settings.query, !settings.json);
    const bool good = inquiry.Run();
    if (!inquiry.WasEstablished() || InterruptWatch::Count() > 0) {
        report.EndAssociation(good, inquiry);
        report.Interrupt();
        return {};
    }
    if (const std::vector<Holding> holdings = inquiry.Holdings(); good && !holdings.empty()) {
        hint = "the classes and transfer syntaxes that the peer names were offered to it; its own log may say why it "
               "could not send these";
        std::vector<Retrieval> retrievals = PlanRetrievals(settings.query, holdings, kMostOffers);
        std::size_t left = 0;
        for (const Retrieval& retrieval : retrievals)
            left += retrieval.left;
        if (left > 0)
            hint += fmt::format(" ({} of the classes were not offered: an association has no room for them)", left);
        return retrievals;
    }
    one.offers = OffersFor(StorageClasses(), kMostOffers, one.left);
    hint = "the peer does not tell what it has, and what failed may be stored in a transfer syntax that it did not "
           "choose; name the class with --class, which offers each syntax by itself";
    if (one.left > 0)
        hint += fmt::format(" ({} rarely used classes were not offered at all)", one.left);
    return {one};
}

int Get(const GetSettings& settings) {
    const Network network;
    if (!network.Failure().empty()) {
        Say(network.Failure());
        return kInputFailed;
    }
    ObjectFolder folder(settings.to, settings.overwrite);
    if (const std::string wrong = folder.Prepare(); !wrong.empty()) {
        Say(wrong);
        return kInputFailed;
    }
    const InterruptWatch watch;
    RetrieveReport report(settings.peer, &folder, settings.json);
    std::string hint;
    const std::vector<Retrieval> retrievals = Plan(settings, report, hint);
    std::size_t requests = 0;
    for (const Retrieval& retrieval : retrievals)
        requests += retrieval.requests.size();
    report.Expect(requests);
    for (std::size_t i = 0; i < retrievals.size(); ++i) {
        GetClient client(settings, retrievals[i], report, folder);
        const bool good = client.Run();
        report.EndAssociation(good, client);
        if (good && InterruptWatch::Count() > 0 && i + 1 < retrievals.size())
            report.Interrupt();
        if (!good || InterruptWatch::Count() > 0)
            break;
    }
    return report.Tell(hint, {});
}

} // namespace

int RunGet(int count, const char* const* arguments) {
    GetSettings settings;
    std::vector<std::string> classes;
    Options options("get", "[OPTIONS] --to FOLDER -k KEY=VALUE... HOST PORT", kDescription, kFooter, kExitStatus);
    const PeerOptions peerOptions(options);
    const QueryOptions queryOptions(options, Service::get);
    options.Text("-o,--to", settings.to, "FOLDER", "where the files go; made where it is missing");
    options.Texts("-c,--class", classes, "CLASS",
                  "offer this storage class only: a UID, keyword or name; may be given several times");
    options.Flag("--overwrite", settings.overwrite, "replace files that are there");
    options.Flag("-j,--json", settings.json, "a JSON object with the numbers, what was refused and why, and the error");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (const std::string wrong = peerOptions.Read(settings.peer); !wrong.empty())
        return options.Wrong(wrong);
    if (settings.to.empty())
        return options.Wrong("--to FOLDER is needed");
    if (const std::string wrong = queryOptions.Read(options, settings.query); !wrong.empty())
        return options.Wrong(wrong);
    if (const std::string wrong = ReadClasses(classes, settings); !wrong.empty())
        return options.Wrong(wrong);
    return Get(settings);
}

} // namespace program
