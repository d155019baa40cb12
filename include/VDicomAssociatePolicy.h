/// @file VDicomAssociatePolicy.h
/// VDicomAssociatePolicy: how an acceptor answers association requests.
#pragma once

#include "VDicomAssociate.h"

namespace vdicom {
struct PolicyState;
}

/// Whose order decides which of the transfer syntaxes of a presentation context is accepted.
enum DICOMPREFERENCE : unsigned int {
    DICOM_PREFER_ACCEPTOR = 0, ///< the order in which the policy was given them
    DICOM_PREFER_REQUESTOR = 1 ///< the order of the request
};

/// What became of a request.
struct DICOMASSOCIATEANSWER {
    unsigned int bAccepted;  ///< non-zero: send the accept; zero: send a rejection with the three numbers
    unsigned char nResult;   ///< PS3.8 Table 9-21; for VDicomNet::SendAssociateReject
    unsigned char nSource;   ///< likewise
    unsigned char nReason;   ///< likewise
    unsigned short nContext; ///< presentation contexts that were accepted; an association may have none
};

/// A list of what an acceptor takes, and the answer that follows from it. One policy serves any number of requests, in
/// several threads at once when nobody changes it.
///
/// @code
/// VDicomAssociatePolicy policy;
/// policy.AddAbstract("1.2.840.10008.1.1");         // Verification
/// policy.AddAbstract("1.2.840.10008.5.1.4.1.1.2"); // CT Image Storage
/// policy.AddTransfer(nullptr, "1.2.840.10008.1.2.1");
/// policy.AddTransfer(nullptr, "1.2.840.10008.1.2");
/// policy.AddTransfer("1.2.840.10008.5.1.4.1.1.2", "1.2.840.10008.1.2.4.70"); // for CT alone, and nothing else
///
/// void Server::OnReceiveAssociateRequest(VDicomAssociate* request) {
///     VDicomAssociate accept(0);
///     DICOMASSOCIATEANSWER answer;
///     if (policy.Answer(*request, accept, &answer) != DICOM_OK)
///         SendAbort(2, 0);
///     else if (answer.bAccepted)
///         SendAssociateAccept(&accept);
///     else
///         SendAssociateReject(answer.nResult, answer.nSource, answer.nReason);
/// }
/// @endcode
///
/// Operations return 0, DICOM_ERROR_PARAMETER (no text where there must be one, more than 64 characters, or what is
/// said below) or DICOM_ERROR_MEMORY, and have changed nothing when they fail. Texts are copied.
class VDICOM_API VDicomAssociatePolicy {
public:
    /// A policy that accepts no abstract syntax.
    VDicomAssociatePolicy();
    ~VDicomAssociatePolicy();
    VDicomAssociatePolicy(const VDicomAssociatePolicy&) = delete;
    VDicomAssociatePolicy& operator=(const VDicomAssociatePolicy&) = delete;

    /// Forgets everything.
    void Reset();

    /// @name Presentation contexts
    /// A null abstract syntax means: all that have nothing of their own. Both an abstract syntax and a transfer syntax
    /// must be accepted for a context to be.
    /// @{

    /// Accepts an abstract syntax; null: every one, be it added or not.
    unsigned int AddAbstract(const char* abstractSyntax);
    /// Accepts a transfer syntax, less liked than those added before it. An abstract syntax for which some are added
    /// takes these and no others; it is accepted from then on. A syntax that is there already keeps its place.
    unsigned int AddTransfer(const char* abstractSyntax, const char* transferSyntax);
    /// Accepts transfer syntaxes that were not added as well; they come behind all others, in the order of the request.
    unsigned int AcceptAnyTransfer(unsigned int bAccept);
    /// DICOMPREFERENCE; DICOM_PREFER_ACCEPTOR unless set. Other numbers are refused.
    unsigned int SetPreference(unsigned int preference);
    /// Which of the roles that a requestor proposes it is given (PS3.7 D.3.3.4): non-zero for yes. Unless set it may be
    /// a service class user and no provider. A server of C-GET lets requestors be providers of storage classes.
    unsigned int AcceptRoles(const char* abstractSyntax, unsigned int user, unsigned int provider);
    /// The answer to an extended negotiation of a SOP class that the requestor proposes; there is none unless set. Not
    /// for null. @param length at most 65000 bytes
    unsigned int SetExtended(const char* abstractSyntax, const unsigned char* data, VDicomULong length);
    /// @}

    /// @name Titles
    /// @{

    /// The AE title that requests must name; null or empty: any. Upper and lower case differ.
    unsigned int SetCalled(const char* title);
    /// Adds an AE title from which requests are taken; when none is added, all are.
    unsigned int AddCalling(const char* title);
    /// @}

    /// @name What the acceptor says of itself
    /// @{

    /// The largest PDU that this side takes; 16384 unless set. @return also DICOM_ERROR_PARAMETER (below 8, or odd)
    unsigned int SetMaxLength(VDicomULong length);
    /// Implementation class UID and version name (at most 16 characters); null: not sent.
    unsigned int SetImplementation(const char* classUID, const char* versionName);
    /// The most operations that may be outstanding, answered to requests that negotiate them: the smaller of both
    /// numbers, 0 being any number. 1 and 1 unless set.
    unsigned int SetAsyncOperations(unsigned short invoked, unsigned short performed);
    /// @}

    /// Makes the answer to a request.
    ///
    /// Every presentation context is answered, in the order of the request, with its abstract syntax and one transfer
    /// syntax: the one chosen or, where the context is rejected, the first proposed. Role selection, extended
    /// negotiation and the asynchronous operations window are answered where the request has them. A user identity is
    /// left to the application (VDicomAssociate::GetUserIdentity, SetUserIdentityResponse). The request is rejected for
    /// a protocol version without bit 0, another application context name, and a called or calling AE title that does
    /// not do.
    /// @param accept receives the answer, whatever it held; empty when the request is rejected
    /// @param answer may be null
    /// @return 0 also for a rejection; DICOM_ERROR_PARAMETER (`accept` is the request itself); DICOM_ERROR_MEMORY
    unsigned int Answer(const VDicomAssociate& request, VDicomAssociate& accept, DICOMASSOCIATEANSWER* answer) const;

private:
    vdicom::PolicyState* m_pState; ///< null while nothing has been set
};
