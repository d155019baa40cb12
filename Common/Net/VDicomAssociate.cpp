#include "VDicomAssociate.h"

#include "AssociateCodec.h"
#include "Guarded.h"
#include "VDicomUID.h"

using namespace vdicom;

namespace {

/// What `work` gives, or DICOM_ERROR_MEMORY.
template <class Work> unsigned int Change(Work work) { return Guarded<unsigned int>(DICOM_ERROR_MEMORY, work); }

template <class Work> unsigned int ChangeContext(AssociateRecord* record, unsigned char id, Work work) {
    PresentationContext* context = record == nullptr ? nullptr : record->Find(id);
    if (context == nullptr)
        return DICOM_ERROR_PARAMETER;
    return Change([&]() -> unsigned int { return work(*context); });
}

template <std::size_t Most> unsigned int Assign(FixedText<Most>& field, const char* text) {
    if (!FixedText<Most>::Fits(text))
        return DICOM_ERROR_PARAMETER;
    field.Assign(text);
    return DICOM_OK;
}

/// A text of the record with the flag that says whether it is sent.
template <std::size_t Most>
unsigned int AssignPresent(FixedText<Most>& field, unsigned int& present, unsigned int bPresent, const char* text) {
    const unsigned int code = Assign(field, text);
    if (code == DICOM_OK)
        present = bPresent;
    return code;
}

bool HasData(const void* data, std::size_t length) { return data != nullptr || length == 0; }

template <class List> bool IsIndex(int index, const List& list) {
    return index >= 0 && static_cast<std::size_t>(index) < list.size();
}

template <class List> auto& At(List& list, int index) { return list[static_cast<std::size_t>(index)]; }

template <class List> auto PositionOf(List& list, int index) { return list.begin() + index; }

std::vector<unsigned char> Copy(const void* data, std::size_t length) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    return {bytes, bytes + length};
}

/// Puts an item in place of the first of its type, or at the end.
void SetItem(AssociateRecord& record, std::uint8_t type, std::vector<unsigned char> data) {
    for (UserItem& item : record.userItems) {
        if (item.type == type) {
            item.data = std::move(data);
            return;
        }
    }
    record.userItems.push_back({type, std::move(data)});
}

const UserItem* FindItem(const AssociateRecord& record, std::uint8_t type) {
    for (const UserItem& item : record.userItems) {
        if (item.type == type)
            return &item;
    }
    return nullptr;
}

} // namespace

VDicomAssociate::VDicomAssociate(unsigned int bRequest)
    : m_pRecord(new (std::nothrow) AssociateRecord(bRequest)), m_bRequest(bRequest) {}

VDicomAssociate::~VDicomAssociate() { delete m_pRecord; }

AssociateRecord& VDicomAssociate::Record() {
    if (m_pRecord == nullptr)
        m_pRecord = new AssociateRecord(m_bRequest);
    return *m_pRecord;
}

const AssociateRecord& VDicomAssociate::Record() const {
    static const AssociateRecord request(1);
    static const AssociateRecord accept(0);
    return m_pRecord != nullptr ? *m_pRecord : m_bRequest != 0 ? request : accept;
}

unsigned int VDicomAssociate::Reset(unsigned int bRequest) {
    m_bRequest = bRequest;
    if (m_pRecord != nullptr)
        m_pRecord->Reset(bRequest);
    return DICOM_OK;
}

unsigned int VDicomAssociate::Default() {
    Reset(IsRequest());
    unsigned int code = DICOM_OK;
    unsigned int id = 1;
    for (DICOMUID* entry = VDicomUID::GetFirst(); entry != nullptr && id <= 255; entry = VDicomUID::GetNext(entry)) {
        if (entry->nType != DICOM_UID_SOP_CLASS && entry->nType != DICOM_UID_META_SOP_CLASS)
            continue;
        const auto context = static_cast<unsigned char>(id);
        AddPresentation(context, 0, entry->pszCode);
        for (DICOMUID* syntax = VDicomUID::GetFirst(); syntax != nullptr; syntax = VDicomUID::GetNext(syntax)) {
            if (syntax->nType == DICOM_UID_TRANSFER_SYNTAX)
                AddTransfer(context, syntax->pszCode);
        }
        code = SetRoleSelect(context, 1, 1, 1);
        id += 2;
    }
    return code;
}

// ---------------------------------------------------------------- titles and versions

unsigned int VDicomAssociate::IsRequest() const { return Record().request; }

unsigned int VDicomAssociate::SetRequest(unsigned int bRequest) {
    return Change([&] {
        Record().request = bRequest;
        return DICOM_OK;
    });
}

unsigned short VDicomAssociate::GetVersion() const { return Record().version; }

unsigned int VDicomAssociate::SetVersion(unsigned short version) {
    return Change([&] {
        Record().version = version;
        return DICOM_OK;
    });
}

const char* VDicomAssociate::GetCalled() const { return Record().called.chars; }

unsigned int VDicomAssociate::SetCalled(const char* title) {
    return Change([&] { return Assign(Record().called, title); });
}

const char* VDicomAssociate::GetCalling() const { return Record().calling.chars; }

unsigned int VDicomAssociate::SetCalling(const char* title) {
    return Change([&] { return Assign(Record().calling, title); });
}

const char* VDicomAssociate::GetApplication() const { return Record().application.chars; }

unsigned int VDicomAssociate::SetApplication(const char* name) {
    return Change([&] { return Assign(Record().application, name); });
}

// ---------------------------------------------------------------- presentation contexts

int VDicomAssociate::GetPresentationCount() const { return static_cast<int>(Record().contexts.size()); }

unsigned char VDicomAssociate::GetPresentation(int index) const {
    return IsIndex(index, Record().contexts) ? At(Record().contexts, index)->id : 0;
}

unsigned int VDicomAssociate::SetPresentation(int index, unsigned char id) {
    if (m_pRecord == nullptr || !IsIndex(index, m_pRecord->contexts))
        return DICOM_ERROR_PARAMETER;
    return m_pRecord->Rename(static_cast<std::size_t>(index), id) ? DICOM_OK : DICOM_ERROR_PARAMETER;
}

unsigned int VDicomAssociate::AddPresentation(unsigned char id, unsigned char result, const char* abstractSyntax) {
    if (!Title::Fits(abstractSyntax))
        return DICOM_ERROR_PARAMETER;
    return Change(
        [&] { return Record().Add(id, result, abstractSyntax) != nullptr ? DICOM_OK : DICOM_ERROR_PARAMETER; });
}

unsigned int VDicomAssociate::DelPresentation(unsigned char id) {
    if (m_pRecord != nullptr)
        m_pRecord->Remove(id);
    return DICOM_OK;
}

const PresentationContext* VDicomAssociate::FindPresentation(unsigned char id) const { return Record().Find(id); }

unsigned char VDicomAssociate::GetResult(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr ? 0 : context->result;
}

unsigned int VDicomAssociate::SetResult(unsigned char id, unsigned char result) {
    return ChangeContext(m_pRecord, id, [=](PresentationContext& context) {
        context.result = result;
        return DICOM_OK;
    });
}

const char* VDicomAssociate::GetAbstract(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr ? nullptr : context->abstractSyntax.chars;
}

unsigned int VDicomAssociate::SetAbstract(unsigned char id, const char* abstractSyntax) {
    return ChangeContext(m_pRecord, id,
                         [=](PresentationContext& context) { return Assign(context.abstractSyntax, abstractSyntax); });
}

unsigned char VDicomAssociate::FindAbstract(const char* uid) const {
    const PresentationContext* context = uid == nullptr ? nullptr : Record().FindAbstract(uid);
    return context == nullptr ? 0 : context->id;
}

int VDicomAssociate::GetTransferCount(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr ? 0 : static_cast<int>(context->transferSyntaxes.size());
}

const char* VDicomAssociate::GetTransfer(unsigned char id, int index) const {
    const PresentationContext* context = FindPresentation(id);
    if (context == nullptr || !IsIndex(index, context->transferSyntaxes))
        return nullptr;
    return At(context->transferSyntaxes, index).get();
}

unsigned int VDicomAssociate::SetTransfer(unsigned char id, int index, const char* transferSyntax) {
    return ChangeContext(m_pRecord, id, [=](PresentationContext& context) {
        if (!Title::Fits(transferSyntax) || !IsIndex(index, context.transferSyntaxes))
            return DICOM_ERROR_PARAMETER;
        At(context.transferSyntaxes, index) = CopyText(transferSyntax);
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::AddTransfer(unsigned char id, const char* transferSyntax) {
    return ChangeContext(m_pRecord, id, [=](PresentationContext& context) {
        if (!Title::Fits(transferSyntax))
            return DICOM_ERROR_PARAMETER;
        context.transferSyntaxes.push_back(CopyText(transferSyntax));
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::DelTransfer(unsigned char id, int index) {
    return ChangeContext(m_pRecord, id, [=](PresentationContext& context) {
        if (!IsIndex(index, context.transferSyntaxes))
            return DICOM_ERROR_PARAMETER;
        context.transferSyntaxes.erase(PositionOf(context.transferSyntaxes, index));
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::IsRoleSelect(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr ? 0 : context->roleSelected;
}

unsigned char VDicomAssociate::GetUserRole(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr ? 0 : context->userRole;
}

unsigned char VDicomAssociate::GetProviderRole(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr ? 0 : context->providerRole;
}

unsigned int VDicomAssociate::SetRoleSelect(unsigned char id, unsigned int bRoleSelect, unsigned char user,
                                            unsigned char provider) {
    return ChangeContext(m_pRecord, id, [=](PresentationContext& context) {
        context.roleSelected = bRoleSelect;
        context.userRole = user;
        context.providerRole = provider;
        return DICOM_OK;
    });
}

VDicomULong VDicomAssociate::GetLengthExtended(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr ? 0 : static_cast<VDicomULong>(context->extended.size());
}

const unsigned char* VDicomAssociate::GetExtended(unsigned char id) const {
    const PresentationContext* context = FindPresentation(id);
    return context == nullptr || context->extended.empty() ? nullptr : context->extended.data();
}

unsigned int VDicomAssociate::SetExtended(unsigned char id, const unsigned char* data, VDicomULong length) {
    return ChangeContext(m_pRecord, id, [=](PresentationContext& context) {
        if (!HasData(data, length))
            return DICOM_ERROR_PARAMETER;
        context.extended = Copy(data, length);
        return DICOM_OK;
    });
}

// ---------------------------------------------------------------- user information

unsigned int VDicomAssociate::IsMaxLength() const { return Record().hasMaxLength; }

VDicomULong VDicomAssociate::GetMaxLength() const { return Record().maxLength; }

unsigned int VDicomAssociate::SetMaxLength(unsigned int bPresent, VDicomULong length) {
    if (length < 8 || length % 2 != 0)
        return DICOM_ERROR_PARAMETER;
    return Change([&] {
        AssociateRecord& record = Record();
        record.hasMaxLength = bPresent;
        record.maxLength = length;
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::IsImplementClass() const { return Record().hasImplementClass; }

const char* VDicomAssociate::GetImplementClass() const { return Record().implementClass.chars; }

unsigned int VDicomAssociate::SetImplementClass(unsigned int bPresent, const char* uid) {
    return Change([&] { return AssignPresent(Record().implementClass, Record().hasImplementClass, bPresent, uid); });
}

unsigned int VDicomAssociate::IsAsyncOperations() const { return Record().hasAsyncOperations; }

unsigned short VDicomAssociate::GetInvokedOperations() const { return Record().invoked; }

unsigned short VDicomAssociate::GetPerformedOperations() const { return Record().performed; }

unsigned int VDicomAssociate::SetAsyncOperations(unsigned int bPresent, unsigned short invoked,
                                                 unsigned short performed) {
    return Change([&] {
        AssociateRecord& record = Record();
        record.hasAsyncOperations = bPresent;
        record.invoked = invoked;
        record.performed = performed;
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::IsImplementVersion() const { return Record().hasImplementVersion; }

const char* VDicomAssociate::GetImplementVersion() const { return Record().implementVersion.chars; }

unsigned int VDicomAssociate::SetImplementVersion(unsigned int bPresent, const char* name) {
    return Change(
        [&] { return AssignPresent(Record().implementVersion, Record().hasImplementVersion, bPresent, name); });
}

unsigned int VDicomAssociate::SetUserIdentity(unsigned char type, unsigned int bResponse, const void* primary,
                                              unsigned short primaryLength, const void* secondary,
                                              unsigned short secondaryLength) {
    if (!HasData(primary, primaryLength) || !HasData(secondary, secondaryLength))
        return DICOM_ERROR_PARAMETER;
    const std::size_t size = std::size_t{6} + primaryLength + secondaryLength;
    if (size > 0xFFFF)
        return DICOM_ERROR_SIZE;
    return Change([&] {
        // Type, answer wanted, primary field with its length, secondary field with its length.
        std::vector<unsigned char> data(size);
        data[0] = type;
        data[1] = bResponse != 0 ? 1 : 0;
        Put16(&data[2], primaryLength, false);
        if (primaryLength != 0)
            std::memcpy(&data[4], primary, primaryLength);
        Put16(&data[std::size_t{4} + primaryLength], secondaryLength, false);
        if (secondaryLength != 0)
            std::memcpy(&data[std::size_t{6} + primaryLength], secondary, secondaryLength);
        SetItem(Record(), kUserIdentityItem, std::move(data));
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::GetUserIdentity(DICOMUSERIDENTITY* out) const {
    const UserItem* item = FindItem(Record(), kUserIdentityItem);
    if (out == nullptr || item == nullptr)
        return DICOM_ERROR_PARAMETER;
    const std::vector<unsigned char>& data = item->data;
    const std::size_t primary = data.size() < 6 ? 0xFFFF : Get16(&data[2], false);
    if (primary + 6 > data.size())
        return DICOM_ERROR_ITEM_LENGTH;
    const std::size_t secondary = Get16(&data[4 + primary], false);
    if (primary + secondary + 6 != data.size())
        return DICOM_ERROR_ITEM_LENGTH;
    out->nType = data[0];
    out->bResponse = data[1];
    out->pPrimary = data.data() + 4;
    out->nPrimary = static_cast<unsigned short>(primary);
    out->pSecondary = data.data() + 6 + primary;
    out->nSecondary = static_cast<unsigned short>(secondary);
    return DICOM_OK;
}

unsigned int VDicomAssociate::SetUserIdentityResponse(const void* response, unsigned short length) {
    if (!HasData(response, length))
        return DICOM_ERROR_PARAMETER;
    if (length > 0xFFFF - 2)
        return DICOM_ERROR_SIZE;
    return Change([&] {
        std::vector<unsigned char> data(std::size_t{2} + length);
        Put16(data.data(), length, false);
        if (length != 0)
            std::memcpy(&data[2], response, length);
        SetItem(Record(), kUserIdentityResponseItem, std::move(data));
        return DICOM_OK;
    });
}

const unsigned char* VDicomAssociate::GetUserIdentityResponse(unsigned short* length) const {
    const UserItem* item = FindItem(Record(), kUserIdentityResponseItem);
    if (length == nullptr || item == nullptr || item->data.size() < 2 ||
        std::size_t{2} + Get16(item->data.data(), false) != item->data.size())
        return nullptr;
    *length = Get16(item->data.data(), false);
    return item->data.data() + 2;
}

int VDicomAssociate::GetUserInfoCount() const { return static_cast<int>(Record().userItems.size()); }

unsigned char VDicomAssociate::GetTypeUserInfo(int index) const {
    return IsIndex(index, Record().userItems) ? At(Record().userItems, index).type : 0;
}

unsigned short VDicomAssociate::GetLengthUserInfo(int index) const {
    return IsIndex(index, Record().userItems) ? static_cast<unsigned short>(At(Record().userItems, index).data.size())
                                              : 0;
}

const char* VDicomAssociate::GetDataUserInfo(int index) const {
    return GetLengthUserInfo(index) == 0 ? nullptr
                                         : reinterpret_cast<const char*>(At(Record().userItems, index).data.data());
}

unsigned int VDicomAssociate::SetUserInfo(int index, unsigned char type, const char* data, unsigned short length) {
    if (!HasData(data, length) || m_pRecord == nullptr || !IsIndex(index, m_pRecord->userItems))
        return DICOM_ERROR_PARAMETER;
    return Change([&] {
        At(m_pRecord->userItems, index) = {type, Copy(data, length)};
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::AddUserInfo(unsigned char type, const char* data, unsigned short length) {
    if (!HasData(data, length))
        return DICOM_ERROR_PARAMETER;
    return Change([&] {
        Record().userItems.push_back({type, Copy(data, length)});
        return DICOM_OK;
    });
}

unsigned int VDicomAssociate::DelUserInfo(int index) {
    if (m_pRecord == nullptr || !IsIndex(index, m_pRecord->userItems))
        return DICOM_ERROR_PARAMETER;
    m_pRecord->userItems.erase(PositionOf(m_pRecord->userItems, index));
    return DICOM_OK;
}

// ---------------------------------------------------------------- the PDU

unsigned int VDicomAssociate::GetBinary(char* buffer, VDicomULong* length) const {
    if (length == nullptr)
        return DICOM_ERROR_PARAMETER;
    std::size_t size = 0;
    const unsigned int code = MeasureAssociate(Record(), size);
    if (code != DICOM_OK)
        return code;
    const bool fits = buffer != nullptr && size <= *length;
    *length = static_cast<VDicomULong>(
        fits ? EncodeAssociate(Record(), reinterpret_cast<unsigned char*>(buffer), *length) : size);
    return fits || buffer == nullptr ? DICOM_OK : DICOM_ERROR_PARAMETER;
}

unsigned int VDicomAssociate::Decode(const char* buffer, const VDicomULong* length, const VDicomAssociate* request,
                                     bool strict) {
    if (buffer == nullptr || length == nullptr)
        return DICOM_ERROR_PARAMETER;
    return Change([&] {
        const AssociateRecord* matched = request == nullptr || request == this ? nullptr : &request->Record();
        return DecodeAssociate({reinterpret_cast<const unsigned char*>(buffer), *length},
                               strict ? ForeignSubItems::refuse : ForeignSubItems::readForEver, matched, Record());
    });
}

unsigned int VDicomAssociate::SetBinary(const char* buffer, const VDicomULong* length, const VDicomAssociate* request) {
    return Decode(buffer, length, request, false);
}

unsigned int VDicomAssociate::SetBinaryStrict(const char* buffer, const VDicomULong* length,
                                              const VDicomAssociate* request) {
    return Decode(buffer, length, request, true);
}

unsigned int VDicomAssociate::DelSpaces(char* text, VDicomULong length) {
    if (text == nullptr)
        return DICOM_ERROR_PARAMETER;
    text[length] = '\0';
    const std::string_view trimmed = TrimmedText({reinterpret_cast<const unsigned char*>(text), length});
    std::memmove(text, trimmed.data(), trimmed.size());
    text[trimmed.size()] = '\0';
    return DICOM_OK;
}
