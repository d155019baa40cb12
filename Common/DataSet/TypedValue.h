/// @file TypedValue.h
/// Typed values: which form the values of each VR have, parsing raw values into an element's typed buffer, and
/// encoding. Below VDicomDS: no invalid-element check is made here.
#pragma once

#include "ValuePieces.h"
#include "ValueText.h"

#include <memory>
#include <string>
#include <string_view>

namespace vdicom {

/// What the typed buffer of an element holds.
enum class ValueKind : unsigned char {
    Bytes,
    Shorts,
    Longs,
    Tags, ///< 32 bits, the group in the high half
    Long64s,
    Floats,
    Doubles,
    Strings,  ///< zero-terminated, one behind the other
    Integers, ///< "IS": 32 bits, the nearest bound where the number needs more
    Decimals, ///< "DS": doubles
    Ages,
    Dates,
    Times,
    DateTimes
};

struct ValueForm {
    ValueKind kind;
    unsigned short size; ///< bytes of one value in the typed buffer; of strings 1
    bool isSigned;
    bool single; ///< a text that is not divided
};

/// The form of a VR: the codec's knowledge of it, divided as the VR table says. A VR that neither knows is bytes.
ValueForm FindValueForm(unsigned short code);

inline bool IsBinary(ValueKind kind) { return kind < ValueKind::Strings; }

/// VDicomDS::VerifyVR for an element that is there.
bool IsOfType(unsigned short code, unsigned short type);

/// The raw value of a text element as it is stored.
class RawText {
public:
    /// False when it cannot be read or memory runs out; nothing is allocated for bytes that the streams do not hold.
    bool Read(const DICOMELEMENT* e);
    std::string_view View() const { return {m_large == nullptr ? m_small : m_large.get(), m_size}; }

private:
    std::size_t m_size = 0;
    char m_small[256];
    std::unique_ptr<char[]> m_large;
};

/// Where backslashes divide this text of `e`.
SplitRule FindSplitRule(const DataSetState& state, const DICOMELEMENT* e, const ValueForm& form, std::string_view text);

/// Parses the raw value unless that has been done. A text of which no value can be parsed is refused; where some can,
/// the others are kept as bad values.
bool ParseTypedValue(const DataSetState& state, DICOMELEMENT* e);

/// String number `index` of an element whose strings have been parsed; there must be as many. Constant time.
char* StringAt(const DICOMELEMENT* e, VDicomULong index);

/// Whether `count` values from `index` on, which must be there, are good ones; empty dates and times are.
bool AreGoodValues(const DICOMELEMENT* e, const ValueForm& form, VDicomULong index, VDicomULong count);

/// Joins encoded values of a text VR.
class TextJoiner {
public:
    void Add(std::string_view value) {
        if (m_count++ > 0)
            m_text += '\\';
        m_text += value;
    }
    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
    std::size_t m_count = 0;
};

/// Stores `bytes` as the value, or refuses what is longer than a value can be.
bool StoreText(DataSetState& state, DICOMELEMENT* e, std::string_view bytes);

/// VDicomDS::SetTypeValue for an element of defined length; `code` is the VR that the values have. No exceptions.
bool EncodeTypedValue(DataSetState& state, DICOMELEMENT* e, unsigned short code, const void* values, VDicomULong count,
                      bool range);

} // namespace vdicom
