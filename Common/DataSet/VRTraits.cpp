#include "VRTraits.h"

#include <algorithm>
#include <array>

namespace vdicom {

namespace {

constexpr VRTraits Binary(unsigned short code, unsigned char unit, bool longHeader) {
    return {code, unit, longHeader, false, false, false, '\0'};
}

constexpr VRTraits Text(unsigned short code, bool longHeader, bool multiple, bool charset, char pad = ' ') {
    return {code, 1, longHeader, true, multiple, charset, pad};
}

// In ascending order of the code.
constexpr std::array<VRTraits, 34> kTraits = {{
    Text(vr::AE, false, true, false), Text(vr::AS, false, true, false),
    Binary(vr::AT, 2, false),         Text(vr::CS, false, true, false),
    Text(vr::DA, false, true, false), Text(vr::DS, false, true, false),
    Text(vr::DT, false, true, false), Binary(vr::FD, 8, false),
    Binary(vr::FL, 4, false),         Text(vr::IS, false, true, false),
    Text(vr::LO, false, true, true),  Text(vr::LT, false, false, true),
    Binary(vr::OB, 1, true),          Binary(vr::OD, 8, true),
    Binary(vr::OF, 4, true),          Binary(vr::OL, 4, true),
    Binary(vr::OV, 8, true),          Binary(vr::OW, 2, true),
    Text(vr::PN, false, true, true),  Text(vr::SH, false, true, true),
    Binary(vr::SL, 4, false),         Binary(vr::SQ, 1, true),
    Binary(vr::SS, 2, false),         Text(vr::ST, false, false, true),
    Binary(vr::SV, 8, true),          Text(vr::TM, false, true, false),
    Text(vr::UC, true, true, true),   Text(vr::UI, false, true, false, '\0'),
    Binary(vr::UL, 4, false),         Binary(vr::UN, 1, true),
    Text(vr::UR, true, false, false), Binary(vr::US, 2, false),
    Text(vr::UT, true, false, true),  Binary(vr::UV, 8, true),
}};

// Index by both letters: 26 x 26 entries of place + 1, 0 for no VR.
constexpr std::array<unsigned char, 26 * 26> MakeIndex() {
    std::array<unsigned char, 26 * 26> index{};
    for (std::size_t i = 0; i < kTraits.size(); ++i) {
        const auto first = static_cast<std::size_t>((kTraits[i].code >> 8) - 'A');
        const auto second = static_cast<std::size_t>((kTraits[i].code & 0xFF) - 'A');
        index[first * 26 + second] = static_cast<unsigned char>(i + 1);
    }
    return index;
}

constexpr auto kIndex = MakeIndex();

} // namespace

const VRTraits* FindVRTraits(unsigned short code) {
    const unsigned int first = static_cast<unsigned int>(code >> 8) - 'A';
    const unsigned int second = static_cast<unsigned int>(code & 0xFF) - 'A';
    if (first >= 26 || second >= 26)
        return nullptr;
    const unsigned int place = kIndex[first * 26 + second];
    return place == 0 ? nullptr : &kTraits[place - 1];
}

unsigned int SwapUnit(unsigned short code) {
    const VRTraits* traits = FindVRTraits(code);
    return traits == nullptr ? 1 : traits->unit;
}

bool HasLongHeader(unsigned short code) {
    const VRTraits* traits = FindVRTraits(code);
    if (traits != nullptr)
        return traits->longHeader;
    const unsigned int first = static_cast<unsigned int>(code >> 8) - 'A';
    const unsigned int second = static_cast<unsigned int>(code & 0xFF) - 'A';
    return first < 26 && second < 26;
}

unsigned char PadByte(unsigned short code) {
    const VRTraits* traits = FindVRTraits(code);
    return traits == nullptr ? 0 : static_cast<unsigned char>(traits->pad);
}

} // namespace vdicom
