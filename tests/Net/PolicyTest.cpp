// Answers to association requests.
#include "VDicomAssociatePolicy.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr char kEcho[] = "1.2.840.10008.1.1";
constexpr char kCT[] = "1.2.840.10008.5.1.4.1.1.2";
constexpr char kMR[] = "1.2.840.10008.5.1.4.1.1.4";
constexpr char kImplicit[] = "1.2.840.10008.1.2";
constexpr char kExplicit[] = "1.2.840.10008.1.2.1";
constexpr char kBig[] = "1.2.840.10008.1.2.2";
constexpr char kJpeg[] = "1.2.840.10008.1.2.4.70";

void Propose(VDicomAssociate& request, unsigned char id, const char* abstractSyntax,
             std::initializer_list<const char*> transfers) {
    request.AddPresentation(id, 0, abstractSyntax);
    for (const char* transfer : transfers)
        request.AddTransfer(id, transfer);
}

/// "id:result last-component-of-transfer-syntax", one per context.
std::string Contexts(const VDicomAssociatePolicy& policy, const VDicomAssociate& request) {
    VDicomAssociate accept(1);
    DICOMASSOCIATEANSWER answer;
    EXPECT_EQ(policy.Answer(request, accept, &answer), 0u);
    EXPECT_EQ(accept.IsRequest(), 0u);
    std::string text;
    int accepted = 0;
    for (int i = 0; i < accept.GetPresentationCount(); ++i) {
        const unsigned char id = accept.GetPresentation(i);
        EXPECT_EQ(accept.GetTransferCount(id), 1);
        EXPECT_STREQ(accept.GetAbstract(id), request.GetAbstract(id));
        const std::string transfer = accept.GetTransfer(id, 0);
        text += std::to_string(id) + ":" + std::to_string(accept.GetResult(id)) + transfer.substr(transfer.rfind('.')) +
                " ";
        accepted += accept.GetResult(id) == 0;
    }
    EXPECT_EQ(answer.nContext, accepted);
    return text;
}

} // namespace

TEST(Policy, TransferSyntaxesByPreference) {
    VDicomAssociate request(1);
    Propose(request, 1, kEcho, {kImplicit});
    Propose(request, 3, kCT, {kImplicit, kBig, kExplicit});
    Propose(request, 5, kMR, {kJpeg, kImplicit, kExplicit});
    Propose(request, 7, kMR, {kJpeg});
    Propose(request, 9, "1.2.3", {kImplicit});
    Propose(request, 11, kCT, {});
    VDicomAssociatePolicy policy;
    EXPECT_EQ(Contexts(policy, request), "1:3.2 3:3.2 5:3.70 7:3.70 9:3.2 11:3.2 ");
    for (const char* uid : {kEcho, kCT, kMR})
        policy.AddAbstract(uid);
    EXPECT_EQ(Contexts(policy, request), "1:4.2 3:4.2 5:4.70 7:4.70 9:3.2 11:4.2 ");
    policy.AddTransfer(nullptr, kExplicit);
    policy.AddTransfer(nullptr, kImplicit);
    policy.AddTransfer(nullptr, kExplicit); // keeps its place
    EXPECT_EQ(Contexts(policy, request), "1:0.2 3:0.1 5:0.1 7:4.70 9:3.2 11:4.2 ");
    policy.SetPreference(DICOM_PREFER_REQUESTOR);
    EXPECT_EQ(Contexts(policy, request), "1:0.2 3:0.2 5:0.2 7:4.70 9:3.2 11:4.2 ");
    policy.SetPreference(DICOM_PREFER_ACCEPTOR);
    // Its own list replaces the common one.
    policy.AddTransfer(kCT, kBig);
    EXPECT_EQ(Contexts(policy, request), "1:0.2 3:0.2 5:0.1 7:4.70 9:3.2 11:4.2 ");
    policy.AcceptAnyTransfer(1);
    policy.AddAbstract(nullptr);
    EXPECT_EQ(Contexts(policy, request), "1:0.2 3:0.2 5:0.1 7:0.70 9:0.2 11:4.2 ");
    EXPECT_EQ(policy.SetPreference(2), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(policy.AddTransfer(kCT, nullptr), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(policy.Answer(request, request, nullptr), DICOM_ERROR_PARAMETER);
}

TEST(Policy, TitlesAndVersions) {
    VDicomAssociatePolicy policy;
    policy.SetCalled("ARCHIVE");
    policy.AddCalling("CT1");
    policy.AddCalling("CT2");
    const struct {
        const char* called;
        const char* calling;
        const char* application;
        unsigned short version;
        int answer; ///< accepted, or result, source and reason as digits
    } cases[] = {
        {"ARCHIVE", "CT2", "1.2.840.10008.3.1.1.1", 1, 1},   {"ARCHIVE", "CT2", "1.2.840.10008.3.1.1.1", 3, 1},
        {"ARCHIVE", "CT2", "1.2.840.10008.3.1.1.1", 2, 122}, {"ARCHIVE", "CT2", "1.2.840.10008.3.1.1.2", 1, 112},
        {"archive", "CT2", "1.2.840.10008.3.1.1.1", 1, 117}, {"ARCHIVE", "CT3", "1.2.840.10008.3.1.1.1", 1, 113},
    };
    for (const auto& one : cases) {
        VDicomAssociate request(1);
        request.SetCalled(one.called);
        request.SetCalling(one.calling);
        request.SetApplication(one.application);
        request.SetVersion(one.version);
        request.AddPresentation(1, 0, kEcho);
        VDicomAssociate accept(0);
        DICOMASSOCIATEANSWER answer;
        ASSERT_EQ(policy.Answer(request, accept, &answer), 0u);
        EXPECT_EQ(answer.bAccepted ? 1 : answer.nResult * 100 + answer.nSource * 10 + answer.nReason, one.answer);
        EXPECT_EQ(accept.GetPresentationCount(), answer.bAccepted ? 1 : 0);
        EXPECT_STREQ(accept.GetCalling(), answer.bAccepted ? one.calling : "");
    }
}

TEST(Policy, RolesWindowAndExtendedNegotiation) {
    VDicomAssociate request(1);
    const unsigned char wanted[] = {1, 1, 1};
    for (unsigned char id = 1; id <= 5; id = static_cast<unsigned char>(id + 2)) {
        Propose(request, id, id == 1 ? kEcho : id == 3 ? kCT : kMR, {kImplicit});
        request.SetExtended(id, wanted, 3);
    }
    request.SetRoleSelect(1, 1, 1, 1);
    request.SetRoleSelect(3, 1, 0, 1);
    request.SetAsyncOperations(1, 0, 5);
    VDicomAssociatePolicy policy;
    policy.AddAbstract(nullptr);
    policy.AddTransfer(nullptr, kImplicit);
    policy.AcceptRoles(kCT, 1, 1);
    const unsigned char given[] = {1, 0};
    policy.SetExtended(kMR, given, 2);
    policy.SetAsyncOperations(4, 8);
    policy.SetMaxLength(131072);
    policy.SetImplementation("1.2.3", nullptr);
    VDicomAssociate accept(0);
    ASSERT_EQ(policy.Answer(request, accept, nullptr), 0u);
    EXPECT_EQ(accept.GetUserRole(1) * 10 + accept.GetProviderRole(1), 10); // a user unless told otherwise
    EXPECT_EQ(accept.GetUserRole(3) * 10 + accept.GetProviderRole(3), 1);  // nothing that was not proposed
    EXPECT_EQ(accept.IsRoleSelect(5), 0u);
    EXPECT_EQ(accept.GetLengthExtended(3), 0u);
    ASSERT_EQ(accept.GetLengthExtended(5), 2u);
    EXPECT_EQ(accept.GetInvokedOperations() * 10 + accept.GetPerformedOperations(), 45);
    EXPECT_EQ(accept.GetMaxLength(), 131072u);
    EXPECT_EQ(accept.IsImplementClass() * 10 + accept.IsImplementVersion(), 10u);
}
