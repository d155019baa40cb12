#include "ElementHeader.h"

#include "ElementTree.h"
#include "VDicomTag.h"
#include "VRTraits.h"

namespace vdicom {

namespace {

bool HasNoVR(VDicomULong tag) { return tag == kItem || IsDelimiter(tag); }

unsigned short VRAt(const unsigned char* p) { return static_cast<unsigned short>((p[0] << 8) | p[1]); }

bool AreLetters(unsigned short vr) {
    const unsigned int first = vr >> 8;
    const unsigned int second = vr & 0xFF;
    return first >= 'A' && first <= 'Z' && second >= 'A' && second <= 'Z';
}

// The dictionary's VR of a tag, 0 when nobody knows the tag; group lengths and private creators are known too.
unsigned short KnownVR(VDicomULong tag) {
    if (IsGroupLength(tag))
        return vr::UL;
    if (const DICOMTAG* entry = VDicomTag::Find(tag))
        return entry->nVR;
    DICOMCURRENTTAG current;
    if (VDicomTag::FindCurrent(tag, &current) != 0)
        return current.nVR;
    if (IsPrivate(tag) && GroupOf(tag) > 8 && (tag & 0xFFFF) >= 0x10 && (tag & 0xFFFF) <= 0xFF)
        return vr::LO;
    return 0;
}

bool Fits(VDicomULong length, VDicomUInt64 available) { return length == DICOM_UNDEFINED || length <= available; }

// How well a header fits the encoding that it was read by: more for a known tag and for the VR that it should have.
int Score(const ElementHeader& header, Encoding encoding) {
    const VDicomULong tag = header.tag;
    const unsigned short known = KnownVR(tag);
    // The letters of a text make groups from 0x2020 on: an unknown tag there is not believed.
    if (encoding.explicitVR && known == 0)
        return GroupOf(tag) < 0x2000 ? 2 : 0;
    if (encoding.explicitVR)
        return known == header.vr ? 4 : 3;
    // Any eight bytes are an implicit header; only a known tag and a length that fits speak for it.
    if (header.length == DICOM_UNDEFINED)
        return known == vr::SQ ? 3 : 0;
    return known == 0 ? 0 : 3;
}

// What speaks for an encoding: the headers from `in` on, as far as they make sense one behind the other in ascending
// order, the item behind a sequence's header, a stream that ends with a value. 0: nothing does.
int Evidence(ByteSpan in, VDicomUInt64 available, Encoding encoding) {
    constexpr int kMostHeaders = 8;
    int evidence = 0;
    VDicomULong last = 0;
    for (int i = 0; i < kMostHeaders; ++i) {
        ElementHeader header;
        if (DecodeHeader(in, encoding, available, header) == Decoded::needMore || header.unknownVR ||
            header.otherForm || HasNoVR(header.tag) || !Fits(header.length, available - header.size))
            break;
        if ((i > 0 && header.tag <= last) || (IsGroupLength(header.tag) && header.length != 4))
            break;
        last = header.tag;
        evidence += Score(header, encoding);
        available -= header.size;
        in = {in.data + header.size, in.size - header.size};
        if (header.length == DICOM_UNDEFINED) {
            // The item or delimiter that begins what has no length.
            if (in.size >= 4 && VDicomTagCode(Get16(in.data, encoding.littleEndian),
                                              Get16(in.data + 2, encoding.littleEndian)) == kItem)
                evidence += 2;
            break;
        }
        available -= header.length;
        if (available == 0 && (i > 0 || header.length > 0))
            ++evidence;
        if (in.size <= header.length)
            break;
        in = {in.data + header.length, in.size - header.length};
    }
    return evidence;
}

} // namespace

Decoded DecodeHeader(ByteSpan in, Encoding encoding, VDicomUInt64 available, ElementHeader& out) {
    if (in.size < 8)
        return Decoded::needMore;
    const unsigned char* p = in.data;
    bool little = encoding.littleEndian;
    bool isExplicit = encoding.explicitVR;
    // In big endian mode a group 0002 reads as 0x0200; its bytes are the same.
    if (Get16(p, true) == 2) {
        little = true;
        isExplicit = FindVRTraits(VRAt(p + 4)) != nullptr;
    }
    out = ElementHeader();
    out.tag = VDicomTagCode(Get16(p, little), Get16(p + 2, little));
    out.size = 8;
    if (HasNoVR(out.tag)) {
        out.vr = vr::OB;
        out.length = out.tag == kItem ? Get32(p + 4, little) : 0;
        return Decoded::done;
    }
    out.vr = vr::Implicit;
    if (!isExplicit) {
        out.length = Get32(p + 4, little);
        return Decoded::done;
    }
    const unsigned short code = VRAt(p + 4);
    const bool known = FindVRTraits(code) != nullptr;
    if (!known && !AreLetters(code)) {
        // Writers that put a header without VR into an explicit stream are read where that makes sense.
        const VDicomULong length = Get32(p + 4, little);
        if (Fits(length, available - 8)) {
            out.otherForm = true;
            out.length = length;
            return Decoded::done;
        }
    }
    out.vr = code;
    out.unknownVR = !known;
    const unsigned short reserved = Get16(p + 6, little);
    bool longHeader = HasLongHeader(code);
    // "UT" with a short header is written by some. A VR to come has a long one (PS3.5 7.1.2), a misspelt one has not.
    if (reserved != 0 && (code == vr::UT || !known))
        longHeader = false;
    if (!longHeader) {
        out.length = reserved;
        return Decoded::done;
    }
    if (in.size < kLongestHeader)
        return Decoded::needMore;
    out.length = Get32(p + 8, little);
    out.size = kLongestHeader;
    return Decoded::done;
}

unsigned int HeaderSize(VDicomULong tag, unsigned short vr, Encoding encoding) {
    const bool isExplicit = encoding.explicitVR || GroupOf(tag) == 2;
    return isExplicit && !HasNoVR(tag) && HasLongHeader(vr) ? kLongestHeader : 8;
}

unsigned int EncodeHeader(unsigned char out[kLongestHeader], VDicomULong tag, unsigned short vr, VDicomULong length,
                          Encoding encoding) {
    if (GroupOf(tag) == 2)
        encoding = {true, true};
    const bool little = encoding.littleEndian;
    Put16(out, static_cast<std::uint16_t>(GroupOf(tag)), little);
    Put16(out + 2, static_cast<std::uint16_t>(tag & 0xFFFF), little);
    if (!encoding.explicitVR || HasNoVR(tag)) {
        Put32(out + 4, length, little);
        return 8;
    }
    out[4] = static_cast<unsigned char>(vr >> 8);
    out[5] = static_cast<unsigned char>(vr & 0xFF);
    if (HasLongHeader(vr)) {
        Put16(out + 6, 0, little);
        Put32(out + 8, length, little);
        return kLongestHeader;
    }
    if (length > 0xFFFF)
        return 0;
    Put16(out + 6, static_cast<std::uint16_t>(length), little);
    return 8;
}

Encoding DetectEncoding(ByteSpan in, VDicomUInt64 available, Encoding named, bool& sure) {
    Encoding best = named;
    int bestScore = Evidence(in, available, named);
    // The named encoding is believed unless another one fits better.
    for (const Encoding other : {Encoding{true, true}, Encoding{true, false}, Encoding{false, true}}) {
        const int score = Evidence(in, available, other);
        if (score > bestScore) {
            best = other;
            bestScore = score;
        }
    }
    sure = bestScore > 0;
    return best;
}

} // namespace vdicom
