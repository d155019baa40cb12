/// @file TextCodec.h
/// Characters of encodings that the platform has tables of: iconv on POSIX systems, code pages on Windows. What DICOM
/// makes of them stands in CharacterSet.h.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vdicom::platform {

enum class TextEncoding : unsigned char {
    latin2,   ///< ISO 8859-2
    latin3,   ///< ISO 8859-3
    latin4,   ///< ISO 8859-4
    cyrillic, ///< ISO 8859-5
    arabic,   ///< ISO 8859-6
    greek,    ///< ISO 8859-7
    hebrew,   ///< ISO 8859-8
    latin5,   ///< ISO 8859-9
    latin9,   ///< ISO 8859-15
    thai,     ///< TIS 620
    jisX0208, ///< two bytes from 0x21 to 0x7E, as in the following three
    jisX0212,
    ksX1001,
    gb2312,
    gbk,    ///< two bytes
    gb18030 ///< two or four bytes
};

/// One encoding, opened. Not for several threads at once.
class TextCodec {
public:
    explicit TextCodec(TextEncoding encoding);
    ~TextCodec();
    TextCodec(const TextCodec&) = delete;
    TextCodec& operator=(const TextCodec&) = delete;

    /// Whether this system knows the encoding.
    bool IsAvailable() const;

    /// The code point of the character that `size` bytes stand for; 0 when they are none.
    char32_t Decode(const unsigned char* bytes, std::size_t size) const;

private:
    TextEncoding m_encoding;
    std::intptr_t m_handle;
};

} // namespace vdicom::platform
