// Texts in UTF-8.
#include "VDicomDS.h"

#include "CharacterSet.h"
#include "DataSetState.h"
#include "TypedValue.h"

#include <cstring>
#include <new>

using namespace vdicom;

namespace {

TextKind KindOf(const VRTraits& traits) {
    if (!traits.multiple)
        return TextKind::text;
    return traits.code == vr::PN ? TextKind::names : TextKind::values;
}

const VRTraits* FindTextTraits(const DataSetState& state, const DICOMELEMENT* e) {
    if (!state.Check(e) || e == nullptr || IsUndefinedLength(e))
        return nullptr;
    const VRTraits* traits = FindVRTraits(e->nVR);
    return traits != nullptr && traits->text ? traits : nullptr;
}

std::string_view WithoutPadding(std::string_view text) {
    const std::size_t last = text.find_last_not_of(std::string_view(" \0", 2));
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

VDicomULong CopyOut(std::string_view text, char* out, VDicomULong size) {
    if (text.size() >= DICOM_UNDEFINED)
        return 0;
    if (out != nullptr && size != 0) {
        std::size_t length = text.size();
        if (length > size - 1) {
            length = size - 1;
            while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
                --length;
        }
        if (length != 0)
            std::memcpy(out, text.data(), length);
        out[length] = '\0';
    }
    return static_cast<VDicomULong>(text.size() + 1);
}

} // namespace

VDicomULong VDicomDS::GetUtf8Value(DICOMELEMENT* e, char* out, VDicomULong size) {
    const VRTraits* traits = FindTextTraits(*m_pState, e);
    RawText raw;
    if (traits == nullptr || !raw.Read(e))
        return 0;
    const std::string_view text = WithoutPadding(raw.View());
    const TextKind kind = KindOf(*traits);
    // Most texts are the same in every character set.
    if (CharacterSet::IsPlain(text.data(), text.size(), kind))
        return CopyOut(text, out, size);
    try {
        std::string& utf8 = m_pState->utf8;
        utf8.clear();
        // Texts that are bound to the default repertoire are read by the same rules: other characters are met there.
        m_pState->characterSets.Of(m_pState->tree, e).Decode(text, kind, utf8);
        return CopyOut(utf8, out, size);
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

unsigned int VDicomDS::SetUtf8Value(DICOMELEMENT* e, const char* text) {
    const VRTraits* traits = FindTextTraits(*m_pState, e);
    if (traits == nullptr || text == nullptr)
        return 0;
    try {
        const CharacterSet defaultRepertoire;
        const CharacterSet& set = traits->charset ? m_pState->characterSets.Of(m_pState->tree, e) : defaultRepertoire;
        std::string bytes;
        return set.Encode(text, KindOf(*traits), bytes) && StoreText(*m_pState, e, bytes) ? 1 : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
