#include "serve/Services.h"

#include "scu/Peer.h"

#include "VDicomUID.h"

#include <algorithm>
#include <array>

namespace program {

namespace {

constexpr std::string_view kStandardRoot = "1.2.840.10008.";
constexpr std::string_view kStorageBranch = "1.2.840.10008.5.1.4.1.1.";
constexpr std::string_view kQueryBranch = "1.2.840.10008.5.1.4.1.2.";

// Queries and their like have no pixels: whatever can be encoded without compressing them.
constexpr std::array<const char*, 4> kQuerySyntaxes = {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2",
                                                       "1.2.840.10008.1.2.1.99", "1.2.840.10008.1.2.2"};

bool StartsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

bool NamesStorage(std::string_view name) {
    const auto has = [name](std::string_view word) { return name.find(word) != std::string_view::npos; };
    return has("Storage") && !has("Commitment") && !has("Management");
}

bool IsNamedStorage(const std::string& uid) {
    DICOMCURRENTUID current{};
    if (VDicomUID::FindCurrent(uid.c_str(), &current) != 0)
        return std::string_view(current.pszType) == "SOP Class" && NamesStorage(current.pszName);
    const DICOMUID* known = VDicomUID::Find(uid.c_str());
    return known != nullptr && known->nType == DICOM_UID_SOP_CLASS && NamesStorage(known->pszName);
}

// 1.2.840.10008.5.1.4.1.2.MODEL.SERVICE
ServedClass QueryClassOf(std::string_view tail) {
    constexpr std::array<ServiceKind, 3> kinds = {ServiceKind::find, ServiceKind::move, ServiceKind::get};
    if (tail.size() != 3 || tail[1] != '.' || tail[0] < '1' || tail[0] > '3' || tail[2] < '1' || tail[2] > '3')
        return {};
    return {kinds[static_cast<std::size_t>(tail[2] - '1')], tail[0] - '0'};
}

/// What a requestor takes must not be exceeded in what we send, and the limit in force is the one that we announce.
VDicomULong LimitFor(const VDicomAssociate& request, VDicomULong own) {
    const VDicomULong peers = request.IsMaxLength() != 0 ? request.GetMaxLength() : 0;
    const VDicomULong limit = peers == 0 ? own : std::min(own, peers);
    return std::max<VDicomULong>(limit & ~VDicomULong{1}, 8);
}

// Of the extended negotiation of queries (PS3.4 C.5.1.1): not relational, ranges of date and time together as asked.
void AnswerExtended(const VDicomAssociate& request, VDicomAssociate& accept) {
    for (int i = 0; i < accept.GetPresentationCount(); ++i) {
        const unsigned char id = accept.GetPresentation(i);
        const unsigned char* asked = request.GetExtended(id);
        const VDicomULong length = request.GetLengthExtended(id);
        if (asked == nullptr || accept.GetResult(id) != 0 || ClassOf(request.GetAbstract(id)).kind != ServiceKind::find)
            continue;
        const std::array<unsigned char, 2> answer = {0, static_cast<unsigned char>(length > 1 ? asked[1] : 0)};
        accept.SetExtended(id, answer.data(), std::min<VDicomULong>(length, answer.size()));
    }
}

unsigned int Allow(VDicomAssociatePolicy& policy, const VDicomAssociate& request, unsigned char id,
                   const ServeSettings& settings) {
    const char* abstractSyntax = request.GetAbstract(id);
    const ServiceKind kind = ClassOf(abstractSyntax).kind;
    if (kind == ServiceKind::none || (kind == ServiceKind::worklist && settings.worklist.empty()))
        return DICOM_OK;
    if (kind == ServiceKind::storage) {
        // In C-GET the requestor is the one that stores.
        unsigned int code = policy.AcceptRoles(abstractSyntax, 1, 1);
        for (int i = 0; code == DICOM_OK && i < request.GetTransferCount(id); ++i)
            code = policy.AddTransfer(abstractSyntax, request.GetTransfer(id, i));
        return code;
    }
    unsigned int code = DICOM_OK;
    for (const char* syntax : kQuerySyntaxes) {
        if (code == DICOM_OK)
            code = policy.AddTransfer(abstractSyntax, syntax);
    }
    return code;
}

} // namespace

ServedClass ClassOf(std::string_view abstractSyntax) {
    if (abstractSyntax.empty())
        return {};
    if (abstractSyntax == uid::kVerification)
        return {ServiceKind::verification, 0};
    if (abstractSyntax == uid::kCommitment)
        return {ServiceKind::commitment, 0};
    if (abstractSyntax == uid::kWorklist)
        return {ServiceKind::worklist, 0};
    if (StartsWith(abstractSyntax, kQueryBranch))
        return QueryClassOf(abstractSyntax.substr(kQueryBranch.size()));
    if (StartsWith(abstractSyntax, kStorageBranch) || !StartsWith(abstractSyntax, kStandardRoot) ||
        IsNamedStorage(std::string(abstractSyntax)))
        return {ServiceKind::storage, 0};
    return {};
}

unsigned int AnswerRequest(VDicomAssociate& request, const ServeSettings& settings, const PeersFile& peers,
                           VDicomAssociate& accept, DICOMASSOCIATEANSWER& answer) {
    VDicomAssociatePolicy policy;
    policy.SetPreference(DICOM_PREFER_REQUESTOR);
    policy.SetMaxLength(LimitFor(request, settings.maxPdu));
    policy.SetImplementation(kImplementationClass, kImplementationVersion);
    unsigned int code = settings.checkCalled ? policy.SetCalled(settings.title.c_str()) : DICOM_OK;
    for (int i = 0; code == DICOM_OK && i < request.GetPresentationCount(); ++i)
        code = Allow(policy, request, request.GetPresentation(i), settings);
    if (code == DICOM_OK)
        code = policy.Answer(request, accept, &answer);
    if (code != DICOM_OK)
        return code;
    if (answer.bAccepted != 0 && settings.knownCallers && peers.Find(request.GetCalling()) == nullptr)
        answer = {0, 1, 1, 3, 0}; // PS3.8 Table 9-21: permanent, service user, calling AE title not recognised
    AnswerExtended(request, accept);
    return DICOM_OK;
}

} // namespace program
