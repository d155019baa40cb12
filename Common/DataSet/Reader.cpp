#include "Reader.h"

#include "DefaultVR.h"
#include "Inflater.h"

#include <algorithm>
#include <cstring>

namespace vdicom {

namespace {

constexpr VDicomULong kTransferSyntaxUID = 0x00020010;
constexpr VDicomUInt64 kMetaStart = 132;
// What a step gives when the load is over early, without an error.
constexpr unsigned int kStop = 0xFFFFFFFF;
constexpr unsigned char kSequenceDelimiterBytes[] = {0xFE, 0xFF, 0xDD, 0xE0};

} // namespace

Reader::Reader(DataSetState& state) : m_state(state) {}

unsigned int Reader::Fail(unsigned int code, VDicomULong tag, std::string text) {
    m_state.AddFault(code, m_position, tag, std::move(text), true);
    return code;
}

void Reader::Note(unsigned int code, VDicomULong tag, std::string text) {
    m_state.AddFault(code, m_position, tag, std::move(text), false);
}

void Reader::SetEncoding(Encoding encoding) {
    constexpr unsigned int mask = 0x003C;
    m_state.flags = static_cast<unsigned short>((m_state.flags & ~mask) | encoding.Code());
}

unsigned int Reader::Load(VDicomFile& stream, unsigned short loadFlags, const Encoding* given) {
    m_stream = &stream;
    m_size = StreamAccess::Size(stream);
    m_loading = true;
    m_state.source = &stream;
    m_state.flags =
        static_cast<unsigned short>((loadFlags & (DICOM_FLAG_CARRY | DICOM_FLAG_OFFSETS)) | DICOM_FLAG_READ);

    Encoding encoding = given != nullptr ? *given : Encoding{};
    SetEncoding(encoding);
    const ByteSpan head = StreamAccess::View(stream, 0, kMetaStart + kLongestHeader);
    const bool part10 = head.size >= kMetaStart && std::memcmp(head.data + 128, "DICM", 4) == 0;
    if (part10) {
        std::memcpy(m_state.preamble, head.data, sizeof m_state.preamble);
        m_state.flags = static_cast<unsigned short>(m_state.flags | DICOM_FLAG_PART10);
        m_position = kMetaStart;
    } else {
        // Not that of the file loaded before.
        std::fill(std::begin(m_state.preamble), std::end(m_state.preamble), '\0');
    }
    if (!part10 && given == nullptr && head.size > 0) {
        bool sure = false;
        encoding = DetectEncoding(head, m_size, encoding, sure);
        if (!sure)
            return Fail(DICOM_ERROR_FORMAT, 0, "neither a preamble with \"DICM\" nor a data set begins here");
    }
    // Without a preamble the group may stand there all the same.
    m_meta = part10 || (head.size >= 8 && Get16(head.data, true) == 2);
    m_syntax = {"", encoding, 0, false, false};
    SetEncoding(encoding);
    m_levels.push_back({nullptr, m_size, m_meta ? Encoding{} : encoding, Kind::top, false, 0});
    const unsigned int code = Run();
    if (m_meta)
        LeaveMeta();
    if (m_state.transferSyntax.empty() && !m_meta)
        m_state.transferSyntax = EncodingUID(encoding, false);
    return code == DICOM_OK ? EndOfOverrun() : code;
}

unsigned int Reader::ReadLevel(VDicomFile& stream, DICOMELEMENT* parent, Encoding encoding, VDicomUInt64 position,
                               VDicomUInt64 end, VDicomUInt64& stopped) {
    m_stream = &stream;
    m_size = StreamAccess::Size(stream);
    m_position = position;
    m_base = parent == nullptr ? 0 : m_state.tree.GetLevel(&parent->Link) + 1;
    Kind kind = Kind::top;
    if (parent != nullptr && parent->nTag == kItem)
        kind = Kind::item;
    else if (parent != nullptr)
        kind = parent->nVR == vr::SQ || parent->nVR == vr::UN ? Kind::sequence : Kind::fragments;
    m_levels.push_back({parent, std::min(end, m_size), encoding, kind, false, 0});
    const unsigned int code = Run();
    stopped = m_position;
    return code == DICOM_OK ? EndOfOverrun() : code;
}

unsigned int Reader::Run() {
    while (!m_levels.empty()) {
        // Levels of defined length end by themselves, several at once where they end at the same place.
        if (Top().defined && m_position >= Top().end) {
            Pop();
            continue;
        }
        if (m_levels.size() == 1 && m_position >= Top().end)
            return DICOM_OK;
        if (m_position >= m_size)
            return EndOfStream();
        if (m_position >= Top().end) {
            Note(DICOM_FAULT_DELIMITER, Top().parent->nTag, "the enclosing element ends before this one is closed");
            Pop();
            continue;
        }
        const unsigned int code = StepHeader();
        if (code == kStop)
            return DICOM_OK;
        if (code != DICOM_OK)
            return code;
    }
    return DICOM_OK;
}

// Elements that run past the end of their parents are read all the same, but the load is no success.
unsigned int Reader::EndOfOverrun() {
    if (!m_overrun)
        return DICOM_OK;
    m_position = m_overrunPosition;
    return Fail(DICOM_ERROR_STRUCTURE, m_overrunTag, "this element runs past the end of the enclosing element");
}

void Reader::NoteOverrun(VDicomULong tag, std::string text) {
    Note(DICOM_FAULT_LENGTH, tag, std::move(text));
    if (!m_overrun) {
        m_overrunPosition = m_position;
        m_overrunTag = tag;
    }
    m_overrun = true;
}

unsigned int Reader::EndOfStream() {
    return Fail(DICOM_ERROR_END, Top().parent->nTag,
                "the stream ends inside this sequence or item: its delimiter or the rest of it is missing");
}

unsigned int Reader::ReadHeader(ElementHeader& header) {
    const Level& top = Top();
    const ByteSpan in = StreamAccess::View(*m_stream, m_position, kLongestHeader);
    if (DecodeHeader(in, top.encoding, m_size - m_position, header) == Decoded::needMore)
        return Fail(DICOM_ERROR_READ, 0,
                    in.size < m_size - m_position && in.size < 8 ? "the header cannot be read"
                                                                 : "the stream ends inside an element header");
    if (m_position + header.size > top.end) {
        // Fewer bytes than a header are left of a level of defined length.
        NoteOverrun(header.tag, "an element header runs past the end of the enclosing element");
    }
    return DICOM_OK;
}

// One header and what it opens or closes.
unsigned int Reader::StepHeader() {
    if (m_meta && Top().kind == Kind::top) {
        const ByteSpan in = StreamAccess::View(*m_stream, m_position, 2);
        if (in.size >= 2 && Get16(in.data, true) != 2) {
            LeaveMeta();
            if (m_syntax.deflated)
                return Inflate();
        }
    }
    ElementHeader header;
    if (const unsigned int code = ReadHeader(header); code != DICOM_OK)
        return code;
    if (header.otherForm)
        Note(DICOM_FAULT_VR, header.tag, "an element header without VR among explicit ones; read as such");
    else if (header.unknownVR)
        Note(DICOM_FAULT_VR, header.tag, "the VR is none of the standard's; the value is kept as it is");
    if (IsDelimiter(header.tag)) {
        if (HandleDelimiter(header))
            m_position += header.size;
        return DICOM_OK;
    }
    if (header.tag == kItem) {
        if (HandleItem(header))
            return DICOM_OK;
    } else if (Top().kind == Kind::sequence || Top().kind == Kind::fragments) {
        if (HandleMisplaced(header))
            return DICOM_OK;
    } else if (Top().kind == Kind::top && m_loading && !m_meta && header.tag > m_state.loadLimit) {
        return kStop;
    }
    return AddElement(header);
}

// True: the level has changed and the header is looked at again, or the delimiter is done with.
bool Reader::HandleDelimiter(const ElementHeader& header) {
    Level& top = Top();
    const bool closesItem = header.tag == kItemDelimiter;
    if (!top.defined &&
        (closesItem ? top.kind == Kind::item : top.kind == Kind::sequence || top.kind == Kind::fragments)) {
        Pop();
        return true;
    }
    if (!closesItem && top.kind == Kind::item && m_levels.size() > 1 && !m_levels[m_levels.size() - 2].defined) {
        Note(DICOM_FAULT_DELIMITER, header.tag, "the sequence ends inside an item that is still open");
        Pop();
        return false;
    }
    Note(DICOM_FAULT_DELIMITER, header.tag, "a delimiter closes nothing here; passed over");
    return true;
}

// True when the header is to be looked at again on the enclosing level.
bool Reader::HandleItem(const ElementHeader& header) {
    const Level& top = Top();
    if (top.kind == Kind::sequence || top.kind == Kind::fragments)
        return false;
    if (top.kind == Kind::item && !top.defined && m_levels.size() > 1) {
        Note(DICOM_FAULT_DELIMITER, header.tag, "an item begins before the one before it is closed");
        Pop();
        return true;
    }
    Note(DICOM_FAULT_ITEM, header.tag, "an item outside a sequence");
    return false;
}

// Something else where an item must stand. True when the sequence has been taken as ended before it.
bool Reader::HandleMisplaced(const ElementHeader& header) {
    const Level& top = Top();
    if (!top.defined && m_levels.size() > 1 && top.parent != nullptr && header.tag > top.parent->nTag) {
        Note(DICOM_FAULT_DELIMITER, header.tag, "the sequence before this element is not closed by a delimiter");
        Pop();
        return true;
    }
    Note(DICOM_FAULT_ITEM, header.tag, "an element where an item must stand");
    return false;
}

void Reader::CheckOrder(const ElementHeader& header) {
    Level& top = Top();
    if (header.tag < top.lastTag && header.tag != kItem) {
        if (m_state.tree.FindChild(top.parent, header.tag) != nullptr)
            Note(DICOM_FAULT_DOUBLED, header.tag, "the tag stands twice at one level; both elements are kept");
        else
            Note(DICOM_FAULT_ORDER, header.tag, "the tag is out of ascending order");
        return;
    }
    if (header.tag == top.lastTag && header.tag != kItem)
        Note(DICOM_FAULT_DOUBLED, header.tag, "the tag stands twice at one level; both elements are kept");
    top.lastTag = header.tag;
}

DICOMELEMENT* Reader::Append(const ElementHeader& header, unsigned short vr, bool undefined) {
    CheckOrder(header);
    DICOMELEMENT* e = m_state.Append(Top().parent, header.tag, vr, undefined);
    NodeOf(e)->streamOffset = m_position;
    return e;
}

void Reader::SetPiece(DICOMELEMENT* e, VDicomUInt64 position, VDicomULong length) {
    e->nLength = length;
    *e->pPieceOffset = static_cast<VDicomOffset>(position);
    *e->pPieceStream = m_stream;
    *e->pPieceSize = length;
}

unsigned short Reader::ResolveVR(const ElementHeader& header, bool undefined) {
    if (header.vr != vr::Implicit && header.tag != kItem)
        return header.vr;
    DICOMELEMENT* parent = Top().parent;
    if (header.tag == kItem)
        return Top().kind == Kind::fragments ? parent->nVR : vr::OB;
    const std::string* creator = nullptr;
    if (IsPrivate(header.tag) && (header.tag & 0xFFFF) >= 0x1000) {
        if (m_private.parent != parent || m_private.block != header.tag >> 8) {
            m_private.parent = parent;
            m_private.block = header.tag >> 8;
            m_private.creator = m_state.CreatorOf(parent, header.tag);
        }
        creator = &m_private.creator;
    }
    const unsigned short code = DefaultVR(m_state, parent, header.tag, m_syntax.compression != 0, creator);
    // In implicit VR only sequences have undefined length, but for pixel data that somebody encapsulated all the same.
    if (undefined && header.tag != kPixelData)
        return vr::SQ;
    return code;
}

bool Reader::BeginsWithItem(VDicomUInt64 position, VDicomUInt64 end, Encoding encoding) {
    if (position >= end)
        return true;
    const ByteSpan in = StreamAccess::View(*m_stream, position, 8);
    if (in.size < 8 || end - position < 8)
        return false;
    const VDicomULong tag =
        VDicomTagCode(Get16(in.data, encoding.littleEndian), Get16(in.data + 2, encoding.littleEndian));
    return tag == kItem || tag == kSequenceDelimiter;
}

unsigned int Reader::Push(DICOMELEMENT* parent, Kind kind, VDicomUInt64 end, bool defined, Encoding encoding) {
    // A sequence and its item are two levels. One empty sequence more is let in, as InsertElement does.
    if (m_base + m_levels.size() > 2 * static_cast<std::size_t>(m_state.depthLimit) + 1)
        return Fail(DICOM_ERROR_DEPTH, parent->nTag, "sequences are nested more deeply than the limit allows");
    m_levels.push_back({parent, end, encoding, kind, defined, 0});
    return DICOM_OK;
}

unsigned int Reader::AddElement(ElementHeader header) {
    const Encoding encoding = GroupOf(header.tag) == 2 ? Encoding{true, true} : Top().encoding;
    const VDicomUInt64 limit = std::min(Top().end, m_size);
    const VDicomUInt64 value = m_position + header.size;
    const bool undefined = header.length == DICOM_UNDEFINED;
    const bool isItem = header.tag == kItem;
    unsigned short code = ResolveVR(header, undefined);

    if (undefined) {
        DICOMELEMENT* e = Append(header, code, true);
        return AddUndefined(e, header, value);
    }

    VDicomUInt64 available = limit > value ? limit - value : 0;
    if (header.length > available && available < m_size - std::min(value, m_size)) {
        NoteOverrun(header.tag, "the length (" + std::to_string(header.length) +
                                    ") runs past the end of the enclosing element, " + std::to_string(available) +
                                    " bytes from here");
        header.length = static_cast<VDicomULong>(available);
    }
    const bool truncated = header.length > available;

    const bool opens = isItem ? Top().kind != Kind::fragments : code == vr::SQ;
    if (opens && !isItem && !BeginsWithItem(value, std::min(value + header.length, m_size), encoding)) {
        Note(DICOM_FAULT_ITEM, header.tag, "the sequence does not begin with an item; its bytes are kept as a value");
        code = vr::UN;
    } else if (opens) {
        DICOMELEMENT* e = Append(header, code, true);
        m_position = value;
        if (header.length == 0)
            return DICOM_OK;
        return Push(e, isItem ? Kind::item : Kind::sequence, value + header.length, true, encoding);
    }

    if ((header.length & 1) != 0 && !truncated) {
        if ((m_state.flags & DICOM_FLAG_PART10) == 0 || m_state.badCount == DataSetState::kMaxBad)
            return Fail(DICOM_ERROR_LENGTH, header.tag,
                        "the value has an odd length (" + std::to_string(header.length) + ")");
        Note(DICOM_BAD_ELEMENT, header.tag,
             "the value has an odd length (" + std::to_string(header.length) + "); padded");
    }
    DICOMELEMENT* e = Append(header, code, false);
    if (truncated) {
        SetPiece(e, value, static_cast<VDicomULong>(available));
        Fail(DICOM_FAULT_TRUNCATED, header.tag,
             "the value should have " + std::to_string(header.length) + " bytes, but the stream ends after " +
                 std::to_string(available));
        m_position = m_size;
        return DICOM_ERROR_READ;
    }
    SetPiece(e, value, header.length);
    if ((header.length & 1) != 0)
        m_state.bad[m_state.badCount++] = {DICOM_BAD_ELEMENT, e, 1};
    m_position = value + header.length;
    if (m_meta && Top().kind == Kind::top) {
        if (header.tag == kTransferSyntaxUID)
            TakeTransferSyntax(e);
        else if (unsigned char bytes[4]; header.tag == 0x00020000 && m_metaEnd == 0 && header.length == 4 &&
                                         StreamAccess::ReadAt(*m_stream, value, bytes, 4))
            m_metaEnd = m_position + Get32(bytes, true);
    }
    return DICOM_OK;
}

unsigned int Reader::AddUndefined(DICOMELEMENT* e, const ElementHeader& header, VDicomUInt64 value) {
    Encoding encoding = GroupOf(header.tag) == 2 ? Encoding{true, true} : Top().encoding;
    const VDicomUInt64 limit = Top().end;
    if (header.tag == kItem) {
        if (Top().kind == Kind::fragments)
            return Fail(DICOM_ERROR_STRUCTURE, header.tag, "a fragment of pixel data has undefined length");
        m_position = value;
        // Ended by its delimiter; where the enclosing level has a length, not behind that.
        return Push(e, Kind::item, limit, false, encoding);
    }
    const bool isSequence = e->nVR == vr::SQ || e->nVR == vr::UN;
    if (e->nVR == vr::UN) {
        // Implicit VR little endian inside (PS3.5 6.2.2); some write it explicit all the same.
        encoding = {true, false};
        const ByteSpan in = StreamAccess::View(*m_stream, value + 8, kLongestHeader);
        if (in.size >= kLongestHeader &&
            VDicomTagCode(Get16(in.data, true), Get16(in.data + 2, true)) != kSequenceDelimiter) {
            bool sure = false;
            const Encoding found = DetectEncoding(in, m_size - value - 8, encoding, sure);
            if (found.explicitVR && found == Top().encoding) {
                // What is encoded like all around it is a plain sequence; as "UN" its values would be misread.
                Note(DICOM_FAULT_VR, header.tag, "a sequence with explicit VRs under the VR \"UN\"; taken as \"SQ\"");
                e->nVR = vr::SQ;
            }
            if (found.littleEndian || e->nVR == vr::SQ)
                encoding = found;
        }
    }
    if (BeginsWithItem(value, m_size, encoding) || (isSequence && value >= m_size)) {
        m_position = value;
        return Push(e, isSequence ? Kind::sequence : Kind::fragments, limit, false, encoding);
    }
    // No items: the value is what stands before the next sequence delimiter.
    VDicomUInt64 at = value;
    while (at < limit) {
        const ByteSpan in = StreamAccess::View(
            *m_stream, at, static_cast<std::size_t>(std::min<VDicomUInt64>(limit - at, StreamAccess::kMaxView)));
        if (in.size < sizeof kSequenceDelimiterBytes || limit - at < sizeof kSequenceDelimiterBytes)
            break;
        const std::size_t size = static_cast<std::size_t>(std::min<VDicomUInt64>(in.size, limit - at));
        const unsigned char* stop = in.data + size;
        const unsigned char* found = std::search(in.data, stop, kSequenceDelimiterBytes,
                                                 kSequenceDelimiterBytes + sizeof kSequenceDelimiterBytes);
        if (found != stop) {
            const VDicomUInt64 length = at + static_cast<VDicomUInt64>(found - in.data) - value;
            if (length >= DICOM_UNDEFINED)
                break;
            Note(DICOM_FAULT_DELIMITER, header.tag,
                 "a value of undefined length that holds no items; it ends at the next sequence delimiter");
            SetPiece(e, value, static_cast<VDicomULong>(length));
            if ((length & 1) != 0 && m_state.badCount < DataSetState::kMaxBad)
                m_state.bad[m_state.badCount++] = {DICOM_BAD_ELEMENT, e, 1};
            m_position = std::min(value + length + 8, m_size);
            return DICOM_OK;
        }
        at += size - (sizeof kSequenceDelimiterBytes - 1);
    }
    SetPiece(e, value,
             static_cast<VDicomULong>(std::min<VDicomUInt64>(limit > value ? limit - value : 0, DICOM_UNDEFINED - 1)));
    Fail(DICOM_ERROR_STRUCTURE, header.tag, "a value of undefined length holds no items and is never closed");
    m_position = limit;
    return DICOM_ERROR_STRUCTURE;
}

void Reader::TakeTransferSyntax(const DICOMELEMENT* e) {
    if (e->nLength == 0)
        return;
    const ByteSpan in = StreamAccess::View(*m_stream, *e->pPieceOffset, std::min<std::size_t>(e->nLength, 64));
    std::string uid(reinterpret_cast<const char*>(in.data), std::min<std::size_t>(in.size, e->nLength));
    const std::size_t zero = uid.find('\0');
    uid.resize(zero == std::string::npos ? uid.size() : zero);
    const std::size_t end = uid.find_last_not_of(' ');
    uid.resize(end == std::string::npos ? 0 : end + 1);
    m_named = !uid.empty();
    m_state.transferSyntax = uid;
    m_syntax = FindTransferSyntax(m_state.transferSyntax.c_str());
    m_syntax.uid = "";
}

// The first header behind group 0002 is next: the encoding of all that follows is settled here.
void Reader::LeaveMeta() {
    m_meta = false;
    if (m_metaEnd != 0 && m_metaEnd != m_position)
        Note(DICOM_FAULT_META, 0x00020000, "the length of group 0002 is wrong");
    if (!m_named) {
        m_syntax.encoding = {true, false};
        Note(DICOM_FAULT_NO_TRANSFER_SYNTAX, kTransferSyntaxUID,
             "group 0002 has no Transfer Syntax UID; the encoding is taken from the headers");
    }
    if (!m_syntax.deflated) {
        const ByteSpan in = StreamAccess::View(*m_stream, m_position, kLongestHeader);
        bool sure = false;
        const Encoding named = m_syntax.encoding;
        m_syntax.encoding = DetectEncoding(in, m_size - std::min(m_position, m_size), named, sure);
        if (!(m_syntax.encoding == named)) {
            if (m_named && m_syntax.known)
                Note(DICOM_FAULT_TRANSFER_SYNTAX, kTransferSyntaxUID,
                     "the headers contradict the Transfer Syntax UID; read as " +
                         std::string(EncodingUID(m_syntax.encoding, false)));
            if (m_syntax.known || !m_named)
                m_state.transferSyntax = EncodingUID(m_syntax.encoding, false);
        }
    }
    if (m_state.transferSyntax.empty())
        m_state.transferSyntax = EncodingUID(m_syntax.encoding, false);
    Top().encoding = m_syntax.encoding;
    Top().lastTag = 0;
    SetEncoding(m_syntax.encoding);
    if (m_syntax.deflated)
        m_state.flags = static_cast<unsigned short>(m_state.flags | DICOM_FLAG_DEFLATED);
}

unsigned int Reader::Inflate() {
    std::string reason;
    const unsigned int code =
        InflateStream(*m_stream, m_position, m_state.inflated, m_state.tempPath, m_state.inflateLimit, reason);
    if (code == DICOM_ERROR_WRITE || code == DICOM_ERROR_OPEN)
        return Fail(code, 0, reason);
    // The inflated stream begins with what stands before the deflated part, so that positions go on.
    m_stream = &m_state.inflated;
    m_size = StreamAccess::Size(*m_stream);
    Top().end = m_size;
    m_syntax.deflated = false;
    const unsigned int rest = m_position < m_size ? Run() : static_cast<unsigned int>(DICOM_OK);
    // What was inflated has been read; the reason why it ends there comes last.
    if (code != DICOM_OK)
        return Fail(code, 0, reason);
    return rest != DICOM_OK ? rest : kStop;
}

} // namespace vdicom
