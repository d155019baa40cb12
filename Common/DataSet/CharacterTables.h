/// @file CharacterTables.h
/// The sets of graphic characters that DICOM texts are made of, as tables. They are made at their first use from what
/// the platform knows, once for the process; asking them is safe from every thread.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vdicom {

enum class GraphicSet : unsigned char {
    none,
    ascii,       ///< ISO-IR 6
    jisRoman,    ///< ISO-IR 14: ASCII but for the yen sign and the overline
    jisKatakana, ///< ISO-IR 13
    latin1,
    latin2,
    latin3,
    latin4,
    cyrillic,
    arabic,
    greek,
    hebrew,
    latin5,
    latin9,
    thai,
    jisX0208, ///< two bytes per character, as in the following three
    jisX0212,
    ksX1001,
    gb2312
};

inline bool IsDoubleByte(GraphicSet set) { return set >= GraphicSet::jisX0208; }

/// The character with this code in a set; bytes from 0x20 to 0x7F, two of them (`high`, `low`) for the sets of two
/// bytes. 0: there is none.
char32_t DecodeGraphic(GraphicSet set, unsigned int low, unsigned int high = 0);
/// The code of a character: one byte, or two with the first in the high byte. 0: the set does not have it.
unsigned int EncodeGraphic(GraphicSet set, char32_t c);

/// Characters of two bytes in GBK or, with `full`, GB18030.
char32_t DecodeChinese(bool full, unsigned int lead, unsigned int trail);
/// Characters of four bytes in GB18030.
char32_t DecodeChinese4(const unsigned char* bytes);
/// Writes the bytes of a character. @return how many: 2 or 4; 0: it cannot be expressed
std::size_t EncodeChinese(bool full, char32_t c, unsigned char* bytes);

} // namespace vdicom
