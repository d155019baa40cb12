// Any bytes as an association PDU: what is decoded is encoded, decoded again and encoded to the same bytes; a request
// is answered, and its requestor understands the answer.
#include "Require.h"
#include "VDicomAssociatePolicy.h"

#include <cstdint>
#include <cstring>
#include <string>

namespace {

/// False when an item is too long to be encoded.
bool Encode(const VDicomAssociate& associate, std::string& bytes) {
    VDicomULong size = 0;
    if (associate.GetBinary(nullptr, &size) != DICOM_OK)
        return false;
    bytes.assign(size, '*');
    Require(associate.GetBinary(bytes.data(), &size) == DICOM_OK && size == bytes.size(), "the size asked for is used");
    return true;
}

unsigned int Decode(const std::string& bytes, const VDicomAssociate* request, VDicomAssociate& associate) {
    const auto size = static_cast<VDicomULong>(bytes.size());
    return associate.SetBinaryStrict(bytes.data(), &size, request);
}

void Answer(const VDicomAssociate& request) {
    VDicomAssociatePolicy policy;
    policy.AddAbstract(nullptr);
    policy.AddTransfer(nullptr, "1.2.840.10008.1.2");
    policy.AcceptRoles(nullptr, 1, 1);
    VDicomAssociate accept(0);
    DICOMASSOCIATEANSWER answer;
    Require(policy.Answer(request, accept, &answer) == DICOM_OK, "every request has an answer");
    std::string bytes;
    Require(Encode(accept, bytes), "an answer can be encoded");
    VDicomAssociate received(0);
    Require(Decode(bytes, &request, received) == DICOM_OK, "an answer is understood");
    if (answer.bAccepted == 0)
        return;
    Require(received.GetPresentationCount() == request.GetPresentationCount(), "every context has an answer");
    for (int i = 0; i < received.GetPresentationCount(); ++i) {
        const unsigned char id = received.GetPresentation(i);
        Require(id == request.GetPresentation(i) && received.GetTransferCount(id) == 1, "answers in order");
        answer.nContext = static_cast<unsigned short>(answer.nContext - (received.GetResult(id) == 0 ? 1 : 0));
    }
    Require(answer.nContext == 0, "the accepted contexts are counted");
}

void CopyIdentity(const VDicomAssociate& from) {
    VDicomAssociate to(1);
    DICOMUSERIDENTITY identity;
    DICOMUSERIDENTITY copy;
    if (from.GetUserIdentity(&identity) == DICOM_OK) {
        Require(to.SetUserIdentity(identity.nType, identity.bResponse, identity.pPrimary, identity.nPrimary,
                                   identity.pSecondary, identity.nSecondary) == DICOM_OK,
                "a user identity can be set");
        Require(to.GetUserIdentity(&copy) == DICOM_OK && copy.nPrimary == identity.nPrimary &&
                    std::memcmp(copy.pPrimary, identity.pPrimary, copy.nPrimary) == 0 &&
                    copy.nSecondary == identity.nSecondary &&
                    std::memcmp(copy.pSecondary, identity.pSecondary, copy.nSecondary) == 0,
                "its fields are as they were set");
    }
    unsigned short length = 0;
    unsigned short copied = 0;
    const unsigned char* response = from.GetUserIdentityResponse(&length);
    if (response != nullptr) {
        Require(to.SetUserIdentityResponse(response, length) == DICOM_OK, "its answer can be set");
        const unsigned char* answer = to.GetUserIdentityResponse(&copied);
        Require(answer != nullptr && copied == length && std::memcmp(answer, response, length) == 0, "and is kept");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    VDicomAssociate first(0);
    const unsigned int code = Decode(std::string(reinterpret_cast<const char*>(data), size), nullptr, first);
    CopyIdentity(first);
    std::string bytes;
    if (code != DICOM_OK || !Encode(first, bytes))
        return 0;
    VDicomAssociate second(0);
    Require(Decode(bytes, &first, second) == DICOM_OK, "what was encoded is decoded");
    // An answer carries no abstract syntaxes; its receiver takes them from the request.
    for (int i = 0; i < first.GetPresentationCount(); ++i)
        second.SetAbstract(first.GetPresentation(i), first.GetAbstract(first.GetPresentation(i)));
    std::string again;
    Require(Encode(second, again) && again == bytes, "the second encoding is the first");
    if (first.IsRequest() != 0)
        Answer(first);
    return 0;
}
