#include "SavePlan.h"

#include <string_view>

namespace vdicom {

namespace {

constexpr VDicomULong kTransferSyntaxUID = 0x00020010;

unsigned short Field(unsigned short asked, unsigned short own, unsigned short mask) {
    return static_cast<unsigned short>((asked & mask) != 0 ? asked & mask : own & mask);
}

} // namespace

std::string TextOf(const DataSetState&, const DICOMELEMENT* e) {
    // Long enough for any UID with its padding and for what should have been one.
    constexpr std::size_t longest = 256;
    if (e == nullptr || IsUndefinedLength(e) || e->nLength == 0 || e->nLength > longest)
        return {};
    std::string text;
    for (VDicomULong piece = 0; piece < e->nCountPiece; ++piece) {
        std::string part(e->pPieceSize[piece], '\0');
        if (!StreamAccess::ReadAt(*e->pPieceStream[piece], e->pPieceOffset[piece], part.data(), part.size()))
            return {};
        text += part;
    }
    const std::size_t end = text.find_last_not_of(std::string_view(" \0", 2));
    text.resize(end == std::string::npos ? 0 : end + 1);
    return text;
}

TransferSyntax NamedTransferSyntax(const DataSetState& state, bool& isNamed) {
    const std::string uid = TextOf(state, state.tree.FindChild(nullptr, kTransferSyntaxUID));
    isNamed = !uid.empty();
    TransferSyntax syntax = FindTransferSyntax(uid.c_str());
    syntax.uid = "";
    return syntax;
}

SavePlan PlanSave(const DataSetState& state, unsigned short flags) {
    SavePlan plan;
    bool isNamed = false;
    const TransferSyntax syntax = NamedTransferSyntax(state, isNamed);
    // Fragments under a transfer syntax that nobody knows are compressed all the same.
    const DICOMELEMENT* pixels = state.tree.FindChild(nullptr, kPixelData);
    plan.compressed = syntax.compression != 0 || (pixels != nullptr && IsUndefinedLength(pixels) && !syntax.known);

    constexpr unsigned short encodingBits = 0x003C;
    unsigned short all = static_cast<unsigned short>(
        Field(flags, state.flags, 0x0003) | Field(flags, state.flags, 0x000C) | Field(flags, state.flags, 0x0030));
    plan.deflated = ((flags & (encodingBits | DICOM_FLAG_DEFLATED)) == 0 ? state.flags & DICOM_FLAG_DEFLATED
                                                                         : flags & DICOM_FLAG_DEFLATED) != 0;
    if (plan.compressed) {
        constexpr unsigned short cleared = 0x0018;
        all = static_cast<unsigned short>((all & ~cleared) | DICOM_TS_EXPLICIT_LITTLE);
        plan.deflated = syntax.deflated;
    }
    plan.possible = (all & (DICOM_FLAG_BIG | DICOM_FLAG_IMPLICIT)) != (DICOM_FLAG_BIG | DICOM_FLAG_IMPLICIT);
    plan.encoding = plan.deflated ? Encoding{true, true} : Encoding::FromFlags(all);
    plan.part10 = (all & DICOM_FLAG_PART10) != 0;
    plan.bare = !plan.part10 && (all & DICOM_FLAG_BARE) != 0;
    plan.keepUID = (flags & DICOM_FLAG_KEEP_UID) != 0;
    return plan;
}

} // namespace vdicom
