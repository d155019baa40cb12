#include "TextCodec.h"

#include <array>

#include <windows.h>

namespace vdicom::platform {

namespace {

/// The code page, or one that has the characters of two bytes at least (Wine 8 has no page 54936).
UINT PageOf(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::latin2:
        return 28592;
    case TextEncoding::latin3:
        return 28593;
    case TextEncoding::latin4:
        return 28594;
    case TextEncoding::cyrillic:
        return 28595;
    case TextEncoding::arabic:
        return 28596;
    case TextEncoding::greek:
        return 28597;
    case TextEncoding::hebrew:
        return 28598;
    case TextEncoding::latin5:
        return 28599;
    case TextEncoding::latin9:
        return 28605;
    case TextEncoding::thai:
        return 874;
    case TextEncoding::jisX0208:
    case TextEncoding::jisX0212:
        return 20932;
    case TextEncoding::ksX1001:
        return 949;
    case TextEncoding::gb2312:
    case TextEncoding::gbk:
        return 936;
    case TextEncoding::gb18030:
        break;
    }
    return IsValidCodePage(54936) ? 54936 : 936;
}

} // namespace

TextCodec::TextCodec(TextEncoding encoding)
    : m_encoding(encoding), m_handle(static_cast<std::intptr_t>(PageOf(encoding))) {}

TextCodec::~TextCodec() = default;

bool TextCodec::IsAvailable() const { return IsValidCodePage(static_cast<UINT>(m_handle)) != 0; }

char32_t TextCodec::Decode(const unsigned char* bytes, std::size_t size) const {
    std::array<char, 4> in{};
    if (size == 0 || size > in.size())
        return 0;
    // The sets of 94 x 94 characters stand with the high bit in their pages; JIS X 0212 with that of the first byte.
    const bool high = m_encoding >= TextEncoding::jisX0208 && m_encoding <= TextEncoding::gb2312;
    for (std::size_t i = 0; i < size; ++i)
        in[i] =
            static_cast<char>(high && (i == 0 || m_encoding != TextEncoding::jisX0212) ? bytes[i] | 0x80 : bytes[i]);

    std::array<wchar_t, 4> out{};
    const int count = MultiByteToWideChar(static_cast<UINT>(m_handle), MB_ERR_INVALID_CHARS, in.data(),
                                          static_cast<int>(size), out.data(), static_cast<int>(out.size()));
    // One unit, or a pair of surrogates. What a page has no character for it gives as a private one, as '?' or as the
    // replacement character.
    const auto first = static_cast<char32_t>(out[0]);
    if (count == 2 && first >= 0xD800 && first < 0xDC00)
        return 0x10000 + ((first - 0xD800) << 10) + (static_cast<char32_t>(out[1]) - 0xDC00);
    const bool privateUse = first >= 0xE000 && first < 0xF900 && m_encoding != TextEncoding::gb18030;
    return count != 1 || first < 0x80 || first == 0xFFFD || privateUse ? 0 : first;
}

} // namespace vdicom::platform
