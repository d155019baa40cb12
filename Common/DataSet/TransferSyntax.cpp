#include "TransferSyntax.h"

#include <charconv>
#include <string_view>

namespace vdicom {

namespace {

constexpr Encoding kImplicitLittle{true, false};
constexpr Encoding kExplicitLittle{true, true};
constexpr Encoding kExplicitBig{false, true};

constexpr std::string_view kRoot = "1.2.840.10008.1.2";
constexpr VDicomLong kOtherEncapsulated = 9;

// JPEG processes of PS3.5 10.2 by the last number of "1.2.840.10008.1.2.4.N".
VDicomLong JpegCompression(unsigned int number) {
    switch (number) {
    case 57:
    case 58:
    case 65:
    case 66:
    case 70:
        return 2;
    case 80:
        return 4;
    case 81:
        return 5;
    case 90:
        return 6;
    case 91:
        return 7;
    case 100:
        return 8;
    default:
        return number >= 50 && number <= 64 ? 3 : kOtherEncapsulated;
    }
}

} // namespace

TransferSyntax FindTransferSyntax(const char* uid) {
    static constexpr TransferSyntax unknown{"", kImplicitLittle, 0, false, false};
    if (uid == nullptr)
        return unknown;
    std::string_view text(uid);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    if (text == kRoot || text == "1.2.840.10008.1.20")
        return {uid, kImplicitLittle, 0, false, true};
    if (text.substr(0, kRoot.size()) != kRoot)
        return unknown;
    text.remove_prefix(kRoot.size());
    if (text == ".1")
        return {uid, kExplicitLittle, 0, false, true};
    if (text == ".1.99")
        return {uid, kExplicitLittle, 0, true, true};
    if (text == ".2")
        return {uid, kExplicitBig, 0, false, true};
    if (text == ".5")
        return {uid, kExplicitLittle, 1, false, true};
    // Encapsulated Uncompressed (PS3.5 A.4.11), and all that is registered below .4: JPEG to HTJ2K, video, JPEG XL.
    if (text == ".1.98")
        return {uid, kExplicitLittle, kOtherEncapsulated, false, true};
    if (text.substr(0, 3) == ".4.") {
        text.remove_prefix(3);
        unsigned int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        const bool whole = error == std::errc() && end == text.data() + text.size();
        // JPIP Referenced Deflate and its HTJ2K form (PS3.5 A.7, A.12).
        const bool deflated = whole && (number == 95 || number == 205);
        return {uid, kExplicitLittle, whole ? JpegCompression(number) : kOtherEncapsulated, deflated, true};
    }
    return unknown;
}

const char* EncodingUID(Encoding encoding, bool deflated) {
    if (deflated)
        return "1.2.840.10008.1.2.1.99";
    if (!encoding.littleEndian)
        return "1.2.840.10008.1.2.2";
    return encoding.explicitVR ? "1.2.840.10008.1.2.1" : "1.2.840.10008.1.2";
}

} // namespace vdicom
