#include "CurrentTables.h"

#include "CurrentRows.h"

#include <cstring>
#include <string_view>

namespace vdicom {

namespace {

// Both hashes are those of tools/tables/make_tables.py.

std::uint64_t TextKey(std::string_view text) {
    std::uint64_t key = 0xCBF29CE484222325U;
    for (const char c : text)
        key = (key ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return key;
}

/// The row of `key` for which `matches` says yes.
template <class Matches> std::size_t FindSlot(const SlotTable& table, std::uint64_t key, Matches matches) {
    auto slot = static_cast<std::size_t>((key * 0x9E3779B97F4A7C15U) >> (64 - table.bits));
    for (; table.slots[slot] != 0; slot = (slot + 1) & ((std::size_t{1} << table.bits) - 1)) {
        const std::size_t row = table.slots[slot] - std::size_t{1};
        if (matches(row))
            return row;
    }
    return kNoRow;
}

const char* Behind(const char* text) { return text + std::strlen(text) + 1; }

std::uint32_t PrivateMask(PrivateForm form) {
    switch (form) {
    case PrivateForm::element:
        return 0xFFFF00FF;
    case PrivateForm::repeatingElement:
        return 0xFF0000FF;
    case PrivateForm::group:
        return 0xFFFF0000;
    case PrivateForm::creators:
        break;
    }
    return 0xFFFFFF00;
}

std::size_t FindPrivateRow(std::size_t creator, VDicomULong tag, PrivateForm form) {
    const std::uint32_t code = tag & PrivateMask(form);
    const std::uint32_t group = code >> 16;
    const std::uint32_t element = code & 0xFF;
    const std::uint64_t key = std::uint64_t{creator} << 32 | code | static_cast<std::uint32_t>(form) << 8;
    return FindSlot(kPrivateTagSlots, key, [=](std::size_t row) {
        const PrivateTagRow& r = kPrivateTagRows[row];
        return r.creator == creator && r.group == group && r.element == element &&
               r.form == static_cast<std::uint8_t>(form);
    });
}

} // namespace

std::size_t FindCurrentTag(VDicomULong tag) {
    if ((tag & 0x00010000) != 0)
        return kNoRow;
    // The first mask is the exact one: a row of its own goes before the row of a range.
    for (std::size_t i = 0; i < kCurrentMaskCount; ++i) {
        const std::uint32_t code = tag & kCurrentMasks[i];
        const std::size_t found = FindSlot(kCurrentTagSlots, std::uint64_t{i} << 32 | code, [code, i](std::size_t row) {
            return kCurrentTagRows[row].code == code && kCurrentTagRows[row].mask == i;
        });
        if (found != kNoRow)
            return found;
    }
    return kNoRow;
}

std::size_t FindCurrentKeyword(const char* keyword) {
    if (keyword == nullptr)
        return kNoRow;
    return FindSlot(kCurrentKeywordSlots, TextKey(keyword), [keyword](std::size_t row) {
        return std::strcmp(Behind(kCurrentTagTexts + kCurrentTagRows[row].text), keyword) == 0;
    });
}

bool CurrentTag(std::size_t row, DICOMCURRENTTAG* out) {
    if (row >= kCurrentTagCount)
        return false;
    if (out == nullptr)
        return true;
    const CurrentTagRow& r = kCurrentTagRows[row];
    const char* name = kCurrentTagTexts + r.text;
    const Multiplicity& vm = kCurrentVMs[r.vm];
    *out = {r.code,
            kCurrentMasks[r.mask],
            kCurrentVRs[r.vr].vr,
            kCurrentVRs[r.vr].other,
            vm.minVM,
            vm.maxVM,
            vm.divideVM,
            name,
            Behind(name),
            r.retired};
    return true;
}

namespace {

std::size_t FindCreator(const char* creator, std::size_t length) {
    if (creator == nullptr)
        return kNoRow;
    // A NUL at the end is padding as well: some writers use it.
    while (length != 0 && (creator[length - 1] == ' ' || creator[length - 1] == '\0'))
        --length;
    const std::string_view text(creator, length);
    return FindSlot(kPrivateCreatorSlots, TextKey(text),
                    [text](std::size_t candidate) { return text == kPrivateTexts + kPrivateCreators[candidate]; });
}

} // namespace

bool IsPrivateCreator(const char* creator, std::size_t length) { return FindCreator(creator, length) != kNoRow; }

bool FindPrivateTag(const char* creator, std::size_t length, VDicomULong tag, DICOMCURRENTTAG* out) {
    const std::size_t number = FindCreator(creator, length);
    if (number == kNoRow)
        return false;
    PrivateForm form = PrivateForm::element;
    std::size_t row = FindPrivateRow(number, tag, form);
    if (row == kNoRow)
        row = FindPrivateRow(number, tag, form = PrivateForm::repeatingElement);
    if (row == kNoRow)
        row = FindPrivateRow(number, tag, form = PrivateForm::group);
    if (row == kNoRow && (tag & 0xFFFF) >= 0x10 && (tag & 0xFFFF) <= 0xFF)
        row = FindPrivateRow(number, tag, form = PrivateForm::creators);
    if (row == kNoRow)
        return false;
    if (out == nullptr)
        return true;
    const PrivateTagRow& r = kPrivateTagRows[row];
    const VRChoice& vr = kPrivateVRs[r.vr];
    const Multiplicity& vm = kPrivateVMs[r.vm];
    *out = {static_cast<VDicomULong>(r.group) << 16 | r.element,
            PrivateMask(form),
            vr.vr,
            vr.other,
            vm.minVM,
            vm.maxVM,
            vm.divideVM,
            kPrivateTexts + r.text,
            "",
            0};
    return true;
}

std::size_t FindCurrentUID(const char* uid) {
    if (uid == nullptr)
        return kNoRow;
    return FindSlot(kCurrentUIDSlots, TextKey(uid), [uid](std::size_t row) {
        return std::strcmp(kCurrentUIDTexts + kCurrentUIDRows[row].text, uid) == 0;
    });
}

bool CurrentUID(std::size_t row, DICOMCURRENTUID* out) {
    if (row >= kCurrentUIDCount)
        return false;
    if (out == nullptr)
        return true;
    const CurrentUIDRow& r = kCurrentUIDRows[row];
    const char* uid = kCurrentUIDTexts + r.text;
    const char* name = Behind(uid);
    *out = {uid, name, kCurrentUIDTexts + kCurrentUIDTypes[r.type], Behind(name), r.retired};
    return true;
}

} // namespace vdicom
