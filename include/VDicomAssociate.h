/// @file VDicomAssociate.h
/// VDicomAssociate: what two nodes agree on when an association is set up.
#pragma once

#include "VDicomTypes.h"

namespace vdicom {
struct AssociateRecord;
struct PresentationContext;
} // namespace vdicom

/// Result of one presentation context (PS3.8 Table 9-18).
enum DICOMPRESENTATIONRESULT : unsigned char {
    DICOM_PRESENTATION_ACCEPTED = 0,
    DICOM_PRESENTATION_USER_REJECTION = 1,
    DICOM_PRESENTATION_NO_REASON = 2,
    DICOM_PRESENTATION_ABSTRACT_SYNTAX = 3,  ///< the abstract syntax is not supported
    DICOM_PRESENTATION_TRANSFER_SYNTAXES = 4 ///< none of the transfer syntaxes is supported
};

/// How a user proves who it is (PS3.7 Table D.3-14).
enum DICOMUSERIDENTITYTYPE : unsigned char {
    DICOM_USER_NAME = 1,          ///< primary field: the name, UTF-8
    DICOM_USER_NAME_PASSCODE = 2, ///< primary field: the name; secondary field: the passcode; both UTF-8
    DICOM_USER_KERBEROS = 3,      ///< primary field: a Kerberos service ticket
    DICOM_USER_SAML = 4,          ///< primary field: a SAML assertion
    DICOM_USER_JWT = 5            ///< primary field: a JSON Web Token
};

/// A user identity as it stands in a request. The bytes belong to the association, until its user information changes.
struct DICOMUSERIDENTITY {
    unsigned char nType;             ///< DICOMUSERIDENTITYTYPE
    unsigned int bResponse;          ///< non-zero: a positive answer is asked for
    const unsigned char* pPrimary;   ///< not zero-terminated
    unsigned short nPrimary;         ///< bytes
    const unsigned char* pSecondary; ///< not zero-terminated
    unsigned short nSecondary;       ///< bytes
};

/// The contents of one A-ASSOCIATE-RQ or A-ASSOCIATE-AC PDU (PS3.8 9.3.2 and 9.3.3, PS3.7 D.3): titles, presentation
/// contexts and user information.
///
/// Operations return 0 or a result code; every one that changes something can return DICOM_ERROR_MEMORY and then has
/// changed nothing. Texts end with a zero; those that getters return belong to the object until the field changes.
/// UIDs and AE titles have at most 64 characters. Presentation contexts stand in the order of their insertion and are
/// named by their ID, which is unique. One thread at a time may use an object.
///
/// A requestor fills one and sends it:
/// @code
/// VDicomAssociate request(1);
/// request.SetCalled("ARCHIVE");
/// request.SetCalling("MODALITY");
/// request.AddPresentation(1, 0, "1.2.840.10008.1.1"); // Verification
/// request.AddTransfer(1, "1.2.840.10008.1.2");
/// @endcode
/// An acceptor makes the answer with VDicomAssociatePolicy.
class VDICOM_API VDicomAssociate {
public:
    /// An object without presentation contexts, as after Reset.
    explicit VDicomAssociate(unsigned int bRequest);
    ~VDicomAssociate();
    VDicomAssociate(const VDicomAssociate&) = delete;
    VDicomAssociate& operator=(const VDicomAssociate&) = delete;

    /// Empties the object: protocol version 1, no titles, application context "1.2.840.10008.3.1.1.1", largest PDU of
    /// 16384 bytes, nothing else. @param bRequest non-zero: a request
    unsigned int Reset(unsigned int bRequest);
    /// Empties the object and proposes every SOP class and meta SOP class of VDicomUID in table order, with the IDs 1,
    /// 3, 5 ..., each with all uncompressed transfer syntaxes of the table and with both roles. There are 128 such IDs;
    /// classes beyond them are left out, and what memory does not suffice for. @return 0, or the result for the last
    /// class
    unsigned int Default();

    /// @name Titles and versions
    /// @{

    /// Non-zero: an A-ASSOCIATE-RQ; zero: an A-ASSOCIATE-AC.
    unsigned int IsRequest() const;
    unsigned int SetRequest(unsigned int bRequest);
    /// The protocol version field; bit 0 is version 1, the only one there is.
    unsigned short GetVersion() const;
    unsigned int SetVersion(unsigned short version);
    /// Titles and names: never null.
    const char* GetCalled() const;
    /// AE title of the acceptor. A PDU has room for 16 characters (GetBinary says what becomes of more).
    /// @return 0, or DICOM_ERROR_PARAMETER (null, or more than 64 characters)
    unsigned int SetCalled(const char* title);
    const char* GetCalling() const;
    /// AE title of the requestor; see SetCalled.
    unsigned int SetCalling(const char* title);
    const char* GetApplication() const;
    /// The application context name. @return 0, or DICOM_ERROR_PARAMETER (null, or more than 64 characters)
    unsigned int SetApplication(const char* name);
    /// @}

    /// @name Presentation contexts
    /// Operations that take an ID return DICOM_ERROR_PARAMETER when there is no such context, getters 0 or null.
    /// @{
    int GetPresentationCount() const;
    /// The ID of the context at a position, from 0; 0 when there is none.
    unsigned char GetPresentation(int index) const;
    /// Gives the context at a position another ID.
    /// @return 0, or DICOM_ERROR_PARAMETER (no such position, or a context with this ID exists, be it the same one)
    unsigned int SetPresentation(int index, unsigned char id);
    /// Appends a context without transfer syntaxes. The standard's IDs are odd; others are taken too.
    /// @param result DICOMPRESENTATIONRESULT, of an answer; kept as it is
    /// @return 0, or DICOM_ERROR_PARAMETER (the ID is in use, no text, or one of more than 64 characters)
    unsigned int AddPresentation(unsigned char id, unsigned char result, const char* abstractSyntax);
    /// Deletes a context with all that belongs to it. @return 0, also when there is none
    unsigned int DelPresentation(unsigned char id);
    /// Whether there is a context with this ID: a handle that serves for nothing else, or null.
    const vdicom::PresentationContext* FindPresentation(unsigned char id) const;
    unsigned char GetResult(unsigned char id) const;
    unsigned int SetResult(unsigned char id, unsigned char result);
    /// The SOP class UID; empty in an answer that was received.
    const char* GetAbstract(unsigned char id) const;
    unsigned int SetAbstract(unsigned char id, const char* abstractSyntax);
    /// The ID of the first context with exactly this abstract syntax; 0 when there is none.
    unsigned char FindAbstract(const char* uid) const;

    int GetTransferCount(unsigned char id) const;
    /// A transfer syntax by its position, from 0; null when there is none.
    const char* GetTransfer(unsigned char id, int index) const;
    /// @return 0, or DICOM_ERROR_PARAMETER (also no such position, no text, or one of more than 64 characters)
    unsigned int SetTransfer(unsigned char id, int index, const char* transferSyntax);
    /// Appends one. In a request they are offered in this order; an answer holds the one that was accepted.
    unsigned int AddTransfer(unsigned char id, const char* transferSyntax);
    unsigned int DelTransfer(unsigned char id, int index);
    /// @}

    /// @name Role selection and extended negotiation of a context (PS3.7 D.3.3.4, D.3.3.5)
    /// Both are carried per SOP class: of several contexts of one class a receiver finds them at the first.
    /// @{
    unsigned int IsRoleSelect(unsigned char id) const;
    /// Whether the requestor is a service class user: 1 or 0.
    unsigned char GetUserRole(unsigned char id) const;
    /// Whether the requestor is a service class provider: 1 or 0.
    unsigned char GetProviderRole(unsigned char id) const;
    unsigned int SetRoleSelect(unsigned char id, unsigned int bRoleSelect, unsigned char user, unsigned char provider);
    VDicomULong GetLengthExtended(unsigned char id) const;
    /// The service class application information; null when the length is 0.
    const unsigned char* GetExtended(unsigned char id) const;
    /// Copies the bytes; a length of 0 takes the negotiation out.
    /// @return 0, or DICOM_ERROR_PARAMETER (also a length without data)
    unsigned int SetExtended(unsigned char id, const unsigned char* data, VDicomULong length);
    /// @}

    /// @name User information (PS3.7 D.3.3, PS3.8 D.1)
    /// The setters keep the value also when it is not to be present.
    /// @{
    unsigned int IsMaxLength() const;
    VDicomULong GetMaxLength() const;
    /// The largest P-DATA-TF PDU that this side takes, in bytes behind the PDU header.
    /// @return 0, or DICOM_ERROR_PARAMETER (below 8, or odd), whether it is to be present or not
    unsigned int SetMaxLength(unsigned int bPresent, VDicomULong length);
    unsigned int IsImplementClass() const;
    const char* GetImplementClass() const;
    /// @return 0, or DICOM_ERROR_PARAMETER (null, or more than 64 characters)
    unsigned int SetImplementClass(unsigned int bPresent, const char* uid);
    unsigned int IsAsyncOperations() const;
    unsigned short GetInvokedOperations() const;
    unsigned short GetPerformedOperations() const;
    /// The asynchronous operations window: how many operations may be outstanding that the requestor invokes, and that
    /// it performs; 0 means any number.
    unsigned int SetAsyncOperations(unsigned int bPresent, unsigned short invoked, unsigned short performed);
    unsigned int IsImplementVersion() const;
    const char* GetImplementVersion() const;
    /// @return 0, or DICOM_ERROR_PARAMETER (null, or more than 16 characters)
    unsigned int SetImplementVersion(unsigned int bPresent, const char* name);
    /// @}

    /// @name User identity (PS3.7 D.3.3.7)
    /// They stand among the items of the list below, with the types 0x58 and 0x59.
    /// @{

    /// Puts the user identity of a request into place of one that is there.
    /// @param type DICOMUSERIDENTITYTYPE @param bResponse non-zero: the acceptor shall answer
    /// @param secondary the passcode; null with length 0 for the other types
    /// @return 0; DICOM_ERROR_PARAMETER (a length without data); DICOM_ERROR_SIZE (more than 65529 bytes together)
    unsigned int SetUserIdentity(unsigned char type, unsigned int bResponse, const void* primary,
                                 unsigned short primaryLength, const void* secondary, unsigned short secondaryLength);
    /// @return 0; DICOM_ERROR_PARAMETER (null, or there is none); DICOM_ERROR_ITEM_LENGTH (its lengths are wrong)
    unsigned int GetUserIdentity(DICOMUSERIDENTITY* out) const;
    /// The acceptor's answer, in place of one that is there; `length` 0 for a user name that was accepted.
    /// @return 0; DICOM_ERROR_PARAMETER (a length without data); DICOM_ERROR_SIZE (more than 65533 bytes)
    unsigned int SetUserIdentityResponse(const void* response, unsigned short length);
    /// @param length receives the number of bytes @return the answer of the acceptor, null when there is none
    const unsigned char* GetUserIdentityResponse(unsigned short* length) const;
    /// @}

    /// @name Items of the user information that have no place above
    /// In order; positions count from 0. Getters return 0 or null where there is none.
    /// @{
    int GetUserInfoCount() const;
    unsigned char GetTypeUserInfo(int index) const;
    unsigned short GetLengthUserInfo(int index) const;
    const char* GetDataUserInfo(int index) const;
    /// Replaces an item; the bytes are copied.
    /// @return 0, or DICOM_ERROR_PARAMETER (no such position, or a length without data)
    unsigned int SetUserInfo(int index, unsigned char type, const char* data, unsigned short length);
    /// Appends an item; the bytes are copied.
    unsigned int AddUserInfo(unsigned char type, const char* data, unsigned short length);
    unsigned int DelUserInfo(int index);
    /// @}

    /// @name The PDU
    /// @{

    /// Encodes the object as a PDU, its header included. Ask for the size with a null buffer first: the length in the
    /// PDU header is made of the size that is passed in, not of what is written.
    ///
    /// Titles have 16 bytes each and are not cut off there: of a called title only the characters that the calling
    /// title does not overwrite remain, and a longer calling title runs on into the 32 reserved bytes.
    /// @param buffer receives the PDU; null to ask for its size
    /// @param length in: the bytes of `buffer`; out: the bytes of the PDU
    /// @return 0; DICOM_ERROR_PARAMETER (null length; a buffer too small: nothing is written, `length` tells the size);
    ///         DICOM_ERROR_SIZE (an item would be longer than 65535 bytes)
    unsigned int GetBinary(char* buffer, VDicomULong* length) const;
    /// Decodes a PDU that the application trusts; what the object held is gone. Only the items count, not the length in
    /// the header. Items of the user information for which there is no field are kept (GetUserInfoCount).
    ///
    /// @warning A presentation context may hold abstract and transfer syntaxes alone: at any other sub-item this call
    ///          waits for ever. For bytes from elsewhere there is SetBinaryStrict.
    /// @param length the bytes of `buffer`
    /// @param request the request to which role selections and extended negotiations are matched by SOP class; null:
    ///        this object. Those of classes that it lacks are left out.
    /// @return 0; DICOM_ERROR_PARAMETER (null, or a presentation context ID that stands twice);
    ///         DICOM_ERROR_ITEM_TYPE (an item of unknown type); DICOM_ERROR_ITEM_LENGTH (lengths that do not fit
    ///         together, a field that is too long, fewer than 74 bytes). On failure the object holds what came before.
    unsigned int SetBinary(const char* buffer, const VDicomULong* length, const VDicomAssociate* request);
    /// SetBinary for bytes that nobody vouches for: another sub-item in a presentation context is refused with
    /// DICOM_ERROR_ITEM_TYPE, a PDU of more than 1 MiB with DICOM_ERROR_ITEM_LENGTH.
    unsigned int SetBinaryStrict(const char* buffer, const VDicomULong* length, const VDicomAssociate* request);
    /// Ends a text at `length` characters, or at its zero where that comes first, and takes blanks (no other white
    /// space) off both ends, in place.
    /// @param text at least `length` + 1 bytes @return 0, or DICOM_ERROR_PARAMETER (null)
    static unsigned int DelSpaces(char* text, VDicomULong length);
    /// @}

private:
    vdicom::AssociateRecord& Record();
    const vdicom::AssociateRecord& Record() const;
    unsigned int Decode(const char* buffer, const VDicomULong* length, const VDicomAssociate* request, bool strict);

    vdicom::AssociateRecord* m_pRecord; ///< null while nothing has been set
    unsigned int m_bRequest;
};
