#include "MessageSyntax.h"

#include <string_view>

namespace vdicom {

namespace {

constexpr unsigned short kImplicitLittle = DICOM_FLAG_BARE | DICOM_TS_IMPLICIT_LITTLE;
constexpr unsigned short kExplicitLittle = DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE;
constexpr unsigned short kExplicitBig = DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_BIG;

bool IsListedJpeg(std::string_view uid) {
    constexpr std::string_view root = "1.2.840.10008.1.2.4.";
    if (uid.substr(0, root.size()) != root)
        return false;
    uid.remove_prefix(root.size());
    for (const std::string_view other : {"70", "80", "81", "90", "91", "100"}) {
        if (uid == other)
            return true;
    }
    return uid.size() == 2 && uid >= "50" && uid <= "66" && uid[1] >= '0' && uid[1] <= '9';
}

} // namespace

unsigned short TransferFlags(bool command, const char* uid) {
    if (command || uid == nullptr)
        return kImplicitLittle;
    const std::string_view text(uid);
    if (text == "1.2.840.10008.1.2.2")
        return kExplicitBig;
    if (text == "1.2.840.10008.1.2.1" || text == "1.2.840.10008.1.2.5" || IsListedJpeg(text))
        return kExplicitLittle;
    return kImplicitLittle;
}

WireSyntax WireSyntaxOf(bool command, const char* uid) {
    if (command || uid == nullptr)
        return {kImplicitLittle, false, false};
    const TransferSyntax syntax = FindTransferSyntax(uid);
    return {static_cast<unsigned short>(DICOM_FLAG_BARE | syntax.encoding.Code()), syntax.deflated,
            syntax.compression != 0};
}

} // namespace vdicom
