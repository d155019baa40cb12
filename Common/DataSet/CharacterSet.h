/// @file CharacterSet.h
/// Specific Character Set (0008,0005), PS3.3 C.12.1.1.2: texts of a data set to UTF-8 and back, with the code
/// extensions of ISO 2022 (PS3.5 6.1.2). Tolerant when reading, strict when writing.
#pragma once

#include "CharacterTables.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace vdicom {

/// What divides a text, and so calls for the character set of the first value again.
enum class TextKind : unsigned char {
    text,   ///< one value, in which a backslash is a character: LT, ST, UT
    values, ///< values divided by backslashes
    names   ///< PN: values, their components and component groups
};

class CharacterSet {
public:
    /// The default repertoire, ISO-IR 6.
    CharacterSet() = default;
    /// @param specific the value of (0008,0005). Defined terms are recognised in the spellings that are met: with
    ///        blanks, underscores or hyphens, in small letters, "UTF-8". What is no term stands for the default
    ///        repertoire.
    explicit CharacterSet(std::string_view specific);

    /// Whether every value of (0008,0005) was a defined term, or nearly one.
    bool IsKnown() const { return m_known; }
    bool IsUtf8() const { return m_whole == Whole::utf8; }
    /// Whether a backslash may be the second byte of a character without an escape sequence before it: GBK, GB18030.
    bool HidesBackslash() const { return m_whole == Whole::gbk || m_whole == Whole::gb18030; }

    /// Whether bytes are the same in UTF-8 whatever the character set is: then nobody has to look for one.
    static bool IsPlain(const char* bytes, std::size_t size, TextKind kind);

    /// Appends a text in UTF-8. Bytes that are no text become U+FFFD, zeros too.
    /// @return how many did
    std::size_t Decode(std::string_view bytes, TextKind kind, std::string& utf8) const;

    /// Appends the encoded text, with escape sequences where (0008,0005) allows for them.
    /// @return false, with `bytes` as they were: malformed UTF-8, or a character that the character set has not
    bool Encode(std::string_view utf8, TextKind kind, std::string& bytes) const;

private:
    /// Encodings of a whole text, without code extensions.
    enum class Whole : unsigned char { none, utf8, gbk, gb18030 };
    /// What is designated to the codes below and above 0x80.
    struct Designation {
        GraphicSet g0 = GraphicSet::ascii;
        GraphicSet g1 = GraphicSet::none;
    };
    struct Term;
    class Writer;

    static const Term* FindTerm(std::string_view value, bool& extended);
    void Declare(GraphicSet set);
    std::size_t DecodeUtf8(std::string_view bytes, std::string& utf8) const;
    std::size_t DecodeChinese(std::string_view bytes, std::string& utf8) const;
    std::size_t DecodeExtended(std::string_view bytes, TextKind kind, std::string& utf8) const;
    bool EncodeChinese(std::string_view utf8, std::string& bytes) const;

    static constexpr std::size_t kMostSets = 24;
    bool m_known = true;
    bool m_extended = false; ///< code extensions may be written
    Whole m_whole = Whole::none;
    Designation m_initial;
    GraphicSet m_tolerated = GraphicSet::none;  ///< what is read in the upper half from the start
    std::array<GraphicSet, kMostSets> m_sets{}; ///< declared, in the order of the values
    std::size_t m_count = 0;
};

/// Appends a character in UTF-8.
void AppendUtf8(char32_t c, std::string& utf8);
/// The character at `at`, which moves behind it; false, behind one faulty sequence, when there is none (PS3.5 6.1.1,
/// RFC 3629: no surrogates, no overlong forms).
bool NextUtf8(std::string_view utf8, std::size_t& at, char32_t& c);

} // namespace vdicom
