/// @file GetCommand.cpp
/// vdicom get: fetches objects over the connection that asks for them.

#include "Commands.h"
#include "Message.h"
#include "scu/Interrupt.h"
#include "scu/RetrieveClient.h"
#include "scu/StorageClasses.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

namespace program {

namespace {

constexpr VDicomULong kAffectedClass = 0x00000002, kMessageID = 0x00000110, kAffectedInstance = 0x00001000;
constexpr unsigned short kShort = 1, kText = 5; // value types of FindGetValue
constexpr std::size_t kMostOffers = 127;        // 128 contexts, one of them for the request

constexpr const char* kDescription =
    "Fetches objects of a peer into files (C-GET): everything of the patients, studies, series or images whose UIDs\n"
    "are given. Files are named by their SOP Instance UID, and appear whole or not at all.";

constexpr const char* kFooter =
    "The objects come over the association that asks for them, in at most 127 contexts. Without --class the storage\n"
    "classes that are met most often are offered, each with every transfer syntax; which of them the peer takes is "
    "its\n"
    "own choice, made before it looks at the objects. With --class (up to three) every compressed transfer syntax is\n"
    "offered in a context of its own, so that compressed objects come as they are.\n\n"
    "Examples:\n"
    "  vdicom get archive.example 104 --called ARCHIVE --to folder -k StudyInstanceUID=1.2.3\n"
    "  vdicom get localhost 11112 --to folder -k SOPInstanceUID=1.2.3.4 --class CTImageStorage\n";

constexpr const char* kExitStatus = "  0  all objects that matched are there; there may be none\n"
                                    "  1  some are not; the others are\n";

struct GetSettings {
    Peer peer;
    Query query;
    std::vector<std::string> classes;
    bool areClassesGiven = false;
    std::string to;
    bool overwrite = false;
    bool json = false;
};

class GetClient final : public RetrieveClient {
public:
    GetClient(const GetSettings& settings, ObjectFolder& folder)
        : RetrieveClient(settings.peer, settings.query, Service::get), m_incoming(folder) {
        m_offers = OffersFor(settings.classes, kMostOffers, m_left);
    }

    /// How many storage classes there was no context for.
    std::size_t CountLeftClasses() const { return m_left; }

    VDicomFile* OnReceiveTarget(unsigned char id, VDicomDS* command) override {
        m_arriving.reset();
        const bool isStore = IsStoreRequest(*command);
        SetLargestDataSet(isStore ? ~VDicomUInt64{0} : kLargestIdentifier);
        if (!isStore)
            return nullptr;
        m_arriving = StoreOf(id, *command);
        return m_incoming.Begin(*command, GetAssociate()->GetTransfer(id, 0), ThePeer().called);
    }

    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS* data) override {
        m_arriving.reset();
        const unsigned short status = m_incoming.Finish(data);
        if (IsWorking())
            Sent(SendCStoreResponse(id, messageID, classUID, instanceUID, status));
    }

    void OnReceiveCGetResponse(unsigned char, unsigned short messageID, const char*, unsigned short status,
                               unsigned short remaining, unsigned short completed, unsigned short failed,
                               unsigned short warning, VDicomDS* data) override {
        if (Expect(messageID, kMessage))
            TakeResponse(status, {remaining, completed, failed, warning}, data);
    }

    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override {
        // One object less, and the next may find room.
        const bool isUnwritten = nError == DICOM_ERROR_WRITE || nError == DICOM_ERROR_OPEN;
        if (isUnwritten && m_arriving && IsWorking()) {
            const StoreRequest request = *std::exchange(m_arriving, std::nullopt);
            Sent(SendCStoreResponse(request.context, request.messageID, request.classUid.c_str(),
                                    request.instanceUid.c_str(), m_incoming.GiveUp(KeepFailure(nError))));
            return;
        }
        if (nError != 0)
            m_incoming.Drop();
        RetrieveClient::OnReceive(nError, nType, buffer, length);
    }

protected:
    bool Propose(VDicomAssociate& request) override {
        bool good = RetrieveClient::Propose(request);
        unsigned char id = kContext;
        for (const StorageOffer& offer : m_offers) {
            id = static_cast<unsigned char>(id + 2);
            // The roles turn round (PS3.7 D.3.3.4): here the requestor is the one that stores.
            good = good && AddContext(request, id, offer.classUid.c_str(), offer.syntaxes) &&
                   request.SetRoleSelect(id, 1, 0, 1) == DICOM_OK;
        }
        return good;
    }

    unsigned int Ask(unsigned char context, const char* classUid, VDicomDS& identifier) override {
        return SendCGetRequest(context, kMessage, classUid, 0, &identifier);
    }

private:
    struct StoreRequest {
        unsigned char context;
        unsigned short messageID;
        std::string classUid, instanceUid;
    };

    static StoreRequest StoreOf(unsigned char context, VDicomDS& command) {
        unsigned short messageID = 0;
        command.FindGetValue(nullptr, kMessageID, kShort, &messageID, sizeof messageID);
        char classUid[65] = "", instanceUid[65] = "";
        command.FindGetValue(nullptr, kAffectedClass, kText, classUid, sizeof classUid);
        command.FindGetValue(nullptr, kAffectedInstance, kText, instanceUid, sizeof instanceUid);
        return {context, messageID, classUid, instanceUid};
    }

    std::optional<StoreRequest> m_arriving; ///< its object is on its way
    IncomingObject m_incoming;
    std::vector<StorageOffer> m_offers;
    std::size_t m_left = 0;
};

std::string ReadClasses(const std::vector<std::string>& given, GetSettings& settings) {
    settings.areClassesGiven = !given.empty();
    if (given.empty())
        settings.classes = StorageClasses();
    for (const std::string& text : given) {
        settings.classes.push_back(FindStorageClass(text));
        if (settings.classes.back().empty())
            return fmt::format("--class {}: no storage class of this name; 'vdicom dict uid TEXT' finds them", text);
    }
    return given.size() > kMostOffers ? fmt::format("--class: {} at most", kMostOffers) : std::string();
}

std::string HintFor(const GetSettings& settings, std::size_t left) {
    if (settings.areClassesGiven)
        return "objects that failed may be of another class than --class says";
    std::string hint = "what failed may be stored in a transfer syntax that the peer did not choose; name the class "
                       "with --class, which offers each syntax by itself";
    if (left > 0)
        hint += fmt::format(" ({} seldom classes were not offered at all)", left);
    return hint;
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
    options.Flag("-j,--json", settings.json, "a JSON object with the numbers");
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
    GetClient client(settings, folder);
    const bool good = client.Run();
    return client.Report(good, settings.json, &folder, HintFor(settings, client.CountLeftClasses()));
}

} // namespace program
