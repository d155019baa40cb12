#include "AssociateCodec.h"

#include "PduWriter.h"

#include <unordered_map>

namespace vdicom {

namespace {

enum ItemType : std::uint8_t {
    applicationContext = 0x10,
    proposedContext = 0x20,
    answeredContext = 0x21,
    abstractSyntax = 0x30,
    transferSyntax = 0x40,
    userInformation = 0x50,
    maximumLength = 0x51,
    implementationClass = 0x52,
    asynchronousOperations = 0x53,
    roleSelection = 0x54,
    implementationVersion = 0x55,
    extendedNegotiation = 0x56
};

constexpr std::size_t kCalledOffset = 10;
constexpr std::size_t kCallingOffset = 26;
constexpr std::size_t kWireTitle = 16;

// ---------------------------------------------------------------- decoding

struct Item {
    std::uint8_t type;
    ByteSpan body;
};

ByteSpan Without(ByteSpan bytes, std::size_t front) { return {bytes.data + front, bytes.size - front}; }

/// The item at the front of `bytes`; false when it runs past the end.
bool ReadItem(ByteSpan bytes, Item& item) {
    if (bytes.size < 4)
        return false;
    const std::size_t length = Get16(bytes.data + 2, false);
    item = {bytes.data[0], {bytes.data + 4, length}};
    return length <= bytes.size - 4;
}

ByteSpan Behind(const Item& item, ByteSpan bytes) { return Without(bytes, 4 + item.body.size); }

std::string_view FirstChars(ByteSpan body, std::size_t most) {
    return TrimmedText({body.data, std::min(body.size, most)});
}

[[noreturn]] void ReadForEver(const volatile unsigned char* subItem) {
    for (;;)
        static_cast<void>(*subItem);
}

class Decoder {
public:
    Decoder(ForeignSubItems foreign, const AssociateRecord* request, AssociateRecord& out)
        : m_foreign(foreign), m_request(request == nullptr ? out : *request), m_out(out) {}

    unsigned int Decode(ByteSpan pdu) {
        m_out.Reset(1);
        m_out.hasMaxLength = 0;
        if (pdu.size < kAssociateHeaderSize || (m_foreign == ForeignSubItems::refuse && pdu.size > kMostNetworkBytes))
            return DICOM_ERROR_ITEM_LENGTH;
        m_out.request = pdu.data[0] == 1 ? 1 : 0;
        m_out.version = Get16(pdu.data + 6, false);
        m_out.called.Assign(TrimmedText({pdu.data + kCalledOffset, kWireTitle}));
        m_out.calling.Assign(TrimmedText({pdu.data + kCallingOffset, kWireTitle}));
        return ForEachItem(Without(pdu, kAssociateHeaderSize), [this](const Item& item) { return Top(item); });
    }

private:
    template <class Handler> static unsigned int ForEachItem(ByteSpan bytes, Handler handle) {
        while (bytes.size != 0) {
            Item item;
            if (!ReadItem(bytes, item))
                return DICOM_ERROR_ITEM_LENGTH;
            if (const unsigned int code = handle(item); code != DICOM_OK)
                return code;
            bytes = Behind(item, bytes);
        }
        return DICOM_OK;
    }

    unsigned int Top(const Item& item) {
        switch (item.type) {
        case applicationContext:
            return Whole(item.body, m_out.application);
        case proposedContext:
        case answeredContext:
            return Context(item.body);
        case userInformation:
            return ForEachItem(item.body, [this](const Item& sub) { return UserInformation(sub); });
        default:
            return DICOM_ERROR_ITEM_TYPE;
        }
    }

    unsigned int Context(ByteSpan body) {
        if (body.size < 4)
            return DICOM_ERROR_ITEM_LENGTH;
        PresentationContext* context = m_out.Add(body.data[0], body.data[2], {});
        if (context == nullptr)
            return DICOM_ERROR_PARAMETER;
        return ForEachItem(Without(body, 4), [this, context](const Item& sub) -> unsigned int {
            if (sub.type == abstractSyntax)
                context->abstractSyntax.Assign(FirstChars(sub.body, kMaxTitle));
            else if (sub.type == transferSyntax)
                context->transferSyntaxes.push_back(CopyText(FirstChars(sub.body, kMaxTitle)));
            else if (m_foreign == ForeignSubItems::refuse)
                return DICOM_ERROR_ITEM_TYPE;
            else
                ReadForEver(sub.body.data - 4);
            return DICOM_OK;
        });
    }

    unsigned int UserInformation(const Item& item) {
        const ByteSpan body = item.body;
        switch (item.type) {
        case maximumLength:
            if (body.size < 4)
                return DICOM_ERROR_ITEM_LENGTH;
            m_out.hasMaxLength = 1;
            m_out.maxLength = Get32(body.data, false);
            return DICOM_OK;
        case implementationClass:
            m_out.hasImplementClass = 1;
            return Whole(body, m_out.implementClass);
        case asynchronousOperations:
            if (body.size < 4)
                return DICOM_ERROR_ITEM_LENGTH;
            m_out.hasAsyncOperations = 1;
            m_out.invoked = Get16(body.data, false);
            m_out.performed = Get16(body.data + 2, false);
            return DICOM_OK;
        case roleSelection:
            return Roles(body);
        case implementationVersion:
            m_out.hasImplementVersion = 1;
            if (body.size > kMaxTitle)
                return DICOM_ERROR_ITEM_LENGTH;
            m_out.implementVersion.Assign(FirstChars(body, kMaxVersionName));
            return DICOM_OK;
        case extendedNegotiation:
            return Extended(body);
        default:
            m_out.userItems.push_back({item.type, {body.data, body.data + body.size}});
            return DICOM_OK;
        }
    }

    unsigned int Roles(ByteSpan body) {
        const std::size_t uid = UIDLength(body);
        if (uid > kMaxTitle || uid + 4 != body.size)
            return DICOM_ERROR_ITEM_LENGTH;
        if (PresentationContext* context = Match({body.data + 2, uid}); context != nullptr) {
            context->roleSelected = 1;
            context->userRole = body.data[2 + uid];
            context->providerRole = body.data[3 + uid];
        }
        return DICOM_OK;
    }

    unsigned int Extended(ByteSpan body) {
        const std::size_t uid = UIDLength(body);
        if (uid > kMaxTitle || uid + 2 > body.size)
            return DICOM_ERROR_ITEM_LENGTH;
        if (PresentationContext* context = Match({body.data + 2, uid}); context != nullptr)
            context->extended.assign(body.data + 2 + uid, body.data + body.size);
        return DICOM_OK;
    }

    /// The length of the UID at the front; one that is too long where there is none.
    static std::size_t UIDLength(ByteSpan body) { return body.size < 2 ? kMaxTitle + 1 : Get16(body.data, false); }

    PresentationContext* Match(ByteSpan uid) {
        // The first context of each class; a PDU may ask for them thousands of times.
        for (; m_indexed < m_request.contexts.size(); ++m_indexed) {
            const PresentationContext& context = *m_request.contexts[m_indexed];
            m_ids.emplace(context.abstractSyntax.View(), context.id);
        }
        const auto found = m_ids.find(TrimmedText(uid));
        // An ID of 0 is none, though a peer may have proposed it.
        return found == m_ids.end() || found->second == 0 ? nullptr : m_out.Find(found->second);
    }

    static unsigned int Whole(ByteSpan body, Title& text) {
        if (body.size > kMaxTitle)
            return DICOM_ERROR_ITEM_LENGTH;
        text.Assign(TrimmedText(body));
        return DICOM_OK;
    }

    ForeignSubItems m_foreign;
    const AssociateRecord& m_request;
    AssociateRecord& m_out;
    std::unordered_map<std::string_view, std::uint8_t> m_ids; ///< of the request's first m_indexed contexts
    std::size_t m_indexed = 0;
};

// ---------------------------------------------------------------- encoding

PduWriter::Mark OpenItem(PduWriter& writer, std::uint8_t type) {
    writer.Put8(type);
    writer.Put8(0);
    return writer.OpenLength16();
}

void PutTextItem(PduWriter& writer, std::uint8_t type, std::string_view text) {
    const auto item = OpenItem(writer, type);
    writer.PutText(text);
    writer.Close(item);
}

void PutSopClass(PduWriter& writer, const PresentationContext& context) {
    const auto uid = writer.OpenLength16();
    writer.PutText(context.abstractSyntax.View());
    writer.Close(uid);
}

void PutHeader(PduWriter& writer, const AssociateRecord& record, std::size_t size) {
    // Titles are not cut at 16 characters; each runs over what follows it.
    unsigned char titles[kAssociateHeaderSize - kCalledOffset] = {};
    constexpr std::size_t calling = kCallingOffset - kCalledOffset;
    static_assert(sizeof titles == kMaxTitle, "a called title ends with the header at the latest");
    std::memset(titles, ' ', calling + kWireTitle);
    std::memcpy(titles, record.called.chars, record.called.size);
    std::memcpy(titles + calling, record.calling.chars,
                std::min<std::size_t>(record.calling.size, sizeof titles - calling));

    writer.Put8(record.request != 0 ? 1 : 2);
    writer.Put8(0);
    writer.Put32(static_cast<std::uint32_t>(size - 6));
    writer.Put16(record.version);
    writer.Put16(0);
    writer.PutBytes({titles, sizeof titles});
}

void PutContext(PduWriter& writer, const PresentationContext& context, bool request) {
    const auto item = OpenItem(writer, request ? proposedContext : answeredContext);
    writer.Put8(context.id);
    writer.Put8(0);
    writer.Put8(context.result);
    writer.Put8(0);
    if (request)
        PutTextItem(writer, abstractSyntax, context.abstractSyntax.View());
    for (const auto& syntax : context.transferSyntaxes)
        PutTextItem(writer, transferSyntax, syntax.get());
    writer.Close(item);
}

bool HasUserInformation(const AssociateRecord& record) {
    if (record.hasMaxLength != 0 || record.hasImplementClass != 0 || record.hasAsyncOperations != 0 ||
        record.hasImplementVersion != 0 || !record.userItems.empty())
        return true;
    return std::any_of(record.contexts.begin(), record.contexts.end(),
                       [](const auto& context) { return context->roleSelected != 0 || !context->extended.empty(); });
}

void PutUserInformation(PduWriter& writer, const AssociateRecord& record) {
    const auto all = OpenItem(writer, userInformation);
    if (record.hasMaxLength != 0) {
        const auto item = OpenItem(writer, maximumLength);
        writer.Put32(record.maxLength);
        writer.Close(item);
    }
    if (record.hasImplementClass != 0)
        PutTextItem(writer, implementationClass, record.implementClass.View());
    if (record.hasAsyncOperations != 0) {
        const auto item = OpenItem(writer, asynchronousOperations);
        writer.Put16(record.invoked);
        writer.Put16(record.performed);
        writer.Close(item);
    }
    for (const auto& context : record.contexts) {
        if (context->roleSelected == 0)
            continue;
        const auto item = OpenItem(writer, roleSelection);
        PutSopClass(writer, *context);
        writer.Put8(context->userRole);
        writer.Put8(context->providerRole);
        writer.Close(item);
    }
    for (const auto& context : record.contexts) {
        if (context->extended.empty())
            continue;
        const auto item = OpenItem(writer, extendedNegotiation);
        PutSopClass(writer, *context);
        writer.PutBytes({context->extended.data(), context->extended.size()});
        writer.Close(item);
    }
    if (record.hasImplementVersion != 0)
        PutTextItem(writer, implementationVersion, record.implementVersion.View());
    for (const UserItem& user : record.userItems) {
        const auto item = OpenItem(writer, user.type);
        writer.PutBytes({user.data.data(), user.data.size()});
        writer.Close(item);
    }
    writer.Close(all);
}

void Put(PduWriter& writer, const AssociateRecord& record, std::size_t size) {
    PutHeader(writer, record, size);
    PutTextItem(writer, applicationContext, record.application.View());
    for (const auto& context : record.contexts)
        PutContext(writer, *context, record.request != 0);
    if (HasUserInformation(record))
        PutUserInformation(writer, record);
}

} // namespace

std::string_view TrimmedText(ByteSpan bytes) {
    std::string_view text(reinterpret_cast<const char*>(bytes.data), bytes.size);
    text = text.substr(0, text.find('\0'));
    const std::size_t first = text.find_first_not_of(' ');
    return first == text.npos ? text.substr(0, 0) : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

unsigned int DecodeAssociate(ByteSpan pdu, ForeignSubItems foreign, const AssociateRecord* request,
                             AssociateRecord& out) {
    return Decoder(foreign, request, out).Decode(pdu);
}

unsigned int MeasureAssociate(const AssociateRecord& record, std::size_t& size) {
    PduWriter counter;
    Put(counter, record, kAssociateHeaderSize);
    size = counter.Size();
    return counter.Overflowed() ? DICOM_ERROR_SIZE : DICOM_OK;
}

std::size_t EncodeAssociate(const AssociateRecord& record, unsigned char* buffer, std::size_t size) {
    std::memset(buffer, 0, size);
    PduWriter writer(buffer, size);
    Put(writer, record, size);
    return writer.Size();
}

} // namespace vdicom
